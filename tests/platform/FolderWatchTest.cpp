// Which changes in folders are told, for how long, and what happens when nothing can be watched.
#include "platform/FolderWatch.h"

#include "platform/CoarsePause.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"

#include <QElapsedTimer>

#include <array>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace zv {
namespace {

using test::CarpetaTemporal;

class FolderWatchTest : public testing::Test {
  protected:
    QByteArray Ruta(const QString& nombre) const { return QFile::encodeName(carpeta.Ruta(nombre)); }
    void Renombra(const QString& viejo, const QString& nuevo) const {
        ASSERT_EQ(::rename(Ruta(viejo).constData(), Ruta(nuevo).constData()), 0);
    }
    void Vigila(const QStringList& nombres) {
        QList<QByteArray> rutas;
        for (const QString& nombre : nombres) {
            rutas.append(Ruta(nombre));
        }
        vigia.Vigilar(rutas);
    }

    CarpetaTemporal carpeta;
    FolderWatch vigia;
};

TEST_F(FolderWatchTest, TellsEveryChangeUntilItIsToldToWatchAnew) {
    const auto derechos = [this](const QString& nombre, mode_t modo) {
        ASSERT_EQ(::chmod(Ruta(nombre).constData(), modo), 0);
    };
    carpeta.Pon(u"fuera"_s, "x");
    carpeta.Pon(u"a/viejo"_s, "x");
    carpeta.Pon(u"a/fijo"_s, "x");
    const FileDescriptor abierto(::open(Ruta(u"a/fijo"_s).constData(), O_RDWR | O_CLOEXEC));
    FileDescriptor mapeado(::open(Ruta(u"a/fijo"_s).constData(), O_RDWR | O_CLOEXEC));
    struct Cambio {
        const char* que;
        std::function<void()> hacer;
    };
    const std::vector<Cambio> cambios = {
        {"a file is made", [&] { carpeta.Pon(u"a/nuevo"_s, "1"); }},
        {"a file is written in place", [&] { carpeta.Pon(u"a/nuevo"_s, "2"); }},
        {"an open file is written", [&] { ASSERT_EQ(::pwrite(abierto.Numero(), "3", 1, 0), 1); }},
        {"a file written by mapped memory is closed", [&] { mapeado = FileDescriptor(); }},
        {"a file comes in by another name", [&] { Renombra(u"fuera"_s, u"a/nuevo"_s); }},
        {"a file gets another name", [&] { Renombra(u"a/nuevo"_s, u"a/otro"_s); }},
        {"a file leaves", [&] { Renombra(u"a/otro"_s, u"fuera"_s); }},
        {"a file goes", [&] { QFile::remove(carpeta.Ruta(u"a/viejo"_s)); }},
        {"a file gets other rights", [&] { derechos(u"a/fijo"_s, 0600); }},
        {"a folder is made in it", [&] { carpeta.PonCarpeta(u"a/carpeta"_s); }},
        {"a folder in it goes", [&] { QDir().rmdir(carpeta.Ruta(u"a/carpeta"_s)); }},
        {"the folder gets other rights", [&] { derechos(u"a"_s, 0711); }},
        {"the folder gets another name", [&] { Renombra(u"a"_s, u"b"_s); }},
    };
    for (const Cambio& cambio : cambios) {
        Vigila({u"a"_s});
        EXPECT_FALSE(vigia.HaCambiado()) << cambio.que;
        EXPECT_FALSE(vigia.HaCambiado()) << cambio.que;
        cambio.hacer();
        EXPECT_TRUE(vigia.HaCambiado()) << cambio.que;
        EXPECT_TRUE(vigia.HaCambiado()) << cambio.que;
    }
    carpeta.PonCarpeta(u"vacia"_s);
    Vigila({u"vacia"_s});
    EXPECT_FALSE(vigia.HaCambiado());
    QDir().rmdir(carpeta.Ruta(u"vacia"_s));
    EXPECT_TRUE(vigia.HaCambiado());
    EXPECT_TRUE(vigia.HaCambiado());
}

TEST_F(FolderWatchTest, WhoeverOnlyLooksChangesNothing) {
    carpeta.Pon(u"a/fichero"_s, "x");
    Vigila({u"a"_s});
    EXPECT_EQ(carpeta.Lee(u"a/fichero"_s), "x");
    EXPECT_EQ(carpeta.Entradas(u"a"_s).size(), 1);
    EXPECT_FALSE(vigia.HaCambiado());
}

TEST_F(FolderWatchTest, AnyOfTheFoldersCountsAndNoOther) {
    for (const QString& nombre : {u"a"_s, u"b"_s, u"c"_s}) {
        carpeta.PonCarpeta(nombre);
    }
    Vigila({u"a"_s, u"b"_s});
    carpeta.Pon(u"c/fichero"_s, "x");
    EXPECT_FALSE(vigia.HaCambiado());
    carpeta.Pon(u"b/fichero"_s, "x");
    EXPECT_TRUE(vigia.HaCambiado());
    Vigila({u"c"_s, u"a"_s});
    carpeta.Pon(u"b/fichero"_s, "y");
    EXPECT_FALSE(vigia.HaCambiado());
    carpeta.Pon(u"a/fichero"_s, "x");
    EXPECT_TRUE(vigia.HaCambiado());
}

TEST_F(FolderWatchTest, WatchedAnewItIsTheFolderThatStandsThereNow) {
    carpeta.PonCarpeta(u"a"_s);
    Vigila({u"a"_s});
    Renombra(u"a"_s, u"b"_s);
    carpeta.PonCarpeta(u"a"_s);
    EXPECT_TRUE(vigia.HaCambiado());
    Vigila({u"a"_s});
    carpeta.Pon(u"b/fichero"_s, "x");
    EXPECT_FALSE(vigia.HaCambiado());
    carpeta.Pon(u"a/fichero"_s, "x");
    EXPECT_TRUE(vigia.HaCambiado());
}

TEST_F(FolderWatchTest, WhatHappenedBeforeIsForgottenHoweverMuchItWas) {
    // More than the system keeps, so that it drops some and tells that instead.
    constexpr int kCambios = 20'000;
    const std::array<QByteArray, 2> ficheros = {QFile::encodeName(carpeta.Pon(u"a/1"_s, "x")),
                                                QFile::encodeName(carpeta.Pon(u"a/2"_s, "x"))};
    Vigila({u"a"_s});
    for (int i = 0; i < kCambios; ++i) {
        ASSERT_EQ(::utimensat(AT_FDCWD, ficheros.at(static_cast<std::size_t>(i % 2)).constData(),
                              nullptr, 0),
                  0);
    }
    EXPECT_TRUE(vigia.HaCambiado());
    Vigila({u"a"_s});
    EXPECT_FALSE(vigia.HaCambiado());
    carpeta.Pon(u"a/1"_s, "y");
    EXPECT_TRUE(vigia.HaCambiado());
}

TEST_F(FolderWatchTest, WhenNothingIsWatchedAnythingMayHaveChanged) {
    EXPECT_TRUE(vigia.HaCambiado());
    EXPECT_TRUE(vigia.HaCambiado());
    carpeta.PonCarpeta(u"a"_s);
    carpeta.Pon(u"fichero"_s, "x");
    for (const QStringList& nombres : {QStringList{},
                                       {u"falta"_s},
                                       {u"a"_s, u"falta"_s},
                                       {u"falta"_s, u"a"_s},
                                       {u"fichero"_s}}) {
        Vigila({u"a"_s});
        EXPECT_FALSE(vigia.HaCambiado());
        Vigila(nombres);
        EXPECT_TRUE(vigia.HaCambiado()) << nombres.join(u' ').toStdString();
        EXPECT_TRUE(vigia.HaCambiado()) << nombres.join(u' ').toStdString();
    }
}

TEST_F(FolderWatchTest, ASystemThatGivesNoWatchIsAskedAgainNextTime) {
    carpeta.PonCarpeta(u"a"_s);
    rlimit limite{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limite), 0);
    rlimit ninguno = limite;
    ninguno.rlim_cur = 0;
    // Nothing but the watch is used while there are none: sanitizers look at memory through files.
    FolderWatch& sinNinguno = vigia;
    const QList<QByteArray> rutas = {Ruta(u"a"_s)};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &ninguno), 0);
    sinNinguno.Vigilar(rutas);
    const bool primera = sinNinguno.HaCambiado();
    const bool segunda = sinNinguno.HaCambiado();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limite), 0);
    EXPECT_TRUE(primera);
    EXPECT_TRUE(segunda);
    Vigila({u"a"_s});
    EXPECT_FALSE(vigia.HaCambiado());
}

TEST(CoarsePauseTest, IsOverUntilItBeginsAndAgainAfterItsTime) {
    CoarsePause pausa(40);
    EXPECT_TRUE(pausa.Vencida());
    QElapsedTimer reloj;
    for (int i = 0; i < 2; ++i) {
        reloj.start();
        pausa.Empezar();
        // A machine may stand still for longer than the pause.
        EXPECT_TRUE(!pausa.Vencida() || reloj.elapsed() > 20);
        while (!pausa.Vencida()) {
            ASSERT_LT(reloj.elapsed(), 5000);
        }
        EXPECT_GE(reloj.elapsed(), 25);
    }
}

} // namespace
} // namespace zv
