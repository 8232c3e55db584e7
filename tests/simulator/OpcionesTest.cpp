// The command line: defaults, and wrong options told in plain words.
#include "simulator/Opciones.h"

#include "platform/StringLiterals.h"

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

const QString kSinVentana = u"--sin-ventana"_s;

TEST(Opciones, HaveTheirDefaults) {
    const Opciones o = Leidas({});
    EXPECT_EQ(o.puerto, 16510);
    EXPECT_TRUE(o.ventana);
    EXPECT_FALSE(o.saldo);
    EXPECT_EQ(o.cliente.Habito(), Guion::Manual);
    EXPECT_EQ(o.ritmo, 50);
    EXPECT_EQ(o.cajones.monedas, 5000);
    EXPECT_EQ(o.cajones.billetes, 2000);
    EXPECT_TRUE(o.fallos.Vacio());
    EXPECT_TRUE(o.traza.isEmpty());
    EXPECT_TRUE(o.carpeta.endsWith(u"/ZVSimulador"_s));
}

TEST(Opciones, WithoutAWindowRunFaster) {
    EXPECT_EQ(Leidas({kSinVentana}).ritmo, 2);
    EXPECT_EQ(Leidas({kSinVentana, u"--ritmo"_s, u"0"_s}).ritmo, 0);
}

TEST(Opciones, AreRead) {
    const Opciones o =
        Leidas({u"--puerto=0"_s, u"--carpeta=/x"_s, u"--cliente"_s, u"exacto,cambio=500"_s,
                u"--fallo=cobro:atasco"_s, u"--saldo"_s, u"--cajones=7"_s, u"--traza=/t"_s});
    Operacion cambio;
    cambio.metodo = Metodo::Cambio;
    EXPECT_EQ(o.puerto, 0);
    EXPECT_EQ(o.carpeta, u"/x"_s);
    EXPECT_EQ(o.cliente.Habito(), Guion::Exacto);
    EXPECT_EQ(o.cliente.Siguiente(cambio, 0).valor, 500);
    EXPECT_FALSE(o.fallos.Vacio());
    EXPECT_TRUE(o.saldo);
    EXPECT_EQ(o.cajones.monedas, 7);
    EXPECT_EQ(o.cajones.billetes, 7);
    EXPECT_EQ(o.traza, u"/t"_s);
}

TEST(Opciones, HelpAndVersionAreTextsToPrint) {
    const QString ayuda = Leidas({u"--help"_s}).aviso;
    for (const char* opcion : {"--puerto", "--carpeta", "--sin-ventana", "--cliente", "--ritmo",
                               "--fallo", "--cajones", "--traza", "--saldo"}) {
        EXPECT_TRUE(ayuda.contains(QLatin1String(opcion))) << opcion;
    }
    EXPECT_TRUE(Leidas({u"--version"_s}).aviso.startsWith(u"ZVSimulador "_s));
}

TEST(Opciones, ThatAreWrongAreToldInPlainWords) {
    EXPECT_EQ(ErrorDe({u"--puerto=70000"_s}), u"--puerto va de 0 a 65535, no \"70000\""_s);
    EXPECT_EQ(ErrorDe({u"--puerto=-1"_s}), u"--puerto va de 0 a 65535, no \"-1\""_s);
    EXPECT_EQ(ErrorDe({u"--ritmo=x"_s}), u"--ritmo va de 0 a 60000, no \"x\""_s);
    EXPECT_EQ(ErrorDe({u"--cajones=0"_s}), u"--cajones va de 1 a 100000, no \"0\""_s);
    EXPECT_EQ(ErrorDe({u"--cliente=rico"_s}),
              u"--cliente \"rico\": empieza por exacto, redondeo o manual"_s);
    EXPECT_EQ(ErrorDe({u"--fallo=x"_s}), u"fallo \"x\": la forma es punto[#n]:acción[=valor]"_s);
    EXPECT_EQ(ErrorDe({u"suelto"_s}), u"sobra \"suelto\""_s);
    EXPECT_FALSE(ErrorDe({u"--direccion=0.0.0.0"_s}).isEmpty());
}

TEST(Opciones, OfABuildWithoutScreensWantNoWindow) {
    EXPECT_EQ(ErrorDe({}, false), u"este programa se ha hecho sin pantallas: use --sin-ventana"_s);
    Opciones opciones;
    QString error;
    EXPECT_TRUE(LeerOpciones({kSinVentana}, false, opciones, error));
    EXPECT_TRUE(LeerOpciones({u"--saldo"_s}, false, opciones, error));
}

} // namespace
} // namespace zv::simulador
