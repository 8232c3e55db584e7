// Codes that become sales, and those that do not.
#include "barcode/CobroCodigoBarras.h"

#include "barcode/Espera.h"
#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/CarpetaTemporal.h"
#include "support/FixedClock.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"

#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

const QString kLongitud =
    u"El mensaje tiene que tener la misma lungitud que la de la configuración"_s;
const QString kLayout = u"La configuración no corresponde con la longitud del còdigo de barras"_s;
const QString kImporte = u"Configuración de importe en el codigo de barras no admitido"_s;

class CobroCodigoBarrasTest : public testing::Test {
  protected:
    CobroCodigoBarrasTest() {
        datos.Inicialitza();
        // 7 of ticket, 6 of amount.
        configuracio->BCEAN = 13;
        configuracio->BCTPRE = true;
        configuracio->BCTINI = 1;
        configuracio->BCTFIN = 7;
        configuracio->BCIINI = 8;
        configuracio->BCIFIN = 13;
        configuracio->BCDEC = 2;
    }
    // Scans, and tells how often the box has been emptied.
    int Escanea(const QString& codigo) {
        int vaciados = 0;
        barras.Enter(codigo, [&] { ++vaciados; });
        return vaciados;
    }
    QString Cola() {
        QStringList filas;
        for (const Row& f : motor.Consultar(u"SELECT * FROM cola ORDER BY idZV"_s)) {
            filas << f.LeerTexto(u"id1"_s) + u'=' + f.LeerCurrency(u"importe"_s).ATexto();
        }
        return filas.join(u' ');
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    FixedClock reloj{QDateTime(QDate(2026, 3, 4), QTime(8, 4, 1))};
    dades datos{motor, reloj};
    LogMemoria log;
    DialogosGuion dialogos;
    CarpetaTemporal carpeta;
    Textos textos{carpeta.Ruta()};
    ModuloIni ini{log, dialogos};
    RegistryTree registry{carpeta.Ruta(u"Registro"_s)};
    quint8 multiplicador = 100;
    Importes importes{FormatoRegional(u"es_ES"_s), [this] { return multiplicador; }};
    ConfiguracioGlobal configuracio{
        std::make_unique<Configuracio>(ini, registry, carpeta.Ruta(), FormatoRegional(u"es_ES"_s))};
    std::function<void(int)> alEsperar;
    QList<int> esperas;
    CobroCodigoBarras barras{configuracio,
                             [this] { return &datos; },
                             importes,
                             reloj,
                             dialogos,
                             textos,
                             [this](int segundos) {
                                 esperas << segundos;
                                 if (alEsperar) {
                                     alEsperar(segundos);
                                 }
                             }};
};

TEST_F(CobroCodigoBarrasTest, ATicketBecomesASale) {
    EXPECT_EQ(Escanea(u"TICKET1001250"_s), 1);
    EXPECT_EQ(Cola(), u"TICKET1=1250"_s);
    EXPECT_EQ(esperas, QList<int>{1});
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id2='' AND idcaja=0 AND terminal='' AND vendedor='' AND "
                                     "formapago='' AND creditoError=0 AND "
                                     "fecha='2026-03-04 08:04:01'"_s),
              1);
}

TEST_F(CobroCodigoBarrasTest, SwitchedOffNothingHappens) {
    configuracio->BCEAN = 0;
    EXPECT_EQ(Escanea(u"TICKET1001250"_s), 0);
    EXPECT_EQ(Escanea(QString()), 0);
    EXPECT_EQ(Cola(), QString());
}

TEST_F(CobroCodigoBarrasTest, AnotherLengthIsToldAndTheBoxEmptied) {
    for (const char* codigo : {"TICKET100125", "TICKET10012500", ""}) {
        dialogos.EsperaCaja(kLongitud);
        EXPECT_EQ(Escanea(QString::fromLatin1(codigo)), 1) << codigo;
    }
    EXPECT_EQ(Cola(), QString());
    EXPECT_EQ(esperas, QList<int>());
}

