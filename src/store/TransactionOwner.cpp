#include "store/TransactionOwner.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

namespace zv {

// True when the level was rolled back. Either way it has ended.
bool TransactionOwner::SaldarNivel() {
    const bool escrito = motor_.NivelEscrito();
    try {
        if (escrito) {
            motor_.Deshacer();
        } else {
            motor_.Confirmar();
        }
        return escrito;
    } catch (const ErrorEjecucion&) {
        return true;
    }
}

void TransactionOwner::Saldar() {
    while (motor_.Nivel() > 0) {
        if (!SaldarNivel()) {
            continue;
        }
        try {
            log_.LogLinea(u">>> Transacción abandonada: deshecha"_s);
        } catch (const ErrorEjecucion&) {
            continue;
        }
    }
}

} // namespace zv
