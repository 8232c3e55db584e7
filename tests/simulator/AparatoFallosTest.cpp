// What each fault of the device does to an operation.
#include "Banco.h"
#include "platform/StringLiterals.h"

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

TEST(FalloError, EndsTheChargeBeforeItTakesAnything) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 1250), u"cobro:error=5"_s);
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().codigo, 5);
    EXPECT_EQ(b.Fin().mensaje, u"Fallo del equipo"_s);
    EXPECT_EQ(b.Fin().entrado, 0);
}

TEST(FalloParcial, EndsTheChargeAfterItsFirstPieceAndKeepsIt) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cobro, 1250), u"cobro:parcial=40"_s);
    b.Meter({1000});
    EXPECT_EQ(b.Fin().codigo, 40);
    EXPECT_EQ(b.Fin().entrado, 1000);
    EXPECT_EQ(b.Fin().salido, 0);
    EXPECT_EQ(b.Saldo(), antes + 1000);
    EXPECT_TRUE(b.durables);
}

TEST(FalloParcial, GivesHalfOfAPayment) {
    Banco b;
    b.Empezar(Pedir(Metodo::Pago, 1500), u"pago:parcial=40"_s, Punto::Pago);
    EXPECT_EQ(b.Fin().codigo, 40);
    EXPECT_EQ(b.Fin().salido, 500);
}

TEST(FalloAtasco, LeavesPartOfTheChangeInside) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 500), u"cobro:atasco"_s);
    b.Meter({2000}); // 1000 and 500 are due
    EXPECT_EQ(b.Fin().codigo, kAtasco);
    EXPECT_EQ(b.Fin().entrado, 2000);
    EXPECT_EQ(b.Fin().salido, 500);
}

TEST(FalloAtasco, FailsAChargePaidExactlyWithTheMoneyInside) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 500), u"cobro:atasco"_s);
    b.Meter({500});
    EXPECT_EQ(b.Fin().codigo, kAtasco);
    EXPECT_EQ(b.Fin().entrado, 500);
    EXPECT_EQ(b.Fin().salido, 0);
}

TEST(FalloAtasco, LeavesPartOfWhatACancelWouldGiveBack) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 500), u"cobro:atasco"_s);
    b.Meter({100, 100});
    b.aparato.Cancelar(u"op"_s);
    b.Correr();
    EXPECT_EQ(b.Fin().codigo, kAtasco);
    EXPECT_EQ(b.Fin().salido, 100);
}

TEST(FalloAtasco, FailsTheFloatWithTheMoneyInside) {
    Banco b;
    b.Empezar(Pedir(Metodo::Ingreso), u"ingreso:atasco"_s, Punto::Ingreso);
    b.Meter({500});
    b.aparato.Terminar();
    b.Correr();
    EXPECT_EQ(b.Fin().codigo, kAtasco);
    EXPECT_EQ(b.Fin().entrado, 500);
}

TEST(FalloAtasco, MovesHalfOfAClose) {
    Inventario hay = Inventario::Inicial();
    hay.reciclador.at(*Indice(200)) = 40;
    Banco b(EstadoCon(hay));
    b.Empezar(Pedir(Metodo::Cajones, 7), u"cierre:atasco"_s, Punto::Cierre);
    EXPECT_EQ(b.Fin().codigo, kAtasco);
    EXPECT_EQ(b.Fin().monedasCajon, 5 * 200);
    EXPECT_EQ(b.EnCajon(200), 5);
}

TEST(FalloAtasco, EmptiesNoBoxAndReconcilesNothing) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(200)) = 4;
    Banco b(EstadoCon(hay));
    b.aparato.RetirarAMano(Cajon::Monedas);
    b.Empezar(Pedir(Metodo::Vaciado, 0), u"vaciado:atasco"_s, Punto::Vaciado);
    EXPECT_EQ(b.Fin().codigo, kAtasco);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Cajones, 0, 0, u"op2"_s), u"cuadre:parcial=9"_s, Punto::Cuadre);
    EXPECT_EQ(b.Fin().codigo, 9);
    EXPECT_EQ(b.Saldo(), hay.Saldo());
}

TEST(FalloCancelar, GivesTheFirstPieceBack) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cobro, 500), u"cobro:cancelar"_s);
    b.Meter({500});
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().codigo, 0);
    EXPECT_EQ(b.Fin().entrado, 500);
    EXPECT_EQ(b.Fin().salido, 500);
    EXPECT_EQ(b.Saldo(), antes);
}

TEST(FalloCancelar, EndsAPaymentBeforeItBegins) {
    Banco b;
    b.Empezar(Pedir(Metodo::Pago, 500), u"pago:cancelar"_s, Punto::Pago);
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().codigo, 0);
    EXPECT_EQ(b.Fin().salido, 0);
}

TEST(FalloRetirar, LetsTheReconcilingRunFindTheBoxesTaken) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(200)) = 4;
    hay.cajon.at(*Indice(10000)) = 1;
    for (const auto& [cajon, monedas, billetes] :
         {std::tuple{"monedas", 800, 0}, {"billetes", 0, 10000}, {"todo", 800, 10000}}) {
        Banco b(EstadoCon(hay));
        b.Empezar(Pedir(Metodo::Cajones, 0), u"cuadre:retirar="_s + QLatin1String(cajon),
                  Punto::Cuadre);
        EXPECT_TRUE(b.Fin().ok);
        EXPECT_EQ(b.Fin().monedasCajon, monedas);
        EXPECT_EQ(b.Fin().billetesCajon, billetes);
        EXPECT_EQ(b.Saldo(), hay.Saldo() - monedas - billetes);
    }
}

TEST(Fallos, StrikeOneOperationOnly) {
    Banco b;
    b.Empezar(Pedir(Metodo::Pago, 500), u"pago:error=5"_s, Punto::Pago);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Pago, 500, 0, u"op2"_s));
    EXPECT_TRUE(b.Fin().ok);
}

} // namespace
} // namespace zv::simulador
