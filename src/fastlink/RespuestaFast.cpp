// The tests of a command are made in this order; the first that holds gives the answer.
#include "fastlink/RespuestaFast.h"

namespace zv {

namespace {

QString ContestarCobro(dades& datos, const Missatge& missatge) {
    if (missatge.ImporteError) {
        return QStringLiteral("NOK|Amount too big");
    }
    QString estado;
    bool resultado = false;
    datos.EstatComanda(missatge, estado, resultado);
    if (!resultado) {
        return QStringLiteral("NOK|Invalid ID");
    }
    if (estado != QLatin1String("NOT FOUND")) {
        return QStringLiteral("NOK|Already exists");
    }
    datos.Inserta(missatge, resultado);
    return resultado ? QStringLiteral("OK|Added") : QStringLiteral("NOK|Failed");
}

QString ContestarEstado(dades& datos, const Missatge& missatge) {
    QString estado;
    bool resultado = false;
    // It looks at the command as received: "s" is told "NOT FOUND" for an unknown sale.
    datos.EstatComanda(missatge, estado, resultado);
    return resultado ? QStringLiteral("OK|") + estado : QStringLiteral("NOK|Not found");
}

} // namespace

QString ContestarMissatge(dades& datos, const Missatge& missatge) {
    const QString comanda = missatge.Comanda.toUpper();
    if (comanda == QLatin1String("C")) {
        return ContestarCobro(datos, missatge);
    }
    if (comanda == QLatin1String("S")) {
        return ContestarEstado(datos, missatge);
    }
    return QStringLiteral("NOK|Unknown command");
}

} // namespace zv
