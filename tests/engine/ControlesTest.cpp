// What counts as news for the screen, and what does not.
#include "engine/Controles.h"

#include "platform/StringLiterals.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using E = EstadoControles;

class ControlesTest : public testing::Test {
  protected:
    ControlesTest() {
        controles.AlCambiar([this] { ++avisos; });
    }

    Controles controles;
    int avisos = 0;
};

TEST_F(ControlesTest, WhatIsTurnedOffAndOnAgainIsNoNews) {
    controles.Poner(&E::framePie, false);
    EXPECT_TRUE(controles.PorMostrar());
    controles.Poner(&E::grdZV, false);
    controles.Poner(&E::framePie, true);
    EXPECT_TRUE(controles.PorMostrar());
    controles.Poner(&E::grdZV, true);
    EXPECT_FALSE(controles.PorMostrar());
    EXPECT_EQ(avisos, 4);
}

TEST_F(ControlesTest, WhatIsPutAsItStandsIsNotTold) {
    controles.Poner(&E::framePie, true);
    controles.Poner(&E::lbEstado, QString());
    controles.PonerBoton(BotonPie::Caja, true);
    EXPECT_EQ(avisos, 0);
    EXPECT_FALSE(controles.PorMostrar());
}

TEST_F(ControlesTest, NewsIsMeasuredByWhatWasShownLast) {
    controles.Poner(&E::framePie, false);
    controles.PonerMostrado();
    EXPECT_FALSE(controles.PorMostrar());
    EXPECT_FALSE(controles.Mostrado().framePie);
    controles.Poner(&E::framePie, true);
    EXPECT_TRUE(controles.PorMostrar());
    controles.Poner(&E::framePie, false);
    EXPECT_FALSE(controles.PorMostrar());
}

TEST_F(ControlesTest, TextsButtonsAndModesAreAlwaysNews) {
    controles.Poner(&E::lbEstado, u"x"_s);
    EXPECT_TRUE(controles.PorMostrar());
    controles.PonerMostrado();
    EXPECT_FALSE(controles.PorMostrar());
    controles.PonerBoton(BotonPie::Caja, false);
    EXPECT_TRUE(controles.PorMostrar());
    controles.PonerMostrado();
    controles.Poner(&E::btnModo, std::array<bool, 3>{true, false, false});
    EXPECT_TRUE(controles.PorMostrar());
    EXPECT_EQ(avisos, 3);
}

TEST_F(ControlesTest, ItIsShownAgainWhenAsked) {
    controles.Repetir();
    EXPECT_TRUE(controles.PorMostrar());
    EXPECT_EQ(avisos, 1);
}

TEST_F(ControlesTest, AnotherScreenBeginsWithTheDefaults) {
    controles.Poner(&E::framePie, false);
    controles.PonerMostrado();
    controles.PonerPorDefecto();
    EXPECT_TRUE(controles.PorMostrar());
    EXPECT_EQ(controles.Mostrado(), E());
    EXPECT_FALSE(controles.Estado().framePie);
    controles.PonerMostrado();
    EXPECT_FALSE(controles.PorMostrar());
}

} // namespace
} // namespace zv
