// The scripted customers, and the motor that lets them act.
#include "Banco.h"
#include "platform/StringLiterals.h"
#include "simulator/Motor.h"

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

Operacion Cobrando(qint32 valor, qint32 entrado) {
    Operacion op = Pedir(Metodo::Cobro, valor);
    op.entrado = entrado;
    return op;
}

// Beats until nobody has anything to do; answers how many it took.
int Agotar(Motor& motor) {
    int pulsos = 0;
    while (motor.Pulso() && pulsos < 1000) {
        ++pulsos;
    }
    return pulsos;
}

TEST(ClienteExacto, PaysTheLargestPieceThatStillFits) {
    EXPECT_EQ(Siguiente(Guion::Exacto, Cobrando(1250, 0), 0).valor, 1000);
    EXPECT_EQ(Siguiente(Guion::Exacto, Cobrando(1250, 1000), 1).valor, 200);
    EXPECT_EQ(Siguiente(Guion::Exacto, Cobrando(1250, 1200), 2).valor, 50);
    EXPECT_EQ(Siguiente(Guion::Exacto, Cobrando(25000, 0), 0).valor, 20000);
    EXPECT_EQ(Siguiente(Guion::Exacto, Cobrando(1250, 1250), 3).tipo, Gesto::Tipo::Nada);
}

TEST(ClienteRedondeo, PaysWithNotesThatReachTheAmount) {
    EXPECT_EQ(Siguiente(Guion::Redondeo, Cobrando(1, 0), 0).valor, 500);
    EXPECT_EQ(Siguiente(Guion::Redondeo, Cobrando(1250, 0), 0).valor, 2000);
    EXPECT_EQ(Siguiente(Guion::Redondeo, Cobrando(7000, 0), 0).valor, 5000);
    EXPECT_EQ(Siguiente(Guion::Redondeo, Cobrando(7000, 5000), 1).valor, 2000);
}

TEST(ClienteManual, DoesNothing) {
    EXPECT_EQ(Siguiente(Guion::Manual, Cobrando(1250, 0), 0).tipo, Gesto::Tipo::Nada);
}

TEST(Cliente, IsKnownByItsName) {
    EXPECT_EQ(GuionDeNombre(u"redondeo"_s), Guion::Redondeo);
    EXPECT_FALSE(GuionDeNombre(u"generoso"_s));
}

TEST(Motor, BringsAChargeToItsEndWithTheExactCustomer) {
    Banco b;
    Motor motor(b.aparato, Guion::Exacto, 0);
    b.aparato.Empezar(Pedir(Metodo::Cobro, 1234), {});
    Agotar(motor);
    ASSERT_EQ(b.fines.size(), 1U);
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 1234);
    EXPECT_EQ(b.Fin().salido, 0);
}

TEST(Motor, BringsAChargeToItsEndWithTheRoundingCustomer) {
    Banco b;
    Motor motor(b.aparato, Guion::Redondeo, 0);
    b.aparato.Empezar(Pedir(Metodo::Cobro, 1234), {});
    Agotar(motor);
    ASSERT_EQ(b.fines.size(), 1U);
    EXPECT_EQ(b.Fin().entrado, 2000);
    EXPECT_EQ(b.Fin().salido, 766);
}

TEST(Motor, ChangesANoteAndAddsFloat) {
    for (const auto& [guion, cambiado, ingresado] :
         {std::tuple{Guion::Exacto, 1000, 2100}, {Guion::Redondeo, 5000, 3000}}) {
        Banco b;
        Motor motor(b.aparato, guion, 0);
        b.aparato.Empezar(Pedir(Metodo::Cambio), {});
        Agotar(motor);
        EXPECT_TRUE(b.Fin().ok);
        EXPECT_EQ(b.Fin().entrado, cambiado);
        EXPECT_EQ(b.Fin().salido, cambiado);
        b.aparato.Acusar(u"op"_s);
        b.aparato.Empezar(Pedir(Metodo::Ingreso, 0, 0, u"op2"_s), {});
        Agotar(motor);
        EXPECT_TRUE(b.Fin().ok);
        EXPECT_EQ(b.Fin().entrado, ingresado);
    }
}

TEST(Motor, GivesUpWhenThePieceOfTheScriptHasNoRoom) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(500)) = 1;
    Banco b(EstadoCon(hay), {10, 1});
    Motor motor(b.aparato, Guion::Exacto, 0);
    b.aparato.Empezar(Pedir(Metodo::Cobro, 10100), {});
    Agotar(motor);
    ASSERT_EQ(b.fines.size(), 1U);
    EXPECT_EQ(b.Fin().codigo, kCajonLleno);
}

TEST(Motor, LeavesAManualChargeWaiting) {
    Banco b;
    Motor motor(b.aparato, Guion::Manual, 0);
    b.aparato.Empezar(Pedir(Metodo::Cobro, 100), {});
    EXPECT_EQ(Agotar(motor), 1); // the start of the operation alone
    EXPECT_TRUE(b.aparato.Admite());
}

} // namespace
} // namespace zv::simulador
