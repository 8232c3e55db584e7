// A long grid that fills in steps.
#include "ui/RellenoRejilla.h"

#include "platform/StringLiterals.h"
#include "ui/Rejilla.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class RellenoRejillaTest : public testing::Test {
  protected:
    void PorPasos() {
        relleno.PorPasos([this] { ++pedidos; });
    }
    // Its rows are numbered from 0.
    void EsperaFilas(int cuantas) {
        ASSERT_EQ(rejilla.FilasDatos(), cuantas);
        for (int fila = 1; fila <= cuantas; ++fila) {
            ASSERT_EQ(rejilla.Texto(fila, 0), QString::number(fila - 1));
        }
    }

    Rejilla rejilla{{{.delante = u"N"_s}}};
    int pasos = 0;
    int pedidos = 0;
    RellenoRejilla relleno{
        rejilla,
        [this](std::size_t n) { rejilla.PonerTexto(rejilla.AñadirFila(), 0, QString::number(n)); },
        [this] { ++pasos; }};
};

TEST_F(RellenoRejillaTest, WithoutSomeoneToAskAllRowsStandAtOnce) {
    relleno.Empezar(2000);
    EsperaFilas(2000);
    EXPECT_EQ(pasos, 1);
    EXPECT_FALSE(relleno.Faltan());
    EXPECT_FALSE(relleno.Seguir());
}

TEST_F(RellenoRejillaTest, TheFirstRowsStandAndEachStepIsAskedFor) {
    PorPasos();
    relleno.Empezar(1000000);
    EsperaFilas(500);
    EXPECT_EQ(relleno.Puestas(), 500U);
    EXPECT_EQ(pedidos, 1);
    EXPECT_TRUE(relleno.Seguir());
    EXPECT_EQ(pasos, 2);
    EXPECT_EQ(pedidos, 1); // its answer says it
    EXPECT_GE(rejilla.FilasDatos(), 600);
    EXPECT_LT(rejilla.FilasDatos(), 1000000);
    EXPECT_EQ(relleno.Puestas(), static_cast<std::size_t>(rejilla.FilasDatos()));
}

TEST_F(RellenoRejillaTest, AShortOneAsksForNoStep) {
    PorPasos();
    relleno.Empezar(500);
    EXPECT_EQ(pedidos, 0);
    relleno.Empezar(0);
    EXPECT_EQ(pedidos, 0);
    EXPECT_EQ(pasos, 2);
}

TEST_F(RellenoRejillaTest, MoreOfThemStandAtOnceWhereThatIsAskedFor) {
    PorPasos();
    relleno.Empezar(3000, 1200);
    EsperaFilas(1200);
}

TEST_F(RellenoRejillaTest, WhoCannotWaitHasTheRest) {
    PorPasos();
    relleno.Empezar(3000);
    relleno.Completar();
    EsperaFilas(3000);
    EXPECT_EQ(pasos, 2);
    EXPECT_FALSE(relleno.Seguir()); // the step that had been asked for
    EXPECT_EQ(pasos, 2);
    relleno.Completar();
    EXPECT_EQ(pasos, 2);
}

TEST_F(RellenoRejillaTest, WhatIsForgottenNeverComes) {
    PorPasos();
    relleno.Empezar(3000);
    relleno.Olvidar();
    EXPECT_FALSE(relleno.Seguir());
    relleno.Completar();
    EsperaFilas(500);
}

TEST_F(RellenoRejillaTest, AStepGivesOneNotice) {
    PorPasos();
    int avisos = 0;
    relleno.Empezar(100000);
    rejilla.AlCambiar([&](const Rejilla::Cambio&) { ++avisos; });
    relleno.Seguir();
    EXPECT_EQ(avisos, 1);
}

} // namespace
} // namespace zv::test
