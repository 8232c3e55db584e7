// Which on-screen keyboard is started.
#include "ui/TecladoPantalla.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

void Ejecutable(const CarpetaTemporal& carpeta, const QString& nombre) {
    carpeta.Pon(nombre, "#!/bin/sh\nexit 0\n");
    QFile::setPermissions(carpeta.Ruta(nombre), QFileDevice::Permissions(0x7755));
}

TEST(TecladoPantallaTest, NoneOnTheMachineIsNoFailure) {
    const CarpetaTemporal carpeta;
    EXPECT_EQ(BuscarTecladoPantalla({carpeta.Ruta()}), QString());
    EXPECT_FALSE(AbrirTecladoPantalla({carpeta.Ruta()}));
}

TEST(TecladoPantallaTest, AKeyboardThatIsThereIsStarted) {
    const CarpetaTemporal carpeta;
    // A program that outlives the folder of the test.
    ASSERT_TRUE(QFile::link(u"/bin/true"_s, carpeta.Ruta(u"onboard"_s)));
    EXPECT_TRUE(AbrirTecladoPantalla({carpeta.Ruta()}));
}

TEST(TecladoPantallaTest, TheBestKnownOneIsTaken) {
    const CarpetaTemporal carpeta;
    Ejecutable(carpeta, u"xvkbd"_s);
    EXPECT_EQ(BuscarTecladoPantalla({carpeta.Ruta()}), carpeta.Ruta(u"xvkbd"_s));
    Ejecutable(carpeta, u"onboard"_s);
    EXPECT_EQ(BuscarTecladoPantalla({carpeta.Ruta()}), carpeta.Ruta(u"onboard"_s));
}

} // namespace
} // namespace zv::test
