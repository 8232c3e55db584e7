// Makes chosen statements of an engine fail, so many times, and keeps what the engine was about to
// do. The hook goes with it.
#pragma once

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/DatabaseEngine.h"

#include <vector>

namespace zv::test {

class GanchoFallos {
  public:
    explicit GanchoFallos(DatabaseEngine& motor) : motor_(motor) {
        motor_.PonerGancho([this](const Statement& s) { Mirar(s); });
    }
    ~GanchoFallos() { motor_.PonerGancho({}); }
    GanchoFallos(const GanchoFallos&) = delete;
    GanchoFallos& operator=(const GanchoFallos&) = delete;

    // The next so many statements of that kind whose text holds contiene raise the failure.
    void Falla(Statement::Kind kind, const QString& contiene, int veces,
               ErrorEjecucion fallo = {5, u"database is locked"_s}) {
        fallos_.push_back({kind, contiene, veces, std::move(fallo)});
    }

    // Failures that were asked for and have not come.
    int Pendientes() const {
        int n = 0;
        for (const Fallo& f : fallos_) {
            n += f.veces;
        }
        return n;
    }
    int Cuenta(Statement::Kind kind, const QString& contiene) const {
        int n = 0;
        for (const Statement& s : vistas) {
            n += Casa(s, kind, contiene) ? 1 : 0;
        }
        return n;
    }

    std::vector<Statement> vistas;

  private:
    struct Fallo {
        Statement::Kind kind;
        QString contiene;
        int veces;
        ErrorEjecucion fallo;
    };
    static bool Casa(const Statement& s, Statement::Kind kind, const QString& contiene) {
        return s.kind == kind && s.sql.contains(contiene, Qt::CaseInsensitive);
    }
    void Mirar(const Statement& s) {
        vistas.push_back(s);
        for (Fallo& f : fallos_) {
            if (f.veces > 0 && Casa(s, f.kind, f.contiene)) {
                --f.veces;
                throw ErrorEjecucion(f.fallo);
            }
        }
    }

    DatabaseEngine& motor_;
    std::vector<Fallo> fallos_;
};

} // namespace zv::test
