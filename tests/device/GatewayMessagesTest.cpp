#include "device/gateway/GatewayMessages.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "support/PasarelaGuion.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace zv {
namespace {

const QString kOp = u"op-1"_s;
const QString kCobro = u"charge.start"_s;

TEST(Direccion, ReadsHostAndPort) {
    struct Caso {
        const char* texto;
        const char* host;
        int puerto;
    };
    for (const Caso& caso : {Caso{"10.0.0.7", "10.0.0.7", 16510}, Caso{" caja-1 ", "caja-1", 16510},
                             Caso{"caja-1:9000", "caja-1", 9000}, Caso{"[::1]:16511", "::1", 16511},
                             Caso{"[fe80::1]", "fe80::1", 16510}, Caso{"::1", "::1", 16510},
                             Caso{"10.0.0.7:65535", "10.0.0.7", 65535}}) {
        const auto direccion = LeerDireccion(QString::fromLatin1(caso.texto));
        ASSERT_TRUE(direccion) << caso.texto;
        EXPECT_EQ(direccion->host, QString::fromLatin1(caso.host));
        EXPECT_EQ(direccion->puerto, caso.puerto);
    }
}

TEST(Direccion, IsNothingWhenItMakesNoSense) {
    for (const char* texto : {"", "  ", ":16510", "caja:", "caja:0", "caja:65536", "caja:abc",
                              "[::1", "[::1]16510", "[]:5", "una caja", "caja:-1"}) {
        EXPECT_FALSE(LeerDireccion(QString::fromLatin1(texto))) << texto;
    }
}

TEST(Estado, ReadsARunningAndAnEndedOperation) {
    const auto marcha = LeerEstado(PasarelaGuion::EnMarcha(kOp, kCobro, 1500, 0));
    ASSERT_TRUE(marcha);
    EXPECT_FALSE(marcha->terminada);
    EXPECT_EQ(marcha->paidIn, 1500);

    const auto hecha = LeerEstado(PasarelaGuion::Hecha(kOp, kCobro, 2000, 750));
    ASSERT_TRUE(hecha);
    EXPECT_TRUE(hecha->terminada);
    EXPECT_TRUE(hecha->ok);
    EXPECT_EQ(hecha->paidOut, 750);

    const auto fallida =
        LeerEstado(PasarelaGuion::Fallida(kOp, kCobro, 12, u"Atasco"_s, 2000, 500));
    ASSERT_TRUE(fallida);
    EXPECT_FALSE(fallida->ok);
    EXPECT_EQ(fallida->errorCode, 12);
    EXPECT_EQ(fallida->errorMessage, u"Atasco"_s);
}

TEST(Estado, TakesAmountsUpToThirtyTwoBitsAndNoMore) {
    EXPECT_EQ(LeerEstado(PasarelaGuion::EnMarcha(kOp, kCobro, 2147483647, 0))->paidIn, 2147483647);
    EXPECT_FALSE(LeerEstado(PasarelaGuion::EnMarcha(kOp, kCobro, 2147483648, 0)));
    EXPECT_FALSE(LeerEstado(PasarelaGuion::EnMarcha(kOp, kCobro, 0, -2147483649)));
}

TEST(Estado, IsNothingWhenAMemberIsMissingOrWrong) {
    const QJsonObject buena = PasarelaGuion::Hecha(kOp, kCobro, 1, 0);
    ASSERT_TRUE(LeerEstado(buena));
    const auto con = [&buena](const char* miembro, const QJsonValue& valor) {
        QJsonObject otra = buena;
        otra.insert(QString::fromLatin1(miembro), valor);
        return LeerEstado(otra);
    };
    EXPECT_FALSE(con("paidIn", QJsonValue::Undefined));
    EXPECT_FALSE(con("paidIn", 1.5));
    EXPECT_FALSE(con("paidIn", u"1"_s));
    EXPECT_FALSE(con("paidOut", QJsonValue::Null));
    EXPECT_FALSE(con("state", u"gone"_s));
    EXPECT_FALSE(con("opId", QString()));
    EXPECT_FALSE(con("ok", 1));
    EXPECT_FALSE(LeerEstado(QJsonValue::Null));
    EXPECT_FALSE(LeerEstado(QJsonArray{}));
}

TEST(Estado, NeedsTheAmountsOfItsMethodWhenItWentWell) {
    QJsonObject cierre = PasarelaGuion::Hecha(kOp, u"cashBox.control"_s, 0, 0);
    EXPECT_FALSE(LeerEstado(cierre));
    cierre.insert(u"coinsValueInCB"_s, 100);
    cierre.insert(u"notesValueInCB"_s, 5000);
    cierre.insert(u"remainingChange"_s, 900);
    const auto estado = LeerEstado(cierre);
    ASSERT_TRUE(estado);
    EXPECT_EQ(estado->coinsValueInCB, 100);
    EXPECT_EQ(estado->notesValueInCB, 5000);
    EXPECT_EQ(estado->remainingChange.value(), 900);

    QJsonObject vaciado = PasarelaGuion::Hecha(kOp, u"box.empty"_s, 0, 0);
    EXPECT_FALSE(LeerEstado(vaciado));
    vaciado.insert(u"value"_s, 34000);
    EXPECT_EQ(LeerEstado(vaciado)->value, 34000);

    // What failed may leave them out.
    const auto fallido =
        LeerEstado(PasarelaGuion::Fallida(kOp, u"cashBox.control"_s, 7, u"x"_s, 0, 0));
    ASSERT_TRUE(fallido);
    EXPECT_FALSE(fallido->remainingChange);
}

TEST(Estado, FitsTheErrorCodeIntoSixteenBitsAndKeepsOneForTheLink) {
    const auto codigo = [](int valor) {
        return LeerEstado(PasarelaGuion::Fallida(kOp, kCobro, valor, {}, 0, 0))->errorCode;
    };
    EXPECT_EQ(codigo(27), 27);
    EXPECT_EQ(codigo(0), 0);
    EXPECT_EQ(codigo(-3), -3);
    EXPECT_EQ(codigo(70000), 32767);
    EXPECT_EQ(codigo(-70000), -32768);
    EXPECT_EQ(codigo(1), errorpasarela::kRechazada);
}

TEST(Estado, TellsItselfForTheLog) {
    EXPECT_EQ(TextoEstado(*LeerEstado(PasarelaGuion::Hecha(kOp, kCobro, 2000, 750))),
              u"charge.start op-1 OK PAIDINVALUE=2000 PAIDOUTVALUE=750 ERRORCODE=0"_s);
    EXPECT_EQ(TextoEstado(*LeerEstado(PasarelaGuion::Fallida(kOp, kCobro, 0, {}, 500, 500))),
              u"charge.start op-1 CANCEL PAIDINVALUE=500 PAIDOUTVALUE=500 ERRORCODE=0"_s);
    EXPECT_EQ(TextoEstado(*LeerEstado(PasarelaGuion::Fallida(kOp, kCobro, -3, u"x"_s, 500, 400))),
              u"charge.start op-1 CANCEL PAIDINVALUE=500 PAIDOUTVALUE=400 ERRORCODE=-3"_s);
    EXPECT_EQ(TextoEstado(*LeerEstado(
                  PasarelaGuion::Fallida(kOp, kCobro, 12, u"Atasco\r\nen la salida"_s, 2000, 500))),
              u"charge.start op-1 ERROR_12 PAIDINVALUE=2000 PAIDOUTVALUE=500 ERRORCODE=12 - "
              "Atasco en la salida"_s);
    EXPECT_EQ(TextoEstado(*LeerEstado(PasarelaGuion::EnMarcha(kOp, kCobro, 5, 0))),
              u"charge.start op-1 EN CURSO PAIDINVALUE=5 PAIDOUTVALUE=0"_s);
    QJsonObject cierre = PasarelaGuion::Hecha(u"a\nb"_s, u"cashBox.control"_s, 1, 2);
    cierre.insert(u"coinsValueInCB"_s, 3);
    cierre.insert(u"notesValueInCB"_s, 4);
    cierre.insert(u"remainingChange"_s, 5);
    EXPECT_EQ(TextoEstado(*LeerEstado(cierre)),
              u"cashBox.control a b OK PAIDINVALUE=1 PAIDOUTVALUE=2 COINSVALUEINCB=3 "
              "NOTESVALUEINCB=4 REMAININGCHANGE=5 ERRORCODE=0"_s);
    QJsonObject vaciado = PasarelaGuion::Hecha(kOp, u"box.empty"_s, 1, 2);
    vaciado.insert(u"value"_s, 3);
    EXPECT_EQ(TextoEstado(*LeerEstado(vaciado)),
              u"box.empty op-1 OK PAIDINVALUE=1 PAIDOUTVALUE=2 VALUE=3 ERRORCODE=0"_s);
}

QJsonObject Hola() {
    return {{u"protocol"_s, 1},
            {u"storeId"_s, u"s"_s},
            {u"decimals"_s, 3},
            {u"multiplier"_s, 255},
            {u"openOp"_s, QJsonValue::Null}};
}

TEST(Saludo, ReadsWhatTheDeviceSaysOfItself) {
    const auto saludo = LeerSaludo(Hola());
    ASSERT_TRUE(saludo);
    EXPECT_EQ(saludo->storeId, u"s"_s);
    EXPECT_EQ(saludo->decimals, 3);
    EXPECT_EQ(saludo->multiplier, 255);
    EXPECT_FALSE(saludo->openOp);

    QJsonObject conAbierta = Hola();
    conAbierta.insert(u"openOp"_s, PasarelaGuion::EnMarcha(kOp, kCobro, 5, 0));
    EXPECT_EQ(LeerSaludo(conAbierta)->openOp->opId, kOp);
}

TEST(Saludo, IsNothingOutsideItsRanges) {
    const auto con = [](const char* miembro, const QJsonValue& valor) {
        QJsonObject otro = Hola();
        otro.insert(QString::fromLatin1(miembro), valor);
        return LeerSaludo(otro).has_value();
    };
    EXPECT_FALSE(con("protocol", 2));
    EXPECT_FALSE(con("storeId", QString()));
    EXPECT_FALSE(con("decimals", 5));
    EXPECT_FALSE(con("decimals", -1));
    EXPECT_FALSE(con("multiplier", 0));
    EXPECT_FALSE(con("multiplier", 256));
    EXPECT_FALSE(con("openOp", 7));
    EXPECT_TRUE(con("openOp", QJsonValue::Undefined));
}

TEST(Niveles, BecomeCommaSeparatedTexts) {
    const auto niveles = LeerNiveles(
        QJsonObject{{u"noms"_s, QJsonArray{1, 2, 500}}, {u"levels"_s, QJsonArray{0, 7, 3}}});
    ASSERT_TRUE(niveles);
    EXPECT_EQ(niveles->noms, u"1,2,500"_s);
    EXPECT_EQ(niveles->levels, u"0,7,3"_s);
    EXPECT_FALSE(LeerNiveles(QJsonObject{{u"noms"_s, QJsonArray{1}}}));
    EXPECT_FALSE(
        LeerNiveles(QJsonObject{{u"noms"_s, QJsonArray{1}}, {u"levels"_s, QJsonArray{u"1"_s}}}));
}

} // namespace
} // namespace zv
