#include "device/Saldos.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/ImprimeQt.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv {
namespace {

constexpr auto kTodos = {TipoSaldo::Todo,
                         TipoSaldo::Reciclador,
                         TipoSaldo::RecicladorMonedas,
                         TipoSaldo::RecicladorBilletes,
                         TipoSaldo::Cajones,
                         TipoSaldo::CajonesMonedas,
                         TipoSaldo::CajonesBilletes};
const QString kInicioCaja = u"Error al recuperar el saldo del Zorvex: "_s;

class SaldosTest : public testing::Test {
  protected:
    Currency Saldo(TipoSaldo tipo) { return saldos.SaldoPorTipo({}, tipo); }
    void PonerNiveles(qint32 levelType, const char* noms, const char* levels) {
        cliente.PonerNiveles(levelType, QString::fromLatin1(noms), QString::fromLatin1(levels));
    }

    QTemporaryDir carpeta;
    DeviceGuion cliente;
    test::DialogosGuion dialogos;
    Textos textos{carpeta.path()};
    bool conectado = true;
    Saldos saldos{cliente, [this] { return conectado; }, dialogos, textos};
};

TEST_F(SaldosTest, AnswersEachKindOfBalance) {
    PonerNiveles(2, "50,200,500,2000", "3,2,4,1");
    PonerNiveles(3, "50,200,500,2000", "1,0,2,10");
    const qint32 esperado[] = {4550 + 21050, 4550, 550, 4000, 21050, 50, 21000};
    for (const TipoSaldo tipo : kTodos) {
        const auto numero = static_cast<int>(tipo);
        EXPECT_EQ(Saldo(tipo), Currency(esperado[numero])) << numero;
    }
}

TEST_F(SaldosTest, AnswersZeroToAKindThatThereIsNotAndAsksNothing) {
    EXPECT_EQ(Saldo(TipoSaldo{7}), Currency(0));
    EXPECT_EQ(Saldo(TipoSaldo{-1}), Currency(0));
}

TEST_F(SaldosTest, ReadsOnlyTheListsOfItsKindBoxesFirst) {
    const QString nada = u"0"_s;
    cliente.EsperaGetLevels(3, nada, nada);
    cliente.EsperaGetLevels(2, nada, nada);
    Saldo(TipoSaldo::Todo);
    for (const TipoSaldo tipo :
         {TipoSaldo::Reciclador, TipoSaldo::RecicladorMonedas, TipoSaldo::RecicladorBilletes}) {
        cliente.EsperaGetLevels(2, nada, nada);
        Saldo(tipo);
    }
    for (const TipoSaldo tipo :
         {TipoSaldo::Cajones, TipoSaldo::CajonesMonedas, TipoSaldo::CajonesBilletes}) {
        cliente.EsperaGetLevels(3, nada, nada);
        Saldo(tipo);
    }
    EXPECT_TRUE(cliente.Agotado());
}

TEST_F(SaldosTest, CountsTheDenominationOfTwoHundredAsACoin) {
    PonerNiveles(2, "200,201", "1,1");
    PonerNiveles(3, "200,201", "2,2");
    EXPECT_EQ(Saldo(TipoSaldo::RecicladorMonedas), Currency(200));
    EXPECT_EQ(Saldo(TipoSaldo::RecicladorBilletes), Currency(201));
    EXPECT_EQ(Saldo(TipoSaldo::CajonesMonedas), Currency(400));
    EXPECT_EQ(Saldo(TipoSaldo::CajonesBilletes), Currency(402));
}

TEST_F(SaldosTest, SkipsLevelsOfZeroAndBelow) {
    PonerNiveles(2, "roto,100,50", "0,-3,2");
    EXPECT_EQ(Saldo(TipoSaldo::Reciclador), Currency(100));
}

TEST_F(SaldosTest, KeepsThePiecesOfItsLastReadings) {
    PonerNiveles(2, "50,500", "3,-2");
    PonerNiveles(3, "x,500", "0,7"); // no denomination, and no piece of it
    Saldo(TipoSaldo::Reciclador);
    const std::vector<NivelPiezas> reciclador{{50, 3}, {500, 0}};
    EXPECT_EQ(saldos.UltimosNiveles().reciclador, reciclador);
    EXPECT_TRUE(saldos.UltimosNiveles().cajones.empty());
    Saldo(TipoSaldo::Cajones);
    EXPECT_EQ(saldos.UltimosNiveles().reciclador, reciclador);
    EXPECT_EQ(saldos.UltimosNiveles().cajones, (std::vector<NivelPiezas>{{500, 7}}));
    cliente.FallarNiveles(3, 0, {});
    Saldo(TipoSaldo::Todo);
    EXPECT_EQ(saldos.UltimosNiveles().reciclador, reciclador);
    EXPECT_TRUE(saldos.UltimosNiveles().cajones.empty());
    PonerNiveles(2, "50,500", "3,2,1");
    dialogos.EsperaCaja(testing::_);
    Saldo(TipoSaldo::Reciclador);
    EXPECT_TRUE(saldos.UltimosNiveles().reciclador.empty());
}

TEST_F(SaldosTest, AnswersZeroWithEmptyLists) {
    PonerNiveles(2, "", "");
    EXPECT_EQ(Saldo(TipoSaldo::Reciclador), Currency(0));
}

TEST_F(SaldosTest, AsksNothingOfADeviceThatIsNotConnected) {
    conectado = false;
    for (const TipoSaldo tipo : kTodos) {
        EXPECT_EQ(Saldo(tipo), Currency(0));
    }
    EXPECT_TRUE(cliente.Llamadas().isEmpty());
}

TEST_F(SaldosTest, ShowsLevelsThatMakeNoSenseAndAnswersZero) {
    PonerNiveles(3, "1", "77");
    for (const auto& [noms, levels] : {std::pair{"1,2", "5"}, std::pair{"1", "5,6"}}) {
        PonerNiveles(2, noms, levels);
        dialogos.EsperaCaja(kInicioCaja + u"9 - El subíndice está fuera del intervalo"_s);
        EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(0));
    }
    for (const auto& [noms, levels] :
         {std::pair{"1,2", "5,x"}, std::pair{"1,x", "5,6"}, std::pair{"1,2", "5,"}}) {
        PonerNiveles(2, noms, levels);
        dialogos.EsperaCaja(kInicioCaja + u"13 - No coinciden los tipos"_s);
        EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(0));
    }
    PonerNiveles(2, "9223372036854775807", "2");
    dialogos.EsperaCaja(kInicioCaja + u"6 - Desbordamiento"_s);
    EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(0));
}

