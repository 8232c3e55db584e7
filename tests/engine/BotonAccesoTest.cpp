// The floating button without its window.
#include "engine/BotonAcceso.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "support/VentanaFalsa.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class BotonAccesoTest : public testing::Test {
  protected:
    BotonAccesoTest() {
        ventana.alLlamar = [this](const QString& llamada) { pasos << llamada; };
    }

    QStringList pasos;
    VentanaFalsa ventana;
    std::function<void()> durante;
    BotonAcceso boton{ventana, [this](const QString& concepto) {
                          pasos << u"cobro "_s + concepto;
                          if (durante) {
                              durante();
                          }
                      }};
};

TEST_F(BotonAccesoTest, RestoresAMinimisedMainScreenBeforeItCharges) {
    ventana.estado = ventana::kMinimizada;
    boton.Pulsar();
    EXPECT_EQ(pasos, (QStringList{u"estado 2"_s, u"cobro VENTA"_s}));
}

TEST_F(BotonAccesoTest, LeavesAMainScreenThatIsUpAsItIs) {
    for (const int estado : {ventana::kNormal, ventana::kMaximizada}) {
        pasos.clear();
        ventana.estado = estado;
        boton.Pulsar();
        EXPECT_EQ(pasos, QStringList(u"cobro VENTA"_s));
    }
}

TEST_F(BotonAccesoTest, IgnoresAPressWhileItsChargeRuns) {
    durante = [this] { boton.Pulsar(); };
    boton.Pulsar();
    EXPECT_EQ(pasos.size(), 1);
    durante = {};
    boton.Pulsar();
    EXPECT_EQ(pasos.size(), 2);
}

TEST_F(BotonAccesoTest, CanBePressedAgainAfterAChargeThatFailed) {
    durante = [] { throw 1; };
    EXPECT_THROW(boton.Pulsar(), int);
    durante = {};
    boton.Pulsar();
    EXPECT_EQ(pasos.size(), 2);
}

TEST_F(BotonAccesoTest, StandsFiveWidthsFromTheRightInTheBandOfTheHeader) {
    EXPECT_EQ(BotonAcceso::SitioInicial(1024, {40, 40}), QPoint(1024 - 200, 8));
    EXPECT_EQ(BotonAcceso::SitioInicial(1024, {57, 57}), QPoint(1024 - 285, 0));
    // Higher than the band, it begins above it.
    EXPECT_EQ(BotonAcceso::SitioInicial(1920, {96, 96}), QPoint(1920 - 480, -19));
}

TEST_F(BotonAccesoTest, StaysWholeAtTheEdgesOfTheScreen) {
    const QRect pantalla(100, 30, 1024, 700);
    const QSize lado(96, 96);
    EXPECT_EQ(BotonAcceso::Entero({500, 300}, lado, pantalla), QPoint(500, 300));
    EXPECT_EQ(BotonAcceso::Entero({-5, 0}, lado, pantalla), QPoint(100, 30));
    EXPECT_EQ(BotonAcceso::Entero({2000, 1000}, lado, pantalla),
              QPoint(100 + 1024 - 96, 30 + 700 - 96));
    EXPECT_EQ(BotonAcceso::Entero({2000, 1000}, lado, QRect(10, 20, 50, 50)), QPoint(10, 20));
}

} // namespace
} // namespace zv::test
