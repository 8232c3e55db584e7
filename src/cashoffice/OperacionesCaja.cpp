#include "cashoffice/OperacionesCaja.h"

#include "platform/StringLiterals.h"

#include <QScopedValueRollback>

namespace zv {

void OperacionesCaja::boton_Click(BotonCaja boton) {
    if (!ocupado_ && caja_.Estado().boton[boton]) {
        // A dialog or the device may run events, and a click with them.
        const QScopedValueRollback ocupado(ocupado_, true);
        Ejecutar(boton);
    }
}

void OperacionesCaja::Ejecutar(BotonCaja boton) {
    switch (boton) {
    case BotonCaja::CierreNiveles:
        return cierre_.Cerrar(kCierreNiveles);
    case BotonCaja::CierreValor:
        return cierre_.Cerrar(kCierreValor);
    case BotonCaja::Cuadrar:
        return cuadre_.Cuadrar();
    case BotonCaja::VaciarMonedas:
        return vaciado_.Vaciar(kCajonMonedas);
    case BotonCaja::VaciarBilletes:
        return vaciado_.Vaciar(kCajonBilletes);
    case BotonCaja::Configuracion:
        return Configurar();
    default:
        return;
    }
}

// Whether the device has shown anything is its own matter.
void OperacionesCaja::Configurar() {
    bool resultado = false;
    caja_.ElEntorno().cliente.Configuration(resultado);
    caja_.ElEntorno().log.LogLinea(u"ZV_CONFIGURATION"_s);
}

} // namespace zv
