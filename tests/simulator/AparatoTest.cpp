// The operations of the device, from start to end, without faults.
#include "Banco.h"
#include "platform/StringLiterals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

using testing::ElementsAre;

Inventario SoloCon(std::initializer_list<std::pair<qint32, int>> piezas) {
    Inventario hay;
    for (const auto& [valor, cuantas] : piezas) {
        hay.reciclador.at(*Indice(valor)) = cuantas;
    }
    return hay;
}

TEST(Cobro, PaidExactlyEndsWithTheLastPiece) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cobro, 1250));
    b.Meter({1000, 200, 50});
    ASSERT_EQ(b.fines.size(), 1U);
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 1250);
    EXPECT_EQ(b.Fin().salido, 0);
    EXPECT_EQ(b.Saldo(), antes + 1250);
    EXPECT_EQ(b.progresos.size(), 3U);
    EXPECT_TRUE(b.durables);
}

TEST(Cobro, GivesChange) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cobro, 1250));
    b.Meter({2000});
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 2000);
    EXPECT_EQ(b.Fin().salido, 750);
    EXPECT_EQ(b.Saldo(), antes + 1250);
    EXPECT_EQ(b.progresos.back().salido, 750);
    EXPECT_FALSE(b.progresos.back().acabada);
    EXPECT_TRUE(b.durables);
}

TEST(Cobro, CountsThePieceThatCameInAmongTheChangeItMayGive) {
    Banco b(EstadoCon(SoloCon({{500, 1}})));
    b.Empezar(Pedir(Metodo::Cobro, 500));
    b.Meter({1000});
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.EnReciclador(500), 0);
    EXPECT_EQ(b.EnReciclador(1000), 1);
}

TEST(Cobro, WithoutExactChangeGivesTheMoneyBackAndFailsWith27) {
    Banco b(EstadoCon(SoloCon({{500, 1}})));
    b.Empezar(Pedir(Metodo::Cobro, 1250));
    b.Meter({1000, 500});
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().codigo, kCobroSinCambio);
    EXPECT_EQ(b.Fin().mensaje, u"No hay cambio para el cobro"_s);
    EXPECT_EQ(b.Fin().entrado, 1500);
    EXPECT_EQ(b.Fin().salido, 1500);
    EXPECT_EQ(b.Saldo(), 500);
}

TEST(Cobro, OfZeroEndsAtOnce) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 0));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 0);
}

TEST(Cobro, NegativePaysOut) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cobro, -1234));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 0);
    EXPECT_EQ(b.Fin().salido, 1234);
    EXPECT_EQ(b.Saldo(), antes - 1234);
}

TEST(Cobro, NegativeWithoutThePiecesFailsWith4) {
    Banco b(EstadoCon(SoloCon({{500, 1}})));
    b.Empezar(Pedir(Metodo::Cobro, -300));
    EXPECT_EQ(b.Fin().codigo, kSinCambioExacto);
    EXPECT_EQ(b.Fin().salido, 0);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Cobro, std::numeric_limits<qint32>::min()));
    EXPECT_EQ(b.Fin().codigo, kSinCambioExacto);
}

TEST(Cobro, CancelledGivesBackWhatWasPutInPieceByPiece) {
    Banco b;
    const Inventario antes = b.aparato.Ver().inventario;
    b.Empezar(Pedir(Metodo::Cobro, 30000));
    b.Meter({20000, 100, 2000});
    b.aparato.Cancelar(u"op"_s);
    EXPECT_TRUE(b.fines.empty()); // the end comes in a later step
    b.Correr();
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().codigo, 0);
    EXPECT_EQ(b.Fin().mensaje, u"Cancelado"_s);
    EXPECT_EQ(b.Fin().entrado, 22100);
    EXPECT_EQ(b.Fin().salido, 22100);
    EXPECT_EQ(b.aparato.Ver().inventario.reciclador, antes.reciclador);
    EXPECT_EQ(b.aparato.Ver().inventario.cajon, antes.cajon);
}

TEST(Cobro, CancelledBeforeAnythingWentInMovesNothing) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 500));
    b.aparato.Cancelar(u"op"_s);
    b.Correr();
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().codigo, 0);
    EXPECT_EQ(b.Fin().salido, 0);
    EXPECT_TRUE(b.progresos.empty());
}

TEST(Cobro, CancelIsTooLateOnceTheChangeComesOut) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 1250));
    b.aparato.Meter(2000);
    b.aparato.Cancelar(u"op"_s);
    b.Correr();
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().salido, 750);
}

