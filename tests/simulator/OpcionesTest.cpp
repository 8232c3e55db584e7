// The command line: defaults, and wrong options told in plain words.
#include "simulator/Opciones.h"

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

Opciones Leidas(const QStringList& argumentos) {
    Opciones opciones;
    QString error;
    EXPECT_TRUE(LeerOpciones(argumentos, true, opciones, error)) << error.toStdString();
    return opciones;
}

QString ErrorDe(const QStringList& argumentos, bool hayVentana = true) {
    Opciones opciones;
    QString error;
    EXPECT_FALSE(LeerOpciones(argumentos, hayVentana, opciones, error));
    return error;
}

const QString kSinVentana = QStringLiteral("--sin-ventana");

TEST(Opciones, HaveTheirDefaults) {
    const Opciones o = Leidas({});
    EXPECT_EQ(o.puerto, 16510);
    EXPECT_TRUE(o.ventana);
    EXPECT_FALSE(o.saldo);
    EXPECT_EQ(o.guion, Guion::Manual);
    EXPECT_EQ(o.ritmo, 50);
    EXPECT_EQ(o.cajones.monedas, 5000);
    EXPECT_EQ(o.cajones.billetes, 2000);
    EXPECT_TRUE(o.fallos.Vacio());
    EXPECT_TRUE(o.traza.isEmpty());
    EXPECT_TRUE(o.carpeta.endsWith(QStringLiteral("/ZVSimulador")));
}

TEST(Opciones, WithoutAWindowRunFaster) {
    EXPECT_EQ(Leidas({kSinVentana}).ritmo, 2);
    EXPECT_EQ(Leidas({kSinVentana, QStringLiteral("--ritmo"), QStringLiteral("0")}).ritmo, 0);
}

TEST(Opciones, AreRead) {
    const Opciones o = Leidas({QStringLiteral("--puerto=0"), QStringLiteral("--carpeta=/x"),
                               QStringLiteral("--cliente"), QStringLiteral("exacto"),
                               QStringLiteral("--fallo=cobro:atasco"), QStringLiteral("--saldo"),
                               QStringLiteral("--cajones=7"), QStringLiteral("--traza=/t")});
    EXPECT_EQ(o.puerto, 0);
    EXPECT_EQ(o.carpeta, QStringLiteral("/x"));
    EXPECT_EQ(o.guion, Guion::Exacto);
    EXPECT_FALSE(o.fallos.Vacio());
    EXPECT_TRUE(o.saldo);
    EXPECT_EQ(o.cajones.monedas, 7);
    EXPECT_EQ(o.cajones.billetes, 7);
    EXPECT_EQ(o.traza, QStringLiteral("/t"));
}

TEST(Opciones, HelpAndVersionAreTextsToPrint) {
    const QString ayuda = Leidas({QStringLiteral("--help")}).aviso;
    for (const char* opcion : {"--puerto", "--carpeta", "--sin-ventana", "--cliente", "--ritmo",
                               "--fallo", "--cajones", "--traza", "--saldo"})
        EXPECT_TRUE(ayuda.contains(QLatin1String(opcion))) << opcion;
    EXPECT_TRUE(
        Leidas({QStringLiteral("--version")}).aviso.startsWith(QStringLiteral("ZVSimulador ")));
}

TEST(Opciones, ThatAreWrongAreToldInPlainWords) {
    EXPECT_EQ(ErrorDe({QStringLiteral("--puerto=70000")}),
              QStringLiteral("--puerto va de 0 a 65535, no \"70000\""));
    EXPECT_EQ(ErrorDe({QStringLiteral("--puerto=-1")}),
              QStringLiteral("--puerto va de 0 a 65535, no \"-1\""));
    EXPECT_EQ(ErrorDe({QStringLiteral("--ritmo=x")}),
              QStringLiteral("--ritmo va de 0 a 60000, no \"x\""));
    EXPECT_EQ(ErrorDe({QStringLiteral("--cajones=0")}),
              QStringLiteral("--cajones va de 1 a 100000, no \"0\""));
    EXPECT_EQ(ErrorDe({QStringLiteral("--cliente=rico")}),
              QStringLiteral("--cliente es exacto, redondeo o manual, no \"rico\""));
    EXPECT_EQ(ErrorDe({QStringLiteral("--fallo=x")}),
              QStringLiteral("fallo \"x\": la forma es punto[#n]:acción[=valor]"));
    EXPECT_EQ(ErrorDe({QStringLiteral("suelto")}), QStringLiteral("sobra \"suelto\""));
    EXPECT_FALSE(ErrorDe({QStringLiteral("--direccion=0.0.0.0")}).isEmpty());
}

TEST(Opciones, OfABuildWithoutScreensWantNoWindow) {
    EXPECT_EQ(ErrorDe({}, false),
              QStringLiteral("este programa se ha hecho sin pantallas: use --sin-ventana"));
    Opciones opciones;
    QString error;
    EXPECT_TRUE(LeerOpciones({kSinVentana}, false, opciones, error));
    EXPECT_TRUE(LeerOpciones({QStringLiteral("--saldo")}, false, opciones, error));
}

} // namespace
} // namespace zv::simulador
