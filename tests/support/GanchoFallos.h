// Makes chosen statements of an engine fail, so many times, and keeps what the engine was about to
// do. The hook goes with it.
#pragma once

#include "platform/ErrorEjecucion.h"
#include "store/MotorBD.h"

#include <vector>

namespace zv::test {

class GanchoFallos {
  public:
    explicit GanchoFallos(MotorBD& motor) : motor_(motor) {
        motor_.PonerGancho([this](const Sentencia& s) { Mirar(s); });
    }
    ~GanchoFallos() { motor_.PonerGancho({}); }
    GanchoFallos(const GanchoFallos&) = delete;
    GanchoFallos& operator=(const GanchoFallos&) = delete;

    // The next so many statements of that kind whose text holds contiene raise the failure.
    void Falla(Sentencia::Clase clase, const QString& contiene, int veces,
               ErrorEjecucion fallo = {5, QStringLiteral("database is locked")}) {
        fallos_.push_back({clase, contiene, veces, std::move(fallo)});
    }

    // Failures that were asked for and have not come.
    int Pendientes() const {
        int n = 0;
        for (const Fallo& f : fallos_) {
            n += f.veces;
        }
        return n;
    }
    int Cuenta(Sentencia::Clase clase, const QString& contiene) const {
        int n = 0;
        for (const Sentencia& s : vistas) {
            n += Casa(s, clase, contiene) ? 1 : 0;
        }
        return n;
    }

    std::vector<Sentencia> vistas;

  private:
    struct Fallo {
        Sentencia::Clase clase;
        QString contiene;
        int veces;
        ErrorEjecucion fallo;
    };
    static bool Casa(const Sentencia& s, Sentencia::Clase clase, const QString& contiene) {
        return s.clase == clase && s.sql.contains(contiene, Qt::CaseInsensitive);
    }
    void Mirar(const Sentencia& s) {
        vistas.push_back(s);
        for (Fallo& f : fallos_) {
            if (f.veces > 0 && Casa(s, f.clase, f.contiene)) {
                --f.veces;
                throw ErrorEjecucion(f.fallo);
            }
        }
    }

    MotorBD& motor_;
    std::vector<Fallo> fallos_;
};

} // namespace zv::test