TEST(Cobro, CancelOfAnotherOperationChangesNothing) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 500));
    b.aparato.Cancelar(u"otra"_s);
    b.Correr();
    EXPECT_TRUE(b.aparato.Admite());
}

TEST(Cobro, WithAFullUnitOverflowsToTheBox) {
    Inventario hay;
    hay.reciclador.at(*Indice(200)) = kDenominaciones.at(*Indice(200)).objetivo;
    Banco b(EstadoCon(hay));
    b.Empezar(Pedir(Metodo::Cobro, 200));
    b.Meter({200});
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.EnCajon(200), 1);
}

TEST(Cobro, WithoutRoomReturnsThePieceAndGivesUpWith31) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(500)) = 1;
    Banco b(EstadoCon(hay), {10, 1});
    b.Empezar(Pedir(Metodo::Cobro, 15000));
    b.Meter({100});
    EXPECT_FALSE(b.aparato.Meter(10000));
    EXPECT_TRUE(b.sucesos.contains(u"rechaza 10000"_s));
    EXPECT_TRUE(b.aparato.Admite()); // other pieces would still do
    b.aparato.Rendirse();
    b.Correr();
    EXPECT_EQ(b.Fin().codigo, kCajonLleno);
    EXPECT_EQ(b.Fin().salido, 100);
}

TEST(Aparato, TakesNoPieceWithoutAnOperationAndNoPieceThatDoesNotExist) {
    Banco b;
    const qint64 antes = b.Saldo();
    EXPECT_FALSE(b.aparato.Meter(100));
    b.Empezar(Pedir(Metodo::Cobro, 500));
    EXPECT_FALSE(b.aparato.Meter(300));
    EXPECT_EQ(b.Saldo(), antes);
}

TEST(Pago, ComesOutOfTheRecycler) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Pago, 3333));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().salido, 3333);
    EXPECT_EQ(b.Saldo(), antes - 3333);
}

TEST(Pago, NeverTakesFromTheBoxes) {
    Inventario hay;
    hay.cajon.at(*Indice(500)) = 5;
    Banco b(EstadoCon(hay));
    b.Empezar(Pedir(Metodo::Pago, 500));
    EXPECT_EQ(b.Fin().codigo, kSinCambioExacto);
    EXPECT_EQ(b.Fin().mensaje, u"No hay piezas para el importe exacto"_s);
    EXPECT_EQ(b.Saldo(), 2500);
}

TEST(Cambio, GivesOtherDenominationsThanThoseThatCameIn) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cambio));
    b.Meter({1000, 1000});
    const int deDiez = b.EnReciclador(1000);
    b.aparato.Terminar();
    b.Correr();
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 2000);
    EXPECT_EQ(b.Fin().salido, 2000);
    EXPECT_EQ(b.EnReciclador(1000), deDiez);
}

TEST(Cambio, ThatIsImpossibleGivesTheMoneyBackAndFailsWith4) {
    Banco b(EstadoCon(SoloCon({{1000, 3}})));
    b.Empezar(Pedir(Metodo::Cambio));
    b.Meter({1000});
    b.aparato.Terminar();
    b.Correr();
    EXPECT_EQ(b.Fin().codigo, kSinCambioExacto);
    EXPECT_EQ(b.Fin().salido, 1000);
    EXPECT_EQ(b.Saldo(), 3000);
}

TEST(Cambio, EndedWithNothingInIsASuccessOfNothing) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cambio));
    b.aparato.Terminar();
    b.Correr();
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 0);
}

TEST(Termino, AskedForEndsAChangeInItsNextSteps) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cambio));
    b.Meter({1000});
    b.aparato.PedirTermino(u"op"_s);
    EXPECT_TRUE(b.fines.empty());
    EXPECT_TRUE(b.aparato.TienePaso());
    EXPECT_FALSE(b.aparato.Meter(1000)); // that was all
    b.Correr();
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 1000);
    EXPECT_EQ(b.Fin().salido, 1000);
    EXPECT_EQ(b.Saldo(), antes);
    b.aparato.PedirTermino(u"op"_s); // changes nothing any more
    EXPECT_FALSE(b.aparato.TienePaso());
    EXPECT_EQ(b.fines.size(), 1U);
}

TEST(Termino, AskedForBeforeTheFirstStepEndsWithNothing) {
    Banco b;
    b.aparato.Empezar(Pedir(Metodo::Ingreso), {});
    b.aparato.PedirTermino(u"op"_s);
    b.Correr();
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 0);
}