TEST_F(CobroCodigoBarrasTest, ABadLayoutIsTold) {
    const auto malo = [&](quint8 Configuracio::*campo, quint8 valor) {
        const quint8 antes = (*configuracio).*campo;
        (*configuracio).*campo = valor;
        dialogos.EsperaCaja(kLayout);
        EXPECT_EQ(Escanea(u"TICKET1001250"_s), 1);
        (*configuracio).*campo = antes;
    };
    malo(&Configuracio::BCIINI, 0);
    malo(&Configuracio::BCIFIN, 0);
    malo(&Configuracio::BCTINI, 0);
    malo(&Configuracio::BCTFIN, 0);
    // A field that would end before it begins.
    malo(&Configuracio::BCIFIN, 7);
    malo(&Configuracio::BCTINI, 8);
    EXPECT_EQ(Cola(), QString());
    EXPECT_EQ(esperas, QList<int>());
}

TEST_F(CobroCodigoBarrasTest, TicketPositionsCountOnlyWithATicket) {
    configuracio->BCTPRE = false;
    configuracio->BCTINI = 0;
    configuracio->BCTFIN = 0;
    EXPECT_EQ(Escanea(u"TICKET1001250"_s), 1);
    EXPECT_EQ(Cola(), u"03/04/2026-08:04:01=1250"_s);
    configuracio->BCTINI = 7;
    configuracio->BCTFIN = 1;
    reloj.Avanzar(1000);
    EXPECT_EQ(Escanea(u"TICKET1000300"_s), 1);
    EXPECT_EQ(Cola(), u"03/04/2026-08:04:01=1250 03/04/2026-08:04:02=300"_s);
}

TEST_F(CobroCodigoBarrasTest, TwoScansWithoutATicketInOneSecondAreOneSale) {
    configuracio->BCTPRE = false;
    Escanea(u"TICKET1001250"_s);
    Escanea(u"TICKET1000300"_s);
    EXPECT_EQ(Cola(), u"03/04/2026-08:04:01=1250"_s);
    reloj.Avanzar(1000);
    Escanea(u"TICKET1000300"_s);
    EXPECT_EQ(Cola(), u"03/04/2026-08:04:01=1250 03/04/2026-08:04:02=300"_s);
}

TEST_F(CobroCodigoBarrasTest, AnAmountThatIsNoNumberIsTold) {
    for (const char* codigo : {"TICKET100A123", "TICKET1      "}) {
        dialogos.EsperaCaja(kImporte);
        EXPECT_EQ(Escanea(QString::fromLatin1(codigo)), 1);
    }
    configuracio->BCEAN = 20;
    configuracio->BCIFIN = 20;
    dialogos.EsperaCaja(kImporte);
    EXPECT_EQ(Escanea(u"TICKET10002147483648"_s), 1);
    EXPECT_EQ(Cola(), QString());
    EXPECT_EQ(Escanea(u"TICKET10002147483647"_s), 1);
    EXPECT_EQ(Cola(), u"TICKET1=2147483647"_s);
}

TEST_F(CobroCodigoBarrasTest, DecimalsAndMultiplierMakeTheAmount) {
    configuracio->BCDEC = 0;
    Escanea(u"TICKET1001250"_s);
    configuracio->BCDEC = 3;
    Escanea(u"TICKET2001250"_s);
    // Seven zeros is the most a divisor can have.
    configuracio->BCDEC = 200;
    Escanea(u"TICKET3001250"_s);
    configuracio->BCDEC = 2;
    multiplicador = 1;
    Escanea(u"TICKET4001250"_s);
    multiplicador = 0;
    Escanea(u"TICKET5001250"_s);
    // What four decimals cannot hold is rounded.
    configuracio->BCDEC = 5;
    multiplicador = 1;
    Escanea(u"TICKET6000016"_s);
    EXPECT_EQ(Cola(), u"TICKET1=125000 TICKET2=125 TICKET3=0.0125 TICKET4=12.5 "
                      "TICKET5=0 TICKET6=0.0002"_s);
}

TEST_F(CobroCodigoBarrasTest, ALongTicketIsCutToWhatTheQueueHolds) {
    configuracio->BCEAN = 66;
    configuracio->BCTFIN = 60;
    configuracio->BCIINI = 61;
    configuracio->BCIFIN = 66;
    const QString cincuenta(50, u't');
    Escanea(cincuenta + u"aaaaaaaaaa001250"_s);
    EXPECT_EQ(Cola(), cincuenta + u"=1250"_s);
    // Another one is the same sale, and neither is a failure that would stop those that follow.
    Escanea(cincuenta + u"bbbbbbbbbb000300"_s);
    configuracio->BCTFIN = 2;
    Escanea(u"T2"_s + QString(58, u'x') + u"000300"_s);
    EXPECT_EQ(Cola(), cincuenta + u"=1250 T2=300"_s);
}

