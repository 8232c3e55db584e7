// A process list and a shell without processes: what runs is what the test says.
#pragma once

#include "platform/ProcessList.h"
#include "platform/Shell.h"

#include <QStringList>

#include <functional>

namespace zv::test {

class FakeProcessList final : public ProcessList {
  public:
    int Contar(const QString& nombre) const override {
        if (alContar) {
            alContar();
        }
        return static_cast<int>(enMarcha.count(nombre));
    }
    void Terminar(const QString& nombre) override { terminados << nombre; }

    QStringList enMarcha;
    QStringList terminados;
    std::function<void()> alContar; // somebody asks whether a program runs
};

class ShellFalsa final : public Shell {
  public:
    explicit ShellFalsa(FakeProcessList& procesos) : procesos_(procesos) {}

    bool Abrir(const QString& ruta, const QString& carpetaTrabajo) override {
        abiertos << ruta + QLatin1Char('|') + carpetaTrabajo;
        if (arranca) {
            procesos_.enMarcha << ruta.mid(ruta.lastIndexOf(QLatin1Char('/')) + 1);
        }
        return arranca;
    }
    bool AbrirDireccion(const QString& url) override {
        abiertos << url;
        return true;
    }

    bool arranca = true;
    QStringList abiertos;

  private:
    FakeProcessList& procesos_;
};

} // namespace zv::test
