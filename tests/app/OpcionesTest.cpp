// The command line of ZVMonitor.
#include "app/Opciones.h"

#include "support/ImprimeQt.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv {

TEST(OpcionesTest, ByDefaultEverythingStandsBesideTheProgram) {
    QTemporaryDir carpeta;
    const LecturaOpciones lectura =
        LeerOpciones({carpeta.filePath(QStringLiteral("ZVMonitor.exe"))});
    ASSERT_TRUE(lectura.opciones);
    EXPECT_EQ(lectura.opciones->carpeta, carpeta.path());
    EXPECT_EQ(lectura.opciones->registro, carpeta.path() + QStringLiteral("/Registro"));
    EXPECT_EQ(lectura.opciones->programa, QStringLiteral("ZVMonitor"));
    EXPECT_EQ(lectura.opciones->region, QString());
}

TEST(OpcionesTest, FoldersAndRegionAreTaken) {
    QTemporaryDir carpeta;
    const LecturaOpciones lectura =
        LeerOpciones({QStringLiteral("ZVMonitor"), QStringLiteral("--carpeta"),
                      carpeta.path() + QLatin1Char('/'), QStringLiteral("--registro"),
                      carpeta.filePath(QStringLiteral("r")), QStringLiteral("--region"),
                      QStringLiteral("es_ES")});
    ASSERT_TRUE(lectura.opciones);
    EXPECT_EQ(lectura.opciones->carpeta, carpeta.path());
    EXPECT_EQ(lectura.opciones->registro, carpeta.filePath(QStringLiteral("r")));
    EXPECT_EQ(lectura.opciones->region, QStringLiteral("es_ES"));
}

TEST(OpcionesTest, TheFastLinkListensWhereItIsTold) {
    QTemporaryDir carpeta;
    const auto leer = [&](const QString& direccion) {
        return LeerOpciones({carpeta.filePath(QStringLiteral("ZVMonitor")),
                             QStringLiteral("--fast-direccion"), direccion});
    };
    EXPECT_EQ(leer(QStringLiteral("127.0.0.1")).opciones->fastDireccion,
              QStringLiteral("127.0.0.1"));
    const LecturaOpciones mala = leer(QStringLiteral("aquí"));
    EXPECT_FALSE(mala.opciones);
    EXPECT_EQ(mala.respuesta.codigo, 2);
    EXPECT_EQ(mala.respuesta.texto, QStringLiteral("No es una dirección IP: aquí\n"));
}

TEST(OpcionesTest, VersionAndHelpAnswerWithoutAStart) {
    const LecturaOpciones version =
        LeerOpciones({QStringLiteral("ZVMonitor"), QStringLiteral("--version")});
    EXPECT_FALSE(version.opciones);
    EXPECT_EQ(version.respuesta.codigo, 0);
    EXPECT_EQ(version.respuesta.texto, QStringLiteral("ZVMonitor 26.5.1\n"));
    const LecturaOpciones ayuda =
        LeerOpciones({QStringLiteral("ZVMonitor"), QStringLiteral("--help")});
    EXPECT_EQ(ayuda.respuesta.codigo, 0);
    for (const QString& opcion : {QStringLiteral("--carpeta"), QStringLiteral("--registro"),
                                  QStringLiteral("--region"), QStringLiteral("--version")}) {
        EXPECT_TRUE(ayuda.respuesta.texto.contains(opcion)) << opcion.toStdString();
    }
}

TEST(OpcionesTest, WhatItDoesNotKnowIsRefused) {
    for (const QStringList& argumentos :
         {QStringList{QStringLiteral("ZVMonitor"), QStringLiteral("--nada")},
          QStringList{QStringLiteral("ZVMonitor"), QStringLiteral("suelto")},
          QStringList{QStringLiteral("ZVMonitor"), QStringLiteral("--carpeta"),
                      QStringLiteral("/no/existe")}}) {
        const LecturaOpciones lectura = LeerOpciones(argumentos);
        EXPECT_FALSE(lectura.opciones);
        EXPECT_EQ(lectura.respuesta.codigo, 2);
        EXPECT_FALSE(lectura.respuesta.texto.isEmpty());
    }
}

} // namespace zv
