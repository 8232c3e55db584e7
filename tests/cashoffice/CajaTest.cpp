// The cash office without a window: real database, scripted device and operator.
#include "cashoffice/Caja.h"

#include "support/DeviceGuion.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

TEST(EstadoCajaTest, EmptyingABoxStartsDisabled) {
    const EstadoCaja estado;
    for (const BotonCaja boton : kBotonesCaja) {
        EXPECT_EQ(estado.boton[boton],
                  boton != BotonCaja::VaciarMonedas && boton != BotonCaja::VaciarBilletes);
    }
}

} // namespace
} // namespace zv::test
