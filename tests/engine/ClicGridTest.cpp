// A click in the queue grid makes its cell the current one.
#include "BancoEngine.h"

namespace zv::test {

class ClicGridTest : public BancoEngine {
  protected:
    ClicGridTest() {
        PonerFila(100);
        PonerFila(200);
        grid.Rellenar(motor, false);
    }
    std::pair<int, int> Actual() const {
        return {grid.Celdas().FilaActual(), grid.Celdas().ColumnaActual()};
    }
};

TEST_F(ClicGridTest, TheClickedCellBecomesCurrent) {
    clic.grdZV_MouseUp(2, ColumnaCola::Enviar, false);
    EXPECT_EQ(Actual(), std::pair(2, int{ColumnaCola::Enviar}));
    clic.grdZV_MouseUp(1, ColumnaCola::Anular, false);
    EXPECT_EQ(Actual(), std::pair(1, int{ColumnaCola::Anular}));
}

TEST_F(ClicGridTest, AClickOnNoCellOfARowChangesNothing) {
    clic.grdZV_MouseUp(2, 3, false);
    clic.grdZV_MouseUp(0, 5, false);
    clic.grdZV_MouseUp(0, 5, true);
    clic.grdZV_MouseUp(1, 5, true);
    clic.grdZV_MouseUp(1, -1, false);
    EXPECT_EQ(Actual(), std::pair(2, 3));
}

TEST_F(ClicGridTest, AClickThatComesTooLateChangesNothing) {
    clic.grdZV_MouseUp(2, 3, false);
    pulso.ParaTimer();
    clic.grdZV_MouseUp(1, 4, false);
    EXPECT_EQ(Actual(), std::pair(2, 3));
    pulso.ArrancaTimer();
    clic.grdZV_MouseUp(1, 4, false);
    EXPECT_EQ(Actual(), std::pair(1, 4));
}

} // namespace zv::test
