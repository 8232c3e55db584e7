// Where the dialogs come up.
#include "ui/screens/DialogosPrueba.h"
#include "ui/screens/frmImpresio.h"

#include <QScreen>

namespace zv::test {
namespace {

using CentradoTest = DialogosPrueba;

TEST_F(CentradoTest, ComesUpOverTheMiddleOfItsParent) {
    QWidget padre;
    padre.setWindowFlag(Qt::FramelessWindowHint);
    padre.setGeometry(30, 20, 700, 600);
    padre.show();
    frmImpresio dialogo(textos_, &padre);
    dialogo.show();
    const QPoint lejos = dialogo.geometry().center() - padre.geometry().center();
    EXPECT_LE(lejos.manhattanLength(), 2) << lejos.x() << " " << lejos.y();
}

TEST_F(CentradoTest, StaysOnTheScreenWhenItsParentIsAtTheEdge) {
    QWidget padre;
    padre.setWindowFlag(Qt::FramelessWindowHint);
    padre.setGeometry(-300, 700, 400, 300);
    padre.show();
    frmImpresio dialogo(textos_, &padre);
    dialogo.show();
    EXPECT_TRUE(dialogo.screen()->availableGeometry().contains(dialogo.geometry()));
}

} // namespace
} // namespace zv::test