TEST(Termino, OfAnOperationThatFailsAtOnceDoesNotEndTheNext) {
    Banco b;
    Fallos fallos;
    QString error;
    ASSERT_TRUE(fallos.Añadir(u"ingreso:error=12"_s, error));
    b.aparato.Empezar(Pedir(Metodo::Ingreso), fallos.Toca(Punto::Ingreso));
    b.aparato.PedirTermino(u"op"_s);
    b.Correr();
    EXPECT_EQ(b.Fin().codigo, 12);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Ingreso, 0, 0, u"op2"_s));
    EXPECT_TRUE(b.aparato.Admite());
}

TEST(Termino, IsNothingToAnotherOperationToAChargeAndToMoneyOnItsWayOut) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cambio));
    b.aparato.PedirTermino(u"otra"_s);
    EXPECT_TRUE(b.aparato.Admite());
    b.aparato.Meter(1000);
    b.aparato.Cancelar(u"op"_s);
    b.aparato.PedirTermino(u"op"_s);
    b.Correr();
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().codigo, 0);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Cobro, 500, 0, u"op2"_s));
    b.aparato.PedirTermino(u"op2"_s);
    EXPECT_TRUE(b.aparato.Admite());
}

TEST(Termino, GivesWayToACancelThatComesBeforeTheNextStep) {
    Banco b;
    const Inventario antes = b.aparato.Ver().inventario;
    b.Empezar(Pedir(Metodo::Cambio));
    b.aparato.Meter(1000);
    b.aparato.PedirTermino(u"op"_s);
    b.aparato.Cancelar(u"op"_s);
    b.Correr();
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.aparato.Ver().inventario.reciclador, antes.reciclador); // the same piece
}

TEST(Ingreso, KeepsWhatCameInBeyondTheTargets) {
    Inventario hay = Inventario::Inicial();
    const auto indice = *Indice(100);
    hay.reciclador.at(indice) = kDenominaciones.at(indice).objetivo;
    Banco b(EstadoCon(hay));
    b.Empezar(Pedir(Metodo::Ingreso));
    b.Meter({100, 100});
    EXPECT_TRUE(b.fines.empty());
    b.aparato.Terminar();
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 200);
    EXPECT_EQ(b.EnReciclador(100), kDenominaciones.at(indice).objetivo + 2);
}

TEST(Ingreso, CancelledGivesTheMoneyBack) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Ingreso));
    b.Meter({5000});
    b.aparato.Cancelar(u"op"_s);
    b.Correr();
    EXPECT_FALSE(b.Fin().ok);
    EXPECT_EQ(b.Fin().entrado, 5000);
    EXPECT_EQ(b.Fin().salido, 5000);
    EXPECT_EQ(b.Saldo(), antes);
}

TEST(Cierre, ByLevelsLeavesTheOptimalLevels) {
    Inventario hay = Inventario::Inicial();
    hay.reciclador.at(*Indice(200)) = 70;
    hay.reciclador.at(*Indice(5000)) = 3;
    Banco b(EstadoCon(hay));
    b.Empezar(Pedir(Metodo::Cajones, 7));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.EnReciclador(200), 30);
    EXPECT_EQ(b.EnReciclador(5000), 0);
    EXPECT_EQ(b.Fin().monedasCajon, 40 * 200);
    EXPECT_EQ(b.Fin().billetesCajon, 3 * 5000);
    EXPECT_EQ(b.Fin().resta, Total(b.aparato.Ver().inventario.reciclador));
    EXPECT_EQ(b.Fin().salido, 0);
    EXPECT_EQ(b.Saldo(), hay.Saldo());
}

TEST(Cierre, ByLevelsWithNothingAboveThemMovesNothing) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cajones, 7));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().monedasCajon + b.Fin().billetesCajon, 0);
    EXPECT_EQ(b.Fin().resta, b.Saldo());
}

TEST(Cierre, ByValueLeavesThatValue) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cajones, 15, 10000));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().resta, 10000);
    EXPECT_EQ(Total(b.aparato.Ver().inventario.reciclador), 10000);
    EXPECT_EQ(b.Fin().monedasCajon + b.Fin().billetesCajon, antes - 10000);
}

TEST(Cierre, ByAValueThatThePiecesCannotMakeLeavesTheNextLargerOne) {
    Banco b(EstadoCon(SoloCon({{500, 2}, {20, 1}})));
    b.Empezar(Pedir(Metodo::Cajones, 15, 490));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().resta, 500);
}

