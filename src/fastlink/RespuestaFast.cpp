// The tests of a command are made in this order; the first that holds gives the answer.
#include "fastlink/RespuestaFast.h"

#include "platform/StringLiterals.h"
#include "store/Palabras.h"

namespace zv {

namespace {

QString ContestarCobro(dades& datos, const Missatge& missatge) {
    if (missatge.ImporteError) {
        return u"NOK|Amount too big"_s;
    }
    QString estado;
    bool resultado = false;
    datos.EstatComanda(missatge, estado, resultado);
    if (!resultado) {
        return u"NOK|Invalid ID"_s;
    }
    if (estado != estado::kDesconocida) {
        return u"NOK|Already exists"_s;
    }
    datos.Inserta(missatge, resultado);
    return resultado ? u"OK|Added"_s : u"NOK|Failed"_s;
}

QString ContestarEstado(dades& datos, const Missatge& missatge) {
    QString estado;
    bool resultado = false;
    // It looks at the command as received: "s" is told "NOT FOUND" for an unknown sale.
    datos.EstatComanda(missatge, estado, resultado);
    return resultado ? u"OK|"_s + estado : u"NOK|Not found"_s;
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
    return u"NOK|Unknown command"_s;
}

} // namespace zv
