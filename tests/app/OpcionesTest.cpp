// The command line of ZVMonitor.
#include "app/Opciones.h"

#include "app/Servicios.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv {

TEST(OpcionesTest, ByDefaultEverythingStandsBesideTheProgram) {
    QTemporaryDir carpeta;
    const LecturaOpciones lectura = LeerOpciones({carpeta.filePath(u"ZVMonitor.exe"_s)});
    ASSERT_TRUE(lectura.opciones);
    EXPECT_EQ(lectura.opciones->carpeta, carpeta.path());
    EXPECT_EQ(lectura.opciones->registro, carpeta.path() + u"/Registro"_s);
    EXPECT_EQ(lectura.opciones->programa, u"ZVMonitor"_s);
    EXPECT_EQ(lectura.opciones->region, QString());
}

TEST(OpcionesTest, TheLogHasTheNameOfTheProgramWithoutItsExtension) {
    for (const auto& [programa, log] : {std::pair{u"Otro.v2.exe"_s, u"Otro.v220260509.log"_s},
                                        std::pair{u"ZVMonitor"_s, u"ZVMonitor20260509.log"_s}}) {
        const test::CarpetaTemporal carpeta;
        const LecturaOpciones lectura = LeerOpciones({carpeta.Ruta(programa)});
        ASSERT_TRUE(lectura.opciones);
        const test::FixedClock reloj(QDateTime(QDate(2026, 5, 9), QTime(18, 4, 11)));
        Servicios(*lectura.opciones, reloj).log.LogLinea(u"A"_s);
        EXPECT_EQ(carpeta.Entradas(u"Debug"_s), QStringList{log});
    }
}

TEST(OpcionesTest, FoldersAndRegionAreTaken) {
    QTemporaryDir carpeta;
    const LecturaOpciones lectura =
        LeerOpciones({u"ZVMonitor"_s, u"--carpeta"_s, carpeta.path() + QLatin1Char('/'),
                      u"--registro"_s, carpeta.filePath(u"r"_s), u"--region"_s, u"es_ES"_s});
    ASSERT_TRUE(lectura.opciones);
    EXPECT_EQ(lectura.opciones->carpeta, carpeta.path());
    EXPECT_EQ(lectura.opciones->registro, carpeta.filePath(u"r"_s));
    EXPECT_EQ(lectura.opciones->region, u"es_ES"_s);
}

TEST(OpcionesTest, TheFastLinkListensWhereItIsTold) {
    QTemporaryDir carpeta;
    const auto leer = [&](const QString& direccion) {
        return LeerOpciones({carpeta.filePath(u"ZVMonitor"_s), u"--fast-direccion"_s, direccion});
    };
    EXPECT_EQ(leer(u"127.0.0.1"_s).opciones->fastDireccion, u"127.0.0.1"_s);
    const LecturaOpciones mala = leer(u"aquí"_s);
    EXPECT_FALSE(mala.opciones);
    EXPECT_EQ(mala.respuesta.codigo, 2);
    EXPECT_EQ(mala.respuesta.texto, u"No es una dirección IP: aquí\n"_s);
}

TEST(OpcionesTest, VersionAndHelpAnswerWithoutAStart) {
    const LecturaOpciones version = LeerOpciones({u"ZVMonitor"_s, u"--version"_s});
    EXPECT_FALSE(version.opciones);
    EXPECT_EQ(version.respuesta.codigo, 0);
    EXPECT_EQ(version.respuesta.texto, u"ZVMonitor 26.5.1\n"_s);
    const LecturaOpciones ayuda = LeerOpciones({u"ZVMonitor"_s, u"--help"_s});
    EXPECT_EQ(ayuda.respuesta.codigo, 0);
    for (const QString& opcion : {u"--carpeta"_s, u"--registro"_s, u"--region"_s, u"--version"_s}) {
        EXPECT_TRUE(ayuda.respuesta.texto.contains(opcion)) << opcion.toStdString();
    }
}

TEST(OpcionesTest, WhatItDoesNotKnowIsRefused) {
    for (const QStringList& argumentos :
         {QStringList{u"ZVMonitor"_s, u"--nada"_s}, QStringList{u"ZVMonitor"_s, u"suelto"_s},
          QStringList{u"ZVMonitor"_s, u"--carpeta"_s, u"/no/existe"_s}}) {
        const LecturaOpciones lectura = LeerOpciones(argumentos);
        EXPECT_FALSE(lectura.opciones);
        EXPECT_EQ(lectura.respuesta.codigo, 2);
        EXPECT_FALSE(lectura.respuesta.texto.isEmpty());
    }
}

} // namespace zv
