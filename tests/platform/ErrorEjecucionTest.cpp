// Run-time failures and the machine's clock.
#include "platform/ErrorEjecucion.h"

#include "platform/Clock.h"
#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <ctime>
#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(ErrorEjecucion, CarriesNumberAndDescription) {
    const ErrorEjecucion error(91, u"Variable no establecida ñ"_s);
    EXPECT_EQ(error.Numero(), 91);
    EXPECT_EQ(error.Descripcion(), u"Variable no establecida ñ"_s);
    EXPECT_STREQ(error.what(), "91 - Variable no establecida ñ");
}

TEST(ErrorEjecucion, ThePlatformsFailuresHaveTheirNumbers) {
    EXPECT_EQ(errores::Desbordamiento().Numero(), 6);
    EXPECT_EQ(errores::FueraDeIntervalo().Numero(), 9);
    EXPECT_EQ(errores::DivisionPorCero().Numero(), 11);
    EXPECT_EQ(errores::TipoNoCoincide().Numero(), 13);
    const ErrorEjecucion impresora = errores::ErrorDeImpresora(u"no hay ninguna"_s);
    EXPECT_EQ(impresora.Numero(), 482);
    EXPECT_EQ(impresora.Descripcion(), u"Error de impresora (no hay ninguna)"_s);
    const ErrorEjecucion archivo = errores::ErrorDeArchivo(u"/a/b.ini"_s, u"es una carpeta"_s);
    EXPECT_EQ(archivo.Numero(), 75);
    EXPECT_TRUE(archivo.Descripcion().contains(u"/a/b.ini"_s));
    EXPECT_TRUE(archivo.Descripcion().contains(u"es una carpeta"_s));
}

TEST(SystemClock, NamesTheMachinesZoneAndKeepsOneThatIsNamed) {
    const QByteArray antes = qgetenv("TZ");
    const bool estaba = qEnvironmentVariableIsSet("TZ");
    qunsetenv("TZ");
    tzset();
    const QDateTime dia(QDate(2026, 7, 14), QTime(10, 0));
    const qint64 instante = dia.toSecsSinceEpoch();
    const SystemClock sinNombre;
    EXPECT_EQ(qgetenv("TZ"), ":/etc/localtime");
    EXPECT_EQ(QDateTime(QDate(2026, 7, 14), QTime(10, 0)).toSecsSinceEpoch(), instante);
    qputenv("TZ", "Atlantic/Canary");
    const SystemClock conNombre;
    EXPECT_EQ(qgetenv("TZ"), "Atlantic/Canary");
    if (estaba) {
        qputenv("TZ", antes);
    } else {
        qunsetenv("TZ");
    }
    tzset();
}

TEST(SystemClock, TellsLocalTimeAndTicksThatNeverGoBack) {
    const SystemClock reloj;
    EXPECT_EQ(reloj.Ahora().timeSpec(), Qt::LocalTime);
    EXPECT_LT(std::abs(reloj.Ahora().msecsTo(QDateTime::currentDateTime())), 60000);
    qint64 anterior = reloj.Ticks();
    EXPECT_GT(anterior, 0);
    for (int i = 0; i < 1000; ++i) {
        const qint64 ahora = reloj.Ticks();
        ASSERT_GE(ahora, anterior);
        anterior = ahora;
    }
}

} // namespace
} // namespace zv