TEST(Cierre, ByAValueAboveTheRecyclersMovesNothing) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cajones, 15, 99'999'999));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().resta, b.Saldo());
}

TEST(Cierre, ByValueZeroEmptiesTheRecycler) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cajones, 15, 0));
    EXPECT_EQ(b.Fin().resta, 0);
    EXPECT_EQ(Total(b.aparato.Ver().inventario.cajon), antes);
}

TEST(Cierre, WithAFullBoxFailsWith31AndTellsWhatMoved) {
    Inventario hay;
    hay.reciclador.at(*Indice(200)) = 40;
    Banco b(EstadoCon(hay), {4, 4});
    b.Empezar(Pedir(Metodo::Cajones, 7));
    EXPECT_EQ(b.Fin().codigo, kCajonLleno);
    EXPECT_EQ(b.Fin().monedasCajon, 800);
    EXPECT_EQ(b.Fin().resta, 36 * 200);
}

TEST(Cuadre, WithNothingTouchedTellsNothing) {
    Banco b;
    const qint64 antes = b.Saldo();
    b.Empezar(Pedir(Metodo::Cajones, 0));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().monedasCajon + b.Fin().billetesCajon, 0);
    EXPECT_EQ(b.Fin().resta, antes);
    EXPECT_EQ(b.Saldo(), antes);
}

TEST(Cuadre, TellsWhatAHandTookOutOfTheBoxes) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(200)) = 4;
    hay.cajon.at(*Indice(10000)) = 1;
    Banco b(EstadoCon(hay));
    b.aparato.RetirarAMano(Cajon::Billetes);
    EXPECT_EQ(b.Saldo(), hay.Saldo()); // the device does not know yet
    b.Empezar(Pedir(Metodo::Cajones, 0));
    EXPECT_EQ(b.Fin().monedasCajon, 0);
    EXPECT_EQ(b.Fin().billetesCajon, 10000);
    EXPECT_EQ(b.Saldo(), hay.Saldo() - 10000);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Cajones, 0, 0, u"op2"_s));
    EXPECT_EQ(b.Fin().billetesCajon, 0); // told once
}

TEST(Cuadre, CountsOnlyThePiecesOfTheTakenBox) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(20000)) = 1;
    Banco b(EstadoCon(hay));
    b.aparato.RetirarAMano(Cajon::Billetes);
    b.Empezar(Pedir(Metodo::Cobro, 10000));
    b.Meter({10000}); // into the box that hangs there now
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Cajones, 0, 0, u"op2"_s));
    EXPECT_EQ(b.Fin().billetesCajon, 20000);
    EXPECT_EQ(b.EnCajon(10000), 1);
}

TEST(Cuadre, MendsAWrongCount) {
    Banco b;
    b.aparato.Descuadrar(-7);
    EXPECT_EQ(b.aparato.Niveles(2).front(), 13);
    EXPECT_EQ(b.EnReciclador(1), 20);
    b.Empezar(Pedir(Metodo::Cajones, 0));
    EXPECT_EQ(b.aparato.Niveles(2).front(), 20);
}

TEST(Vaciado, EmptiesOneBoxAndTellsItsValue) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(200)) = 4;
    hay.cajon.at(*Indice(10000)) = 1;
    Banco b(EstadoCon(hay));
    b.Empezar(Pedir(Metodo::Vaciado, 0));
    EXPECT_TRUE(b.Fin().ok);
    EXPECT_EQ(b.Fin().vaciado, 800);
    EXPECT_EQ(Total(b.aparato.Ver().inventario.cajon), 10000);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Vaciado, 1, 0, u"op2"_s));
    EXPECT_EQ(b.Fin().vaciado, 10000);
}

TEST(Vaciado, OfABoxTakenByHandLeavesNothingToReconcile) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(*Indice(200)) = 4;
    Banco b(EstadoCon(hay));
    b.aparato.RetirarAMano(Cajon::Monedas);
    b.Empezar(Pedir(Metodo::Vaciado, 0));
    EXPECT_EQ(b.Fin().vaciado, 800);
    b.aparato.Acusar(u"op"_s);
    b.Empezar(Pedir(Metodo::Cajones, 0, 0, u"op2"_s));
    EXPECT_EQ(b.Fin().monedasCajon, 0);
    EXPECT_EQ(b.EnCajon(200), 0);
}

