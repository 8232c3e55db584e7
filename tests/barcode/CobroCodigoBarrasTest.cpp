// Codes that become sales, and those that do not.
#include "barcode/CobroCodigoBarras.h"

#include "barcode/Espera.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/CarpetaTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/RelojFijo.h"

#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

const QString kLongitud =
    QStringLiteral("El mensaje tiene que tener la misma lungitud que la de la configuración");
const QString kLayout =
    QStringLiteral("La configuración no corresponde con la longitud del còdigo de barras");
const QString kImporte =
    QStringLiteral("Configuración de importe en el codigo de barras no admitido");

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
        for (const Fila& f : motor.Consultar(QStringLiteral("SELECT * FROM cola ORDER BY idZV"))) {
            filas << f.LeerTexto(QStringLiteral("id1")) + u'=' +
                         f.LeerCurrency(QStringLiteral("importe")).ATexto();
        }
        return filas.join(u' ');
    }

    BaseDeDatosTemporal base;
    MotorBD& motor = base.Motor();
    RelojFijo reloj{QDateTime(QDate(2026, 3, 4), QTime(8, 4, 1))};
    dades datos{motor, reloj};
    LogMemoria log;
    DialogosGuion dialogos;
    CarpetaTemporal carpeta;
    Textos textos{carpeta.Ruta()};
    ModuloIni ini{log, dialogos};
    Registro registro{carpeta.Ruta(QStringLiteral("Registro"))};
    quint8 multiplicador = 100;
    Importes importes{FormatoRegional(QStringLiteral("es_ES")), [this] { return multiplicador; }};
    ConfiguracioGlobal configuracio{std::make_unique<Configuracio>(
        ini, registro, carpeta.Ruta(), FormatoRegional(QStringLiteral("es_ES")))};
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
                                 if (alEsperar)
                                     alEsperar(segundos);
                             }};
};

TEST_F(CobroCodigoBarrasTest, ATicketBecomesASale) {
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 1);
    EXPECT_EQ(Cola(), QStringLiteral("TICKET1=1250"));
    EXPECT_EQ(esperas, QList<int>{1});
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola"),
                          QStringLiteral("id2='' AND idcaja=0 AND terminal='' AND vendedor='' AND "
                                         "formapago='' AND creditoError=0 AND "
                                         "fecha='2026-03-04 08:04:01'")),
              1);
}

TEST_F(CobroCodigoBarrasTest, SwitchedOffNothingHappens) {
    configuracio->BCEAN = 0;
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 0);
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
        EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 1);
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
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 1);
    EXPECT_EQ(Cola(), QStringLiteral("03/04/2026-08:04:01=1250"));
    configuracio->BCTINI = 7;
    configuracio->BCTFIN = 1;
    reloj.Avanzar(1000);
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1000300")), 1);
    EXPECT_EQ(Cola(), QStringLiteral("03/04/2026-08:04:01=1250 03/04/2026-08:04:02=300"));
}

TEST_F(CobroCodigoBarrasTest, TwoScansWithoutATicketInOneSecondAreOneSale) {
    configuracio->BCTPRE = false;
    Escanea(QStringLiteral("TICKET1001250"));
    Escanea(QStringLiteral("TICKET1000300"));
    EXPECT_EQ(Cola(), QStringLiteral("03/04/2026-08:04:01=1250"));
    reloj.Avanzar(1000);
    Escanea(QStringLiteral("TICKET1000300"));
    EXPECT_EQ(Cola(), QStringLiteral("03/04/2026-08:04:01=1250 03/04/2026-08:04:02=300"));
}

TEST_F(CobroCodigoBarrasTest, AnAmountThatIsNoNumberIsTold) {
    for (const char* codigo : {"TICKET100A123", "TICKET1      "}) {
        dialogos.EsperaCaja(kImporte);
        EXPECT_EQ(Escanea(QString::fromLatin1(codigo)), 1);
    }
    configuracio->BCEAN = 20;
    configuracio->BCIFIN = 20;
    dialogos.EsperaCaja(kImporte);
    EXPECT_EQ(Escanea(QStringLiteral("TICKET10002147483648")), 1);
    EXPECT_EQ(Cola(), QString());
    EXPECT_EQ(Escanea(QStringLiteral("TICKET10002147483647")), 1);
    EXPECT_EQ(Cola(), QStringLiteral("TICKET1=2147483647"));
}

