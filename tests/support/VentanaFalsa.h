// A main window without a window: keeps its state and what was asked of it.
#pragma once

#include "engine/VentanaPrincipal.h"
#include "platform/StringLiterals.h"

#include <QStringList>

#include <functional>

namespace zv::test {

class VentanaFalsa final : public VentanaPrincipal {
  public:
    int WindowState() const override { return estado; }
    void PonerWindowState(int nuevo) override {
        estado = nuevo;
        Anotar(u"estado "_s + QString::number(nuevo));
    }
    void TraerAlFrente() override { Anotar(u"al frente"_s); }
    void Traducir() override { Anotar(u"traducir"_s); }
    void PonerIcono() override { Anotar(u"icono"_s); }
    void PrepararGrid() override { Anotar(u"columnas"_s); }
    void PonerVersion(const QString& caption) override { Anotar(caption); }
    void Mostrar() override { Anotar(u"mostrar"_s); }

    int estado = ventana::kNormal;
    QStringList llamadas;
    std::function<void(const QString&)> alLlamar;

  private:
    void Anotar(const QString& texto) {
        llamadas << texto;
        if (alLlamar) {
            alLlamar(texto);
        }
    }
};

} // namespace zv::test