TEST(Aparato, RefusesASecondOperationUntilTheFirstIsAcknowledged) {
    Banco b;
    b.Empezar(Pedir(Metodo::Pago, 100));
    EXPECT_FALSE(b.aparato.Empezar(Pedir(Metodo::Pago, 100, 0, u"op2"_s), {}));
    b.aparato.Acusar(u"op"_s);
    EXPECT_EQ(b.aparato.Abierta(), nullptr);
    EXPECT_TRUE(b.aparato.Empezar(Pedir(Metodo::Pago, 100, 0, u"op2"_s), {}));
}

TEST(Aparato, DoesNotForgetAnOperationThatRuns) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 100));
    b.aparato.Acusar(u"op"_s);
    EXPECT_TRUE(b.aparato.EnMarcha());
}

TEST(Aparato, RemembersTheLastAcknowledgedOperations) {
    Banco b;
    for (int n = 0; n < 20; ++n) {
        const QString opId = QString::number(n);
        b.Empezar(Pedir(Metodo::Pago, 1, 0, opId));
        b.aparato.Acusar(opId);
    }
    EXPECT_TRUE(b.aparato.Conocida(u"19"_s));
    EXPECT_TRUE(b.aparato.Conocida(u"4"_s));
    EXPECT_FALSE(b.aparato.Conocida(u"3"_s));
}

TEST(Aparato, CommitsOncePerPiece) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 30));
    const int antes = b.almacen.guardados;
    b.Meter({10, 10, 10});
    EXPECT_EQ(b.almacen.guardados, antes + 3); // the end shares the last piece's
}

TEST(Aparato, ThatWasKilledInAnOperationComesBackWithItEnded) {
    Banco vivo;
    vivo.Empezar(Pedir(Metodo::Cobro, 1250));
    vivo.Meter({1000});
    Banco vuelto(vivo.almacen.ultimo);
    QString error;
    ASSERT_TRUE(vuelto.aparato.Recuperar(error));
    const Operacion* const op = vuelto.aparato.Abierta();
    ASSERT_NE(op, nullptr);
    EXPECT_TRUE(op->acabada);
    EXPECT_FALSE(op->ok);
    EXPECT_EQ(op->codigo, kReinicio);
    EXPECT_EQ(op->entrado, 1000);
    EXPECT_EQ(op->salido, 0);
    EXPECT_TRUE(vuelto.almacen.ultimo.abierta->acabada);
}

TEST(Aparato, StopsWithoutATellingWhenTheStoreFails) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 1250));
    b.almacen.fallaDesde = b.almacen.guardados;
    const qint64 antes = b.Saldo();
    EXPECT_FALSE(b.aparato.Meter(1000));
    EXPECT_EQ(b.Saldo(), antes);
    EXPECT_TRUE(b.progresos.empty());
    EXPECT_EQ(b.roturas, QStringList{u"disco lleno"_s});
    EXPECT_FALSE(b.aparato.Meter(1000)); // and for good
    EXPECT_EQ(b.roturas.size(), 1);
}

TEST(Aparato, WritesItsTrace) {
    Banco b;
    b.Empezar(Pedir(Metodo::Cobro, 1250));
    b.Meter({2000});
    b.aparato.Acusar(u"op"_s);
    ASSERT_EQ(b.sucesos.size(), 6);
    EXPECT_TRUE(b.sucesos.at(0).startsWith(u"inicio charge.start 1250 "_s));
    EXPECT_EQ(b.sucesos.at(1), u"entra 2000"_s);
    EXPECT_EQ(b.sucesos.at(2), u"sale 250"_s);
    EXPECT_EQ(b.sucesos.at(3), u"sale 500"_s);
    EXPECT_EQ(b.sucesos.at(4), u"fin ok 2000 750"_s);
    EXPECT_EQ(b.sucesos.at(5), u"acuse op"_s);
}

TEST(Aparato, ShowsTheLevelsOfEachKind) {
    Inventario hay = Inventario::Inicial();
    hay.reciclador.at(*Indice(500)) = 3;
    hay.cajon.at(*Indice(20000)) = 2;
    Banco b(EstadoCon(hay));
    EXPECT_EQ(b.aparato.Niveles(2), hay.reciclador);
    EXPECT_EQ(b.aparato.Niveles(3), hay.cajon);
    EXPECT_THAT(b.aparato.Niveles(4), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0));
}

} // namespace
} // namespace zv::simulador
