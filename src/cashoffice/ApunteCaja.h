// A movement that the cash office itself files: what is the same in all of them stands here.
#pragma once

#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "till/Entorno.h"

namespace zv {

// Amounts in minor units, as they go into the record.
struct ApunteCaja {
    QString id1;
    Currency importeVenta;
    Currency cobrado;
    Currency devuelto;
    Currency saldoZV;
    QString formapago = {};
};

inline RegistroProcesado Registro(const Entorno& entorno, const ApunteCaja& apunte) {
    RegistroProcesado registro;
    registro.fechaVenta = entorno.reloj.Ahora();
    registro.importeVenta = apunte.importeVenta;
    registro.cobrado = apunte.cobrado;
    registro.devuelto = apunte.devuelto;
    registro.estado = estado::kOk;
    registro.venta.id1 = apunte.id1;
    registro.venta.terminal = u"ZV"_s;
    registro.venta.formapago = apunte.formapago;
    registro.saldoZV = apunte.saldoZV;
    return registro;
}

} // namespace zv
