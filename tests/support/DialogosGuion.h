// Dialogs answered by a script: the test says in order what will be asked and what the operator
// answers. A question that the script does not hold, and an answer nobody asked for, fail the test.
#pragma once

#include "ui/Dialogos.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <gmock/gmock.h>
#include <optional>

namespace zv::test {

// A text, or any GoogleMock matcher of QString, or testing::_.
using TextoEsperado = testing::Matcher<QString>;

class DialogosGuion final : public Dialogos {
  public:
    using Accion = std::function<void()>;

    DialogosGuion() = default;
    DialogosGuion(const DialogosGuion&) = delete;
    DialogosGuion& operator=(const DialogosGuion&) = delete;
    ~DialogosGuion() override;

    // What comes next. mientras runs while the dialog would be up: timers still tick there.
    // No estilo accepts any style.
    void EsperaMensaje(TextoEsperado titulo, TextoEsperado texto,
                       Respuesta respuesta = Respuesta::Aceptar,
                       std::optional<EstiloMensaje> estilo = std::nullopt, Accion mientras = {});
    void EsperaTexto(TextoEsperado titulo, TextoEsperado texto, const QString& respuesta,
                     TextoEsperado porDefecto = testing::_, Accion mientras = {});
    // respuesta in minor units.
    void EsperaImporte(TextoEsperado titulo, TextoEsperado prompt, Currency respuesta,
                       bool cancelado = false, Accion mientras = {});
    // "No amount", where it is offered.
    void EsperaSinImporte(TextoEsperado titulo, TextoEsperado prompt);
    void EsperaImpresion(Impresion respuesta, Accion mientras = {});
    void EsperaCaja(TextoEsperado texto, Accion mientras = {});

    // Every call that came, in order, as "Mensaje|title|text|style" and the like.
    const QStringList& Llamadas() const { return llamadas_; }
    // The last amount prompt's default (minor units) and whether it offered "no amount".
    Currency UltimoImportePorDefecto() const { return ultimoImporte_; }
    bool UltimoSinImporte() const { return ultimoSinImporte_; }
    // How many expectations still wait.
    std::size_t Pendientes() const { return guion_.size(); }
    // Forgets what still waits, for a test that stops half way.
    void Olvida() { guion_.clear(); }

    Respuesta MostrarMensaje(const QString& titulo, const QString& texto,
                             EstiloMensaje estilo = EstiloMensaje::Aceptar) override;
    QString PedirTexto(const QString& titulo, const QString& texto,
                       const QString& porDefecto = {}) override;
    Currency PedirImporte(const QString& titulo, const QString& prompt, Currency porDefecto,
                          bool* sinImporte, bool& cancelado) override;
    Impresion ElegirImpresion() override;
    void CajaSimple(const QString& texto) override;

  private:
    enum class Kind { Mensaje, Texto, Importe, Impresion, Caja };
    struct Paso {
        Kind kind;
        TextoEsperado titulo;
        TextoEsperado texto;
        TextoEsperado porDefecto;
        std::optional<int> estilo; // its number, or whether "no amount" is offered
        Respuesta boton;
        QString respuesta;
        Currency importe;
        bool cancelado;
        bool sinImporte;
        Accion mientras;
        zv::Impresion impresion = zv::Impresion::Nada;
    };

    // The step for this call when it is the one that waits; otherwise fails the test.
    std::optional<Paso> Siguiente(Kind kind, const QString& titulo, const QString& texto,
                                  int estilo, const QString& porDefecto);
    static const char* Nombre(Kind kind);
    static std::string Describe(const Paso& paso);

    std::deque<Paso> guion_;
    QStringList llamadas_;
    Currency ultimoImporte_;
    bool ultimoSinImporte_ = false;
};

} // namespace zv::test