TEST_F(CobroCodigoBarrasTest, ATicketScannedTwiceEndsSilently) {
    EXPECT_EQ(Escanea(u"TICKET1001250"_s), 1);
    EXPECT_EQ(Escanea(u"TICKET1001250"_s), 1);
    EXPECT_EQ(Cola(), u"TICKET1=1250"_s);
    EXPECT_EQ(esperas, (QList<int>{1, 1}));
}

TEST_F(CobroCodigoBarrasTest, AFailedInsertionReachesNobody) {
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 1);
    EXPECT_EQ(Escanea(u"TICKET1001250"_s), 1);
    EXPECT_EQ(fallos.Pendientes(), 0);
    EXPECT_EQ(Cola(), QString());
    EXPECT_EQ(log.lineas, QStringList());
}

TEST_F(CobroCodigoBarrasTest, WhatArrivesDuringTheWaitIsDropped) {
    int dentro = -1;
    alEsperar = [&](int) { dentro = Escanea(u"TICKET2001250"_s); };
    EXPECT_EQ(Escanea(u"TICKET1001250"_s), 1);
    EXPECT_EQ(dentro, 0);
    EXPECT_EQ(Cola(), u"TICKET1=1250"_s);
    alEsperar = {};
    EXPECT_EQ(Escanea(u"TICKET2001250"_s), 1);
    EXPECT_EQ(Cola(), u"TICKET1=1250 TICKET2=1250"_s);
}

TEST_F(CobroCodigoBarrasTest, TheBoxIsEmptiedBehindTheWaitAndTheMessage) {
    bool vaciada = false;
    bool antes = true;
    const auto vaciar = [&] { vaciada = true; };
    alEsperar = [&](int) { antes = vaciada; };
    barras.Enter(u"TICKET1001250"_s, vaciar);
    EXPECT_FALSE(antes);
    EXPECT_TRUE(vaciada);
    vaciada = false;
    dialogos.EsperaCaja(kLongitud, [&] { antes = vaciada; });
    barras.Enter(u"x"_s, vaciar);
    EXPECT_FALSE(antes);
    EXPECT_TRUE(vaciada);
}

TEST_F(CobroCodigoBarrasTest, WithoutAStoreACodeIsEmptiedAndAddsNothing) {
    CobroCodigoBarras pronto(
        configuracio, [] { return nullptr; }, importes, reloj, dialogos, textos, [](int) {});
    bool vaciada = false;
    pronto.Enter(u"TICKET1001250"_s, [&] { vaciada = true; });
    EXPECT_TRUE(vaciada);
    EXPECT_EQ(Cola(), QString());
}

TEST_F(CobroCodigoBarrasTest, MessagesComeFromTheLanguageFile) {
    carpeta.Pon(u"RWLang.ini"_s, "[COMMON]\r\n"
                                 "errorLongitudCodigoBarras=uno\r\n"
                                 "errorConfiguracionCodigoBarras=dos\r\n"
                                 "errorImporteCodigoBarras=tres\r\n");
    dialogos.EsperaCaja(u"uno"_s);
    Escanea(u"x"_s);
    dialogos.EsperaCaja(u"tres"_s);
    Escanea(u"TICKET100A123"_s);
    configuracio->BCIINI = 0;
    dialogos.EsperaCaja(u"dos"_s);
    Escanea(u"TICKET1001250"_s);
}

TEST(EsperaTest, LetsTheEventLoopRun) {
    int tics = 0;
    QTimer pulso;
    QObject::connect(&pulso, &QTimer::timeout, &pulso, [&] { ++tics; });
    pulso.start(1);
    QElapsedTimer reloj;
    reloj.start();
    Espera(1);
    EXPECT_GE(reloj.elapsed(), 990);
    EXPECT_GT(tics, 10);
}

} // namespace
} // namespace zv::test
