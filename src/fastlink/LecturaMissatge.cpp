// Fields by position: command, id1, amount, id2, till, terminal, seller, form of payment.
#include "fastlink/LecturaMissatge.h"

#include "platform/Conversions.h"
#include "platform/ErrorEjecucion.h"

#include <QVarLengthArray>

namespace zv {

namespace {

constexpr int kCamposMaximos = 8;

// Only the fields that mean something: a megabyte of "|" must not become a list of a million.
using Campos = QVarLengthArray<QStringView, kCamposMaximos>;

Campos Partir(QStringView texto) {
    Campos campos;
    qsizetype inicio = 0;
    while (campos.size() < kCamposMaximos) {
        const qsizetype fin = texto.indexOf(u'|', inicio);
        if (fin < 0) {
            campos.append(texto.sliced(inicio));
            break;
        }
        campos.append(texto.sliced(inicio, fin - inicio));
        inicio = fin + 1;
    }
    return campos;
}

QString Primeros(QStringView campo) {
    return campo.left(kTextoMissatge).toString();
}

void LeerImporte(const QString& campo, const FormatoRegional& formato, Missatge& missatge) {
    try {
        missatge.Importe = formato.LeerCurrency(campo).AEntero32();
    } catch (const ErrorEjecucion&) {
        missatge.ImporteError = true;
    }
}

void LeerCaja(const QString& campo, const FormatoRegional& formato, Missatge& missatge) {
    try {
        missatge.IDcaja = AEntero32(campo, formato);
    } catch (const ErrorEjecucion&) {
        missatge.IDcaja = 0;
    }
}

} // namespace

std::optional<Missatge> LeerMissatge(const QString& texto, const FormatoRegional& formato) {
    const Campos campos = Partir(texto);
    if (campos.size() < 2) {
        return std::nullopt;
    }
    Missatge missatge;
    missatge.Comanda = campos[0].toString();
    missatge.ID1 = Primeros(campos[1]);
    if (campos.size() > 2) {
        LeerImporte(campos[2].toString(), formato, missatge);
    }
    if (campos.size() > 3) {
        missatge.ID2 = Primeros(campos[3]);
    }
    if (campos.size() > 4) {
        LeerCaja(campos[4].toString(), formato, missatge);
    }
    if (campos.size() > 5) {
        missatge.Terminal = Primeros(campos[5]);
    }
    if (campos.size() > 6) {
        missatge.Vendedor = Primeros(campos[6]);
    }
    if (campos.size() > 7) {
        missatge.Formapago = Primeros(campos[7]);
    }
    return missatge;
}

} // namespace zv
