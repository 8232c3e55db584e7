// A main window without a window: keeps its state and what was asked of it.
#pragma once

#include "engine/VentanaPrincipal.h"

#include <QStringList>

#include <functional>

namespace zv::test {

class VentanaFalsa final : public VentanaPrincipal {
  public:
    int WindowState() const override { return estado; }
    void PonerWindowState(int nuevo) override {
        estado = nuevo;
        Anotar(QStringLiteral("estado ") + QString::number(nuevo));
    }
    void TraerAlFrente() override { Anotar(QStringLiteral("al frente")); }
    void Traducir() override { Anotar(QStringLiteral("traducir")); }
    void PonerIcono() override { Anotar(QStringLiteral("icono")); }
    void PrepararGrid() override { Anotar(QStringLiteral("columnas")); }
    void PonerVersion(const QString& caption) override { Anotar(caption); }
    void Mostrar() override { Anotar(QStringLiteral("mostrar")); }

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