TEST_F(CobroCodigoBarrasTest, DecimalsAndMultiplierMakeTheAmount) {
    configuracio->BCDEC = 0;
    Escanea(QStringLiteral("TICKET1001250"));
    configuracio->BCDEC = 3;
    Escanea(QStringLiteral("TICKET2001250"));
    // Seven zeros is the most a divisor can have.
    configuracio->BCDEC = 200;
    Escanea(QStringLiteral("TICKET3001250"));
    configuracio->BCDEC = 2;
    multiplicador = 1;
    Escanea(QStringLiteral("TICKET4001250"));
    multiplicador = 0;
    Escanea(QStringLiteral("TICKET5001250"));
    // What four decimals cannot hold is rounded.
    configuracio->BCDEC = 5;
    multiplicador = 1;
    Escanea(QStringLiteral("TICKET6000016"));
    EXPECT_EQ(Cola(), QStringLiteral("TICKET1=125000 TICKET2=125 TICKET3=0.0125 TICKET4=12.5 "
                                     "TICKET5=0 TICKET6=0.0002"));
}

TEST_F(CobroCodigoBarrasTest, ALongTicketIsCutToWhatTheQueueHolds) {
    configuracio->BCEAN = 66;
    configuracio->BCTFIN = 60;
    configuracio->BCIINI = 61;
    configuracio->BCIFIN = 66;
    const QString cincuenta(50, u't');
    Escanea(cincuenta + QStringLiteral("aaaaaaaaaa001250"));
    EXPECT_EQ(Cola(), cincuenta + QStringLiteral("=1250"));
    // Another one is the same sale, and neither is a failure that would stop those that follow.
    Escanea(cincuenta + QStringLiteral("bbbbbbbbbb000300"));
    configuracio->BCTFIN = 2;
    Escanea(QStringLiteral("T2") + QString(58, u'x') + QStringLiteral("000300"));
    EXPECT_EQ(Cola(), cincuenta + QStringLiteral("=1250 T2=300"));
}

TEST_F(CobroCodigoBarrasTest, ATicketScannedTwiceEndsSilently) {
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 1);
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 1);
    EXPECT_EQ(Cola(), QStringLiteral("TICKET1=1250"));
    EXPECT_EQ(esperas, (QList<int>{1, 1}));
}

TEST_F(CobroCodigoBarrasTest, AFailedInsertionReachesNobody) {
    GanchoFallos fallos(motor);
    fallos.Falla(Sentencia::Clase::Escritura, QStringLiteral("INSERT INTO"), 1);
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 1);
    EXPECT_EQ(fallos.Pendientes(), 0);
    EXPECT_EQ(Cola(), QString());
    EXPECT_EQ(log.lineas, QStringList());
}

TEST_F(CobroCodigoBarrasTest, WhatArrivesDuringTheWaitIsDropped) {
    int dentro = -1;
    alEsperar = [&](int) { dentro = Escanea(QStringLiteral("TICKET2001250")); };
    EXPECT_EQ(Escanea(QStringLiteral("TICKET1001250")), 1);
    EXPECT_EQ(dentro, 0);
    EXPECT_EQ(Cola(), QStringLiteral("TICKET1=1250"));
    alEsperar = {};
    EXPECT_EQ(Escanea(QStringLiteral("TICKET2001250")), 1);
    EXPECT_EQ(Cola(), QStringLiteral("TICKET1=1250 TICKET2=1250"));
}

TEST_F(CobroCodigoBarrasTest, TheBoxIsEmptiedBehindTheWaitAndTheMessage) {
    bool vaciada = false;
    bool antes = true;
    const auto vaciar = [&] { vaciada = true; };
    alEsperar = [&](int) { antes = vaciada; };
    barras.Enter(QStringLiteral("TICKET1001250"), vaciar);
    EXPECT_FALSE(antes);
    EXPECT_TRUE(vaciada);
    vaciada = false;
    dialogos.EsperaCaja(kLongitud, [&] { antes = vaciada; });
    barras.Enter(QStringLiteral("x"), vaciar);
    EXPECT_FALSE(antes);
    EXPECT_TRUE(vaciada);
}

TEST_F(CobroCodigoBarrasTest, WithoutAStoreACodeIsEmptiedAndAddsNothing) {
    CobroCodigoBarras pronto(
        configuracio, [] { return nullptr; }, importes, reloj, dialogos, textos, [](int) {});
    bool vaciada = false;
    pronto.Enter(QStringLiteral("TICKET1001250"), [&] { vaciada = true; });
    EXPECT_TRUE(vaciada);
    EXPECT_EQ(Cola(), QString());
}

TEST_F(CobroCodigoBarrasTest, MessagesComeFromTheLanguageFile) {
    carpeta.Pon(QStringLiteral("RWLang.ini"), "[COMMON]\r\n"
                                              "errorLongitudCodigoBarras=uno\r\n"
                                              "errorConfiguracionCodigoBarras=dos\r\n"
                                              "errorImporteCodigoBarras=tres\r\n");
    dialogos.EsperaCaja(QStringLiteral("uno"));
    Escanea(QStringLiteral("x"));
    dialogos.EsperaCaja(QStringLiteral("tres"));
    Escanea(QStringLiteral("TICKET100A123"));
    configuracio->BCIINI = 0;
    dialogos.EsperaCaja(QStringLiteral("dos"));
    Escanea(QStringLiteral("TICKET1001250"));
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