TEST_F(SaldosTest, ShowsAReadThatRaises) {
    cliente.EsperaGetLevels(3, {}, {},
                            FinGuion::Ok().Durante([] { throw errores::Desbordamiento(); }));
    dialogos.EsperaCaja(kInicioCaja + u"6 - Desbordamiento"_s);
    EXPECT_EQ(Saldo(TipoSaldo::Cajones), Currency(0));
}

TEST_F(SaldosTest, GoesOnWithWhatItHasWhenAReadFails) {
    PonerNiveles(3, "500", "2");
    cliente.FallarNiveles(2, 8, u"Sensor"_s);
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Sensor"_s, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar);
    EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(1000));

    cliente.FallarNiveles(2, -1, {}); // any code but 0 is told, with no words too
    dialogos.EsperaMensaje(u"Operación anulada"_s, QString());
    EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(1000));

    // A failed read of the boxes says nothing, and neither does one without a code.
    cliente.FallarNiveles(3, 8, u"Sensor"_s);
    cliente.FallarNiveles(2, 0, {});
    EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(0));
    PonerNiveles(2, "1", "7");
    EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(7));
}

// ---- reading and telling apart

TEST_F(SaldosTest, ReadingShowsNothingAndKeepsTheWordsOfTheFailure) {
    PonerNiveles(3, "500", "2");
    cliente.FallarNiveles(2, 8, u"Sensor"_s);
    const LecturaSaldo lectura = saldos.Leer(TipoSaldo::Todo);
    EXPECT_EQ(lectura.valor, Currency(1000));
    EXPECT_TRUE(dialogos.Llamadas().isEmpty());

    cliente.PonerError(3, u"Otra cosa"_s); // what the device says later is not about this read
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Sensor"_s, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar);
    saldos.Avisar(lectura);
}

TEST_F(SaldosTest, ReadingKeepsABoxToo) {
    PonerNiveles(2, "1,2", "1");
    const LecturaSaldo lectura = saldos.Leer(TipoSaldo::Reciclador);
    EXPECT_EQ(lectura.valor, Currency(0));
    EXPECT_TRUE(dialogos.Llamadas().isEmpty());
    dialogos.EsperaCaja(kInicioCaja + u"9 - El subíndice está fuera del intervalo"_s);
    saldos.Avisar(lectura);
}

TEST_F(SaldosTest, HasNothingToTellOfAReadThatWentWell) {
    PonerNiveles(2, "1", "7");
    const LecturaSaldo lectura = saldos.Leer(TipoSaldo::Reciclador);
    EXPECT_EQ(lectura.valor, Currency(7));
    saldos.Avisar(lectura);
    EXPECT_TRUE(dialogos.Llamadas().isEmpty());
}

TEST_F(SaldosTest, TellsTheMessageBeforeTheBoxWhenBothFail) {
    PonerNiveles(3, "200,500", "4000000000000,1600000000000"); // each fits, their sum does not
    cliente.FallarNiveles(2, 8, u"Sensor"_s);
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Sensor"_s);
    dialogos.EsperaCaja(kInicioCaja + u"6 - Desbordamiento"_s);
    EXPECT_EQ(Saldo(TipoSaldo::Todo), Currency(0));
}

} // namespace
} // namespace zv
