// The fields of the barcode layout, each tested against the others, so that none is left beyond
// the code's length or out of order.
#pragma once

#include "barcode/LecturaCodigo.h"
#include "platform/FormatoRegional.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace zv {

class Configuracio;
class Dialogos;
class Textos;

class CamposBalanza {
  public:
    // TBal: length of the code; first and last character of the ticket; first and last character
    // of the amount; its decimals.
    static constexpr int kCuantos = 6;

    enum class Tecla { Enter, Abajo, Arriba };

    struct Campo {
        QString texto;
        bool bueno = true; // not refused when it was tested last
    };

    // decimales: those of the device, the most that an amount may have. formato: how numbers are
    // read. What is handed in outlives this.
    CamposBalanza(FormatoRegional formato, std::function<int()> decimales, Dialogos& dialogos,
                  const Textos& textos);

    // Keeps the configuration, which outlives this, and fills the fields from it.
    void CarregaConfig(Configuracio& cfg);

    const Campo& TBal(int indice) const { return campos_[indice]; }
    bool Check1() const { return check1_; }
    // Something stands in the fields that only Aceptar brings to the configuration.
    bool Cambiado() const;
    // As the fields stand, good or not: what is no number counts as 0.
    LayoutCodigo Layout() const;

    // The operator has typed; nothing is tested yet.
    void Escribir(int indice, const QString& texto) { campos_[indice].texto = texto; }
    // Tests the field. Answers the one that has the focus then.
    int TBal_KeyDown(int indice, Tecla tecla);
    // Reaches the configuration at once: leaving the screen does not take it back.
    void Check1_Click(bool marcado);
    // Tests all fields and copies them to the configuration. Answers the first that was refused,
    // which takes the focus; nothing was copied then.
    std::optional<int> Aceptar();

  private:
    std::optional<double> Numero(int indice) const;
    double Valor(int indice) const { return Numero(indice).value_or(0); }
    int Entero(int indice) const;
    void ReiniciarSiguientes(int indice);
    bool SinTicket(int indice) const;
    bool EsBueno(int indice) const;
    bool Probar(int indice);
    void Rechazar(int indice);
    void AlSerBueno(int indice);
    std::optional<int> Copiar();

    FormatoRegional formato_;
    std::function<int()> decimales_;
    Dialogos& dialogos_;
    const Textos& textos_;
    Configuracio* cfg_ = nullptr;
    std::array<Campo, kCuantos> campos_;
    std::array<QString, kCuantos> cargados_;
    bool check1_ = false;
};

} // namespace zv
