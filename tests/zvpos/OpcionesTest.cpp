// The command line: what is taken, what is refused, and in which words.
#include "zvpos/Opciones.h"

#include <QByteArray>

#include <gtest/gtest.h>

using namespace zv::zvpos;

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
        Leer({QStringLiteral("cobrar"), QStringLiteral("T 1"), QStringLiteral("1250"),
              QStringLiteral("--id2"), QStringLiteral("A"), QStringLiteral("--caja"),
              QStringLiteral("3"), QStringLiteral("--terminal=TPV1"), QStringLiteral("--vendedor"),
              QStringLiteral("María"), QStringLiteral("--formapago"), QStringLiteral("EFECTIVO"),
              QStringLiteral("--servidor"), QStringLiteral("caja2"), QStringLiteral("--puerto"),
              QStringLiteral("9"), QStringLiteral("--plazo"), QStringLiteral("70")});
    EXPECT_EQ(opciones.orden, Orden::Cobrar);
    EXPECT_EQ(opciones.venta.id, QStringLiteral("T 1"));
    EXPECT_EQ(opciones.venta.importe, 1250);
    EXPECT_EQ(opciones.venta.id2, QStringLiteral("A"));
    EXPECT_EQ(opciones.venta.caja, 3);
    EXPECT_EQ(opciones.venta.terminal, QStringLiteral("TPV1"));
    EXPECT_EQ(opciones.venta.vendedor, QStringLiteral("María"));
    EXPECT_EQ(opciones.venta.formaPago, QStringLiteral("EFECTIVO"));
    EXPECT_EQ(opciones.servidor, QStringLiteral("caja2"));
    EXPECT_EQ(opciones.puerto, 9);
    EXPECT_EQ(opciones.plazoMs, 70);
}

TEST(OpcionesZvpos, WhatIsLeftOut) {
    const Opciones opciones = Leer("estado T1");
    EXPECT_EQ(opciones.orden, Orden::Estado);
    EXPECT_EQ(opciones.servidor, QStringLiteral("127.0.0.1"));
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
    EXPECT_EQ(Leer("estado -- -A7").venta.id, QStringLiteral("-A7"));
    EXPECT_EQ(Leer("estado -- --help").venta.id, QStringLiteral("--help"));
    EXPECT_EQ(Leer("cobrar -7 5").venta.id, QStringLiteral("-7"));
    EXPECT_EQ(Rechazo("estado -A7"), "opción desconocida \"-A7\" (delante de un texto que empieza "
                                     "por - se escribe --)");
    EXPECT_EQ(Leer({QStringLiteral("cobrar"), QStringLiteral("T1"), QStringLiteral("5"),
                    QStringLiteral("--id2=-B")})
                  .venta.id2,
              QStringLiteral("-B"));
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
        const std::string error = Rechazo({QStringLiteral("cobrar"), QStringLiteral("--"),
                                           QStringLiteral("T1"), QString::fromUtf8(importe)});
        EXPECT_EQ(error, std::string("el importe \"") + importe +
                             "\" no es un número entero de unidades menores (12,50 € se escribe "
                             "1250)");
    }
    EXPECT_NE(Rechazo({QStringLiteral("cobrar"), QStringLiteral("T1"), QString()})
                  .find("no es un número entero"),
              std::string::npos);
    EXPECT_NE(Rechazo({QStringLiteral("cobrar"), QStringLiteral("T1"), QStringLiteral(" 5")})
                  .find("no es un número entero"),
              std::string::npos);
}

