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

Cliente Leido(const char* guion) {
    QString error;
    const auto cliente = Cliente::Leer(QString::fromUtf8(guion), error);
    EXPECT_TRUE(cliente) << error.toStdString();
    return cliente.value_or(Cliente());
}

QString ErrorDe(const char* guion) {
    QString error;
    EXPECT_FALSE(Cliente::Leer(QString::fromUtf8(guion), error)) << guion;
    return error;
}

// How the operation ends with that customer, "ok in out code", and by how much the money changes.
QString Fin(const char* guion, const Operacion& op) {
    Banco b;
    const qint64 antes = b.Saldo();
    Motor motor(b.aparato, Leido(guion), 0);
    b.aparato.Empezar(op, {});
    Agotar(motor);
    if (b.fines.empty()) {
        return u"espera %1"_s.arg(b.aparato.Abierta()->entrado);
    }
    return u"%1 %2 %3 %4, %5"_s.arg(b.Fin().ok ? u"ok"_s : u"no"_s)
        .arg(b.Fin().entrado)
        .arg(b.Fin().salido)
        .arg(b.Fin().codigo)
        .arg(b.Saldo() - antes);
}

TEST(ClienteConOrdenes, DoesWhatHeIsToldInAnOperationOfThatKind) {
    EXPECT_EQ(Fin("manual,cambio=1000", Pedir(Metodo::Cambio)), u"ok 1000 1000 0, 0"_s);
    EXPECT_EQ(Fin("manual,cambio=1000+500+terminar", Pedir(Metodo::Cambio)),
              u"ok 1500 1500 0, 0"_s);
    EXPECT_EQ(Fin("manual,cambio=terminar", Pedir(Metodo::Cambio)), u"ok 0 0 0, 0"_s);
    EXPECT_EQ(Fin("manual,cambio=cancelar", Pedir(Metodo::Cambio)), u"no 0 0 0, 0"_s);
    EXPECT_EQ(Fin("manual,cambio=1000+cancelar", Pedir(Metodo::Cambio)), u"no 1000 1000 0, 0"_s);
    EXPECT_EQ(Fin("exacto,cambio=1000+esperar", Pedir(Metodo::Cambio)), u"espera 1000"_s);
    EXPECT_EQ(Fin("manual,ingreso=500+200", Pedir(Metodo::Ingreso)), u"ok 700 0 0, 700"_s);
    EXPECT_EQ(Fin("manual,ingreso=500+cancelar", Pedir(Metodo::Ingreso)), u"no 500 500 0, 0"_s);
    EXPECT_EQ(Fin("manual,cobro=1000", Pedir(Metodo::Cobro, 1250)), u"espera 1000"_s);
    EXPECT_EQ(Fin("manual,cobro=1000+500", Pedir(Metodo::Cobro, 1250)), u"ok 1500 250 0, 1250"_s);
    EXPECT_EQ(Fin("manual,cobro=1000+cancelar", Pedir(Metodo::Cobro, 1250)),
              u"no 1000 1000 0, 0"_s);
}

TEST(ClienteConOrdenes, KeepsHisHabitsWhereHeIsToldNothing) {
    EXPECT_EQ(Fin("exacto,cambio=cancelar", Pedir(Metodo::Ingreso)), u"ok 2100 0 0, 2100"_s);
    EXPECT_EQ(Fin("redondeo,cambio#2=cancelar", Pedir(Metodo::Cambio)), u"ok 5000 5000 0, 0"_s);
    EXPECT_EQ(Leido("redondeo,cambio=cancelar").Habito(), Guion::Redondeo);
}

TEST(ClienteConOrdenes, CountsTheOperationsOfEachKind) {
    Banco b;
    Motor motor(b.aparato, Leido("manual,ingreso=100,ingreso#2=cancelar,ingreso#3=200"), 0);
    QStringList fines;
    for (int n = 1; n <= 4; ++n) {
        b.aparato.Empezar(Pedir(Metodo::Ingreso, 0, 0, u"i%1"_s.arg(n)), {});
        Agotar(motor);
        fines << u"%1 %2"_s.arg(b.Fin().ok).arg(b.Fin().entrado);
        b.aparato.Acusar(u"i%1"_s.arg(n));
        // Others in between do not count.
        b.aparato.Empezar(Pedir(Metodo::Pago, 100, 0, u"p%1"_s.arg(n)), {});
        Agotar(motor);
        b.aparato.Acusar(u"p%1"_s.arg(n));
    }
    EXPECT_EQ(fines, (QStringList{u"1 100"_s, u"0 0"_s, u"1 200"_s, u"1 100"_s}));
}

TEST(ClienteConOrdenes, AreToldInPlainWordsWhenTheyAreWrong) {
    EXPECT_EQ(ErrorDe("rico"), u"empieza por exacto, redondeo o manual"_s);
    EXPECT_EQ(ErrorDe("cambio=100"), u"empieza por exacto, redondeo o manual"_s);
    EXPECT_EQ(ErrorDe("exacto,cambio"), u"\"cambio\": la forma es operación[#n]=gesto+gesto…"_s);
    EXPECT_EQ(ErrorDe("exacto,cambio#0=100"),
              u"\"cambio#0=100\": la forma es operación[#n]=gesto+gesto…"_s);
    EXPECT_EQ(ErrorDe("exacto,pago=cancelar"),
              u"\"pago=cancelar\": un cliente sólo sabe de cobro, cambio e ingreso"_s);
    EXPECT_EQ(ErrorDe("exacto,cambio=300"),
              u"\"cambio=300\": no hay ninguna pieza de 300 céntimos"_s);
    EXPECT_EQ(ErrorDe("exacto,cobro=100+terminar"),
              u"\"cobro=100+terminar\": \"terminar\" no es ningún gesto de esta operación"_s);
    EXPECT_EQ(ErrorDe("exacto,cambio=cancelar+100"),
              u"\"cambio=cancelar+100\": \"100\" está detrás del final"_s);
    EXPECT_EQ(ErrorDe("exacto,cambio=100+"),
              u"\"cambio=100+\": \"\" no es ningún gesto de esta operación"_s);
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
