// The command line: what is taken, what is refused, and in which words.
#include "zvpos/Opciones.h"

#include <QByteArray>

#include <gtest/gtest.h>

using namespace zv::zvpos;
using namespace Qt::StringLiterals;

namespace {

QStringList Trocear(const char* linea) {
    return QString::fromUtf8(linea).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

Opciones Leer(const QStringList& argumentos) {
    Opciones opciones;
    QString error;
    EXPECT_TRUE(LeerOpciones(argumentos, opciones, error)) << error.toStdString();
    return opciones;
}
Opciones Leer(const char* linea) {
    return Leer(Trocear(linea));
}

std::string Rechazo(const QStringList& argumentos) {
    Opciones opciones;
    QString error;
    EXPECT_FALSE(LeerOpciones(argumentos, opciones, error))
        << argumentos.join(QLatin1Char(' ')).toStdString();
    return error.toStdString();
}
std::string Rechazo(const char* linea) {
    return Rechazo(Trocear(linea));
}

TEST(OpcionesZvpos, CobrarConTodo) {
    const Opciones opciones =
        Leer({u"cobrar"_s, u"T 1"_s, u"1250"_s, u"--id2"_s, u"A"_s, u"--caja"_s, u"3"_s,
              u"--terminal=TPV1"_s, u"--vendedor"_s, u"María"_s, u"--formapago"_s, u"EFECTIVO"_s,
              u"--servidor"_s, u"caja2"_s, u"--puerto"_s, u"9"_s, u"--plazo"_s, u"70"_s});
    EXPECT_EQ(opciones.orden, Orden::Cobrar);
    EXPECT_EQ(opciones.venta.id, u"T 1"_s);
    EXPECT_EQ(opciones.venta.importe, 1250);
    EXPECT_EQ(opciones.venta.id2, u"A"_s);
    EXPECT_EQ(opciones.venta.caja, 3);
    EXPECT_EQ(opciones.venta.terminal, u"TPV1"_s);
    EXPECT_EQ(opciones.venta.vendedor, u"María"_s);
    EXPECT_EQ(opciones.venta.formaPago, u"EFECTIVO"_s);
    EXPECT_EQ(opciones.servidor, u"caja2"_s);
    EXPECT_EQ(opciones.puerto, 9);
    EXPECT_EQ(opciones.plazoMs, 70);
}

TEST(OpcionesZvpos, WhatIsLeftOut) {
    const Opciones opciones = Leer("estado T1");
    EXPECT_EQ(opciones.orden, Orden::Estado);
    EXPECT_EQ(opciones.servidor, u"127.0.0.1"_s);
    EXPECT_EQ(opciones.puerto, 16501);
    EXPECT_EQ(opciones.plazoMs, 5000);
    EXPECT_TRUE(opciones.aviso.isEmpty());
    const Opciones cobro = Leer("cobrar T1 5");
    EXPECT_EQ(cobro.venta.caja, 0);
    EXPECT_TRUE(cobro.venta.id2.isEmpty());
}

TEST(OpcionesZvpos, RefundIsAnAmountAndNoOption) {
    EXPECT_EQ(Leer("cobrar T1 -450").venta.importe, -450);
    EXPECT_EQ(Leer("cobrar -- T1 -450").venta.importe, -450);
    EXPECT_EQ(Leer("cobrar T1 -- -450").venta.importe, -450);
    EXPECT_EQ(Leer("--puerto 9 cobrar T1 -450 --caja -3").venta.importe, -450);
    EXPECT_EQ(Leer("cobrar T1 5 --caja -3").venta.caja, -3);
    EXPECT_EQ(Leer("cobrar T1 +450").venta.importe, 450);
}

TEST(OpcionesZvpos, IdWithADash) {
    EXPECT_EQ(Leer("estado -- -A7").venta.id, u"-A7"_s);
    EXPECT_EQ(Leer("estado -- --help").venta.id, u"--help"_s);
    EXPECT_EQ(Leer("cobrar -7 5").venta.id, u"-7"_s);
    EXPECT_EQ(Rechazo("estado -A7"), "opción desconocida \"-A7\" (delante de un texto que empieza "
                                     "por - se escribe --)");
    EXPECT_EQ(Leer({u"cobrar"_s, u"T1"_s, u"5"_s, u"--id2=-B"_s}).venta.id2, u"-B"_s);
}

TEST(OpcionesZvpos, AmountsUpToTheEdgesOf32Bits) {
    EXPECT_EQ(Leer("cobrar T1 2147483647").venta.importe, 2147483647);
    EXPECT_EQ(Leer("cobrar T1 -2147483648").venta.importe, -2147483647 - 1);
    EXPECT_EQ(Leer("cobrar T1 0").venta.importe, 0);
    EXPECT_EQ(Leer("cobrar T1 -0").venta.importe, 0);
    EXPECT_EQ(Rechazo("cobrar T1 2147483648"),
              "el importe 2147483648 no cabe: va de -2147483648 a 2147483647");
    EXPECT_EQ(Rechazo("cobrar T1 -2147483649"),
              "el importe -2147483649 no cabe: va de -2147483648 a 2147483647");
    EXPECT_NE(Rechazo("cobrar T1 99999999999999999999").find("no cabe"), std::string::npos);
}

TEST(OpcionesZvpos, AmountsThatAreNoWholeNumbers) {
    for (const char* const importe :
         {"12,50", "12.50", "abc", "1e3", "0x10", "1_000", "-", "--5", "١٢", "1250€"}) {
        const std::string error =
            Rechazo({u"cobrar"_s, u"--"_s, u"T1"_s, QString::fromUtf8(importe)});
        EXPECT_EQ(error, std::string("el importe \"") + importe +
                             "\" no es un número entero de unidades menores (12,50 € se escribe "
                             "1250)");
    }
    EXPECT_NE(Rechazo({u"cobrar"_s, u"T1"_s, QString()}).find("no es un número entero"),
              std::string::npos);
    EXPECT_NE(Rechazo({u"cobrar"_s, u"T1"_s, u" 5"_s}).find("no es un número entero"),
              std::string::npos);
}

TEST(OpcionesZvpos, FieldsThatTheLinkCannotCarry) {
    const auto conId2 = [](const QString& id2) {
        return QStringList{u"cobrar"_s, u"T1"_s, u"5"_s, u"--id2="_s + id2};
    };
    EXPECT_EQ(Rechazo(conId2(u"a|b"_s)), "--id2 no puede llevar el carácter |");
    for (const QString& mala : {u"a\n"_s, u"a\r"_s, u"\t"_s, u"\x7f"_s, u"\u0081"_s}) {
        EXPECT_EQ(Rechazo(conId2(mala)), "--id2 no puede llevar saltos de línea ni otros "
                                         "caracteres de control");
    }
    for (const QString& mala : {u"Łódź"_s, u"🙂"_s, u"\u2028"_s, u"\ufffd"_s}) {
        EXPECT_EQ(Rechazo(conId2(mala)), "--id2 lleva caracteres que el enlace no puede "
                                         "transmitir (Windows-1252)");
    }
    EXPECT_EQ(Leer(conId2(u"ñÁ€“?"_s)).venta.id2, u"ñÁ€“?"_s);
}

TEST(OpcionesZvpos, EveryTextIsLookedAt) {
    const QString mala = u"a|b"_s;
    for (const char* const campo : {"id2", "terminal", "vendedor", "formapago"}) {
        EXPECT_EQ(
            Rechazo({u"cobrar"_s, u"T1"_s, u"5"_s, u"--%1=%2"_s.arg(QLatin1String(campo), mala)}),
            std::string("--") + campo + " no puede llevar el carácter |");
    }
    for (const char* const orden : {"estado", "esperar --segundos=1", "cobrar --caja=1 -- "}) {
        QStringList argumentos = Trocear(orden) << mala;
        if (argumentos.first() == QLatin1String("cobrar")) {
            argumentos << u"5"_s;
        }
        EXPECT_EQ(Rechazo(argumentos), "ID no puede llevar el carácter |");
    }
}

TEST(OpcionesZvpos, TextsLongerThanTheColumns) {
    const QString justa(50, QLatin1Char('x'));
    EXPECT_EQ(Leer({u"estado"_s, justa}).venta.id, justa);
    EXPECT_EQ(Rechazo({u"estado"_s, justa + QLatin1Char('x')}),
              "ID tiene 51 caracteres y caben 50");
    EXPECT_EQ(Rechazo({u"cobrar"_s, u"T1"_s, u"5"_s, u"--vendedor"_s, justa + QLatin1Char('x')}),
              "--vendedor tiene 51 caracteres y caben 50");
}

TEST(OpcionesZvpos, AccentsInTwoCharactersBecomeOne) {
    EXPECT_EQ(Leer({u"estado"_s, u"nin\u0303o"_s}).venta.id, u"ni\u00f1o"_s);
}

TEST(OpcionesZvpos, IncompleteOrders) {
    EXPECT_EQ(Rechazo(""), "falta la orden: cobrar, estado o esperar");
    EXPECT_EQ(Rechazo("pagar T1 5"), "la orden es cobrar, estado o esperar, no \"pagar\"");
    EXPECT_EQ(Rechazo("estado"), "falta el ID de la venta");
    EXPECT_EQ(Rechazo({u"estado"_s, QString()}), "falta el ID de la venta");
    EXPECT_EQ(Rechazo("cobrar T1"), "falta el importe");
    EXPECT_EQ(Rechazo("cobrar T1 5 6"), "sobra \"6\"");
    EXPECT_EQ(Rechazo("estado T1 T2"), "sobra \"T2\"");
    EXPECT_EQ(Rechazo("esperar T1"), "falta --segundos");
}

TEST(OpcionesZvpos, OptionsThatDoNotBelongOrAreWrong) {
    EXPECT_EQ(Rechazo("estado T1 --id2 A"), "--id2 no va con \"estado\"");
    EXPECT_EQ(Rechazo("cobrar T1 5 --segundos 3"), "--segundos no va con \"cobrar\"");
    EXPECT_EQ(Rechazo("estado T1 --puerto"), "falta el valor de --puerto");
    EXPECT_EQ(Rechazo("cobrar T1 5 --id2 --caja 3"), "falta el valor de --id2");
    EXPECT_EQ(Rechazo("estado T1 --puerto 1 --puerto 2"), "--puerto está repetida");
    EXPECT_EQ(Rechazo("estado T1 --help=1"), "--help no lleva valor");
    EXPECT_EQ(Rechazo("estado T1 --servidor="), "--servidor está vacío");
    EXPECT_NE(Rechazo("estado T1 --prisa").find("opción desconocida \"--prisa\""),
              std::string::npos);
}

TEST(OpcionesZvpos, NumbersHaveRanges) {
    EXPECT_EQ(Leer("estado T1 --puerto 65535").puerto, 65535);
    EXPECT_EQ(Leer("esperar T1 --segundos 0").segundos, 0);
    EXPECT_EQ(Leer("esperar T1 --segundos 86400").segundos, 86400);
    EXPECT_EQ(Rechazo("estado T1 --puerto 0"), "--puerto va de 1 a 65535, no \"0\"");
    EXPECT_EQ(Rechazo("estado T1 --puerto 65536"), "--puerto va de 1 a 65535, no \"65536\"");
    EXPECT_EQ(Rechazo({u"estado"_s, u"T1"_s, u"--puerto"_s, u" 9"_s}),
              "--puerto va de 1 a 65535, no \" 9\"");
    EXPECT_EQ(Rechazo("estado T1 --plazo 0"), "--plazo va de 1 a 600000, no \"0\"");
    EXPECT_EQ(Rechazo("esperar T1 --segundos -1"), "--segundos va de 0 a 86400, no \"-1\"");
    EXPECT_EQ(Rechazo("esperar T1 --segundos 86401"), "--segundos va de 0 a 86400, no \"86401\"");
    EXPECT_EQ(Rechazo("esperar T1 --segundos 1,5"), "--segundos va de 0 a 86400, no \"1,5\"");
    EXPECT_EQ(Rechazo("cobrar T1 5 --caja 2147483648"),
              "--caja va de -2147483648 a 2147483647, no \"2147483648\"");
    EXPECT_EQ(Rechazo("cobrar T1 5 --caja="), "--caja va de -2147483648 a 2147483647, no \"\"");
}

TEST(OpcionesZvpos, HelpAndVersionNeedNothingElse) {
    for (const char* const linea : {"--help", "-h", "estado --help"}) {
        const QString ayuda = Leer(linea).aviso;
        EXPECT_TRUE(ayuda.startsWith(u"Uso: zvpos cobrar ID IMPORTE"_s));
        for (int codigo = 0; codigo <= 6; ++codigo) {
            EXPECT_TRUE(ayuda.contains(u"\n  %1  "_s.arg(codigo))) << codigo;
        }
        for (const QString& renglon : ayuda.split(QLatin1Char('\n'))) {
            EXPECT_LE(renglon.size(), 90) << renglon.toStdString();
        }
    }
    EXPECT_EQ(
        Leer("--version").aviso,
        u"zvpos %1.%2.%3\n"_s.arg(ZV_VERSION_MAJOR).arg(ZV_VERSION_MINOR).arg(ZV_VERSION_REVISION));
}

} // namespace