TEST(OpcionesZvpos, FieldsThatTheLinkCannotCarry) {
    const auto conId2 = [](const QString& id2) {
        return QStringList{QStringLiteral("cobrar"), QStringLiteral("T1"), QStringLiteral("5"),
                           QStringLiteral("--id2=") + id2};
    };
    EXPECT_EQ(Rechazo(conId2(QStringLiteral("a|b"))), "--id2 no puede llevar el carácter |");
    for (const QString& mala : {QStringLiteral("a\n"), QStringLiteral("a\r"), QStringLiteral("\t"),
                                QStringLiteral("\x7f"), QStringLiteral("\u0081")}) {
        EXPECT_EQ(Rechazo(conId2(mala)), "--id2 no puede llevar saltos de línea ni otros "
                                         "caracteres de control");
    }
    for (const QString& mala : {QStringLiteral("Łódź"), QStringLiteral("🙂"),
                                QStringLiteral("\u2028"), QStringLiteral("\ufffd")}) {
        EXPECT_EQ(Rechazo(conId2(mala)), "--id2 lleva caracteres que el enlace no puede "
                                         "transmitir (Windows-1252)");
    }
    EXPECT_EQ(Leer(conId2(QStringLiteral("ñÁ€“?"))).venta.id2, QStringLiteral("ñÁ€“?"));
}

TEST(OpcionesZvpos, EveryTextIsLookedAt) {
    const QString mala = QStringLiteral("a|b");
    for (const char* const campo : {"id2", "terminal", "vendedor", "formapago"}) {
        EXPECT_EQ(Rechazo({QStringLiteral("cobrar"), QStringLiteral("T1"), QStringLiteral("5"),
                           QStringLiteral("--%1=%2").arg(QLatin1String(campo), mala)}),
                  std::string("--") + campo + " no puede llevar el carácter |");
    }
    for (const char* const orden : {"estado", "esperar --segundos=1", "cobrar --caja=1 -- "}) {
        QStringList argumentos = Trocear(orden) << mala;
        if (argumentos.first() == QLatin1String("cobrar"))
            argumentos << QStringLiteral("5");
        EXPECT_EQ(Rechazo(argumentos), "ID no puede llevar el carácter |");
    }
}

TEST(OpcionesZvpos, TextsLongerThanTheColumns) {
    const QString justa(50, QLatin1Char('x'));
    EXPECT_EQ(Leer({QStringLiteral("estado"), justa}).venta.id, justa);
    EXPECT_EQ(Rechazo({QStringLiteral("estado"), justa + QLatin1Char('x')}),
              "ID tiene 51 caracteres y caben 50");
    EXPECT_EQ(Rechazo({QStringLiteral("cobrar"), QStringLiteral("T1"), QStringLiteral("5"),
                       QStringLiteral("--vendedor"), justa + QLatin1Char('x')}),
              "--vendedor tiene 51 caracteres y caben 50");
}

TEST(OpcionesZvpos, AccentsInTwoCharactersBecomeOne) {
    EXPECT_EQ(Leer({QStringLiteral("estado"), QStringLiteral("nin\u0303o")}).venta.id,
              QStringLiteral("ni\u00f1o"));
}

TEST(OpcionesZvpos, IncompleteOrders) {
    EXPECT_EQ(Rechazo(""), "falta la orden: cobrar, estado o esperar");
    EXPECT_EQ(Rechazo("pagar T1 5"), "la orden es cobrar, estado o esperar, no \"pagar\"");
    EXPECT_EQ(Rechazo("estado"), "falta el ID de la venta");
    EXPECT_EQ(Rechazo({QStringLiteral("estado"), QString()}), "falta el ID de la venta");
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
    EXPECT_EQ(Rechazo({QStringLiteral("estado"), QStringLiteral("T1"), QStringLiteral("--puerto"),
                       QStringLiteral(" 9")}),
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
        EXPECT_TRUE(ayuda.startsWith(QStringLiteral("Uso: zvpos cobrar ID IMPORTE")));
        for (int codigo = 0; codigo <= 6; ++codigo)
            EXPECT_TRUE(ayuda.contains(QStringLiteral("\n  %1  ").arg(codigo))) << codigo;
        for (const QString& renglon : ayuda.split(QLatin1Char('\n')))
            EXPECT_LE(renglon.size(), 90) << renglon.toStdString();
    }
    EXPECT_EQ(Leer("--version").aviso, QStringLiteral("zvpos %1.%2.%3\n")
                                           .arg(ZV_VERSION_MAJOR)
                                           .arg(ZV_VERSION_MINOR)
                                           .arg(ZV_VERSION_REVISION));
}

} // namespace
