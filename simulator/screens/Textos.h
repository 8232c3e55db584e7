// Amounts and names as the window shows them.
#pragma once

#include "simulator/Operacion.h"

#include <QString>

namespace zv::simulador {

// 123456 is "1.234,56 €".
QString TextoImporte(qint64 centimos);
// What a piece has printed on it: "50 c", "2 €".
QString TextoPieza(qint32 valor);
// "Cobro de 12,50 €", "Añadir cambio".
QString TituloOperacion(const Operacion& op);
// How an operation ended: "Terminada", "Cancelada", "Error 12: Pieza atascada".
QString TextoFin(const Operacion& op);

} // namespace zv::simulador
