// Bytes on the wire, and what each answer means.
#include "zvpos/Mensajes.h"

#include <gtest/gtest.h>

using namespace zv::zvpos;
using namespace Qt::StringLiterals;

namespace {

Venta UnaVenta() {
    return {u"T0001"_s, 1250, u"A"_s, 3, u"TPV1"_s, u"ANA"_s, u"EFECTIVO"_s};
}

struct Esperado {
    Codigo codigo;
    const char* salida;
    bool conError;
};
void Comparar(const Veredicto& veredicto, const Esperado& esperado, const char* que) {
    EXPECT_EQ(veredicto.codigo, esperado.codigo) << que;
    EXPECT_EQ(veredicto.salida, QString::fromUtf8(esperado.salida)) << que;
    EXPECT_EQ(!veredicto.error.isEmpty(), esperado.conError) << que;
}

TEST(MensajesZvpos, SaleWithAllFields) {
    EXPECT_EQ(MensajeCobro(UnaVenta()), QByteArray("C|T0001|1250|A|3|TPV1|ANA|EFECTIVO"));
}

TEST(MensajesZvpos, FieldsAtTheEndThatAreEmptyAreLeftOut) {
    Venta venta;
    venta.id = u"T1"_s;
    venta.importe = -450;
    EXPECT_EQ(MensajeCobro(venta), QByteArray("C|T1|-450"));
    venta.id2 = u"B"_s;
    EXPECT_EQ(MensajeCobro(venta), QByteArray("C|T1|-450|B"));
    venta.id2.clear();
    venta.caja = 7;
    EXPECT_EQ(MensajeCobro(venta), QByteArray("C|T1|-450||7"));
    venta.caja = 0;
    venta.formaPago = u"0"_s;
    EXPECT_EQ(MensajeCobro(venta), QByteArray("C|T1|-450||0|||0"));
}

TEST(MensajesZvpos, AnId2OfZeroStays) {
    Venta venta = UnaVenta();
    venta = {venta.id, 5, u"0"_s, 0, {}, {}, {}};
    EXPECT_EQ(MensajeCobro(venta), QByteArray("C|T0001|5|0"));
}

TEST(MensajesZvpos, TextIsWindows1252) {
    Venta venta;
    venta.id = u"Ñ€"_s;
    EXPECT_EQ(MensajeCobro(venta), QByteArray("C|\xd1\x80|0"));
    EXPECT_EQ(MensajeEstado(venta.id), QByteArray("S|\xd1\x80"));
}

TEST(MensajesZvpos, NoKnownAnswerIsTheBeginningOfAnother) {
    for (const auto& todas : {RespuestasCobro(), RespuestasEstado()}) {
        for (const QByteArray& una : todas) {
            for (const QByteArray& otra : todas) {
                EXPECT_TRUE(una == otra || !otra.startsWith(una))
                    << una.constData() << " " << otra.constData();
            }
        }
    }
}

TEST(MensajesZvpos, AnAnswerIsWholeWhenItIsKnown) {
    const QList<QByteArray> conocidas = RespuestasEstado();
    for (const QByteArray& una : conocidas) {
        EXPECT_EQ(MirarRespuesta(una, conocidas), Avance::Completa) << una.constData();
        for (qsizetype i = 0; i < una.size(); ++i) {
            EXPECT_EQ(MirarRespuesta(una.left(i), conocidas), Avance::Empezada) << i;
        }
    }
    EXPECT_EQ(MirarRespuesta("OK|VACIADO", conocidas), Avance::Otra);
    EXPECT_EQ(MirarRespuesta("OK|PENDINGX", conocidas), Avance::Otra);
    EXPECT_EQ(MirarRespuesta("HTTP/1.1 400", conocidas), Avance::Otra);
}

TEST(MensajesZvpos, AnswersToASale) {
    const struct {
        const char* respuesta;
        Esperado esperado;
    } casos[] = {
        {"OK|Added", {Bien, "Added", false}},
        {"NOK|Already exists", {YaExiste, "Already exists", true}},
        {"NOK|Amount too big", {NoAceptada, "Amount too big", true}},
        {"NOK|Invalid ID", {NoAceptada, "Invalid ID", true}},
        {"NOK|Failed", {NoAceptada, "Failed", true}},
        {"NOK|Closed", {NoAceptada, "Closed", true}},
        {"OK|PENDING", {SinRespuesta, "", true}},
        {"OK|OK", {SinRespuesta, "", true}},
        {"Added", {SinRespuesta, "", true}},
        {"", {SinRespuesta, "", true}},
    };
    for (const auto& caso : casos) {
        Comparar(JuzgarCobro(QString::fromUtf8(caso.respuesta)), caso.esperado, caso.respuesta);
    }
}

TEST(MensajesZvpos, StatesOfASale) {
    const struct {
        const char* respuesta;
        Esperado esperado;
    } casos[] = {
        {"OK|OK", {Bien, "OK", false}},
        {"OK|PENDING", {Pendiente, "PENDING", false}},
        {"OK|ERROR", {NoAceptada, "ERROR", false}},
        {"OK|CANCEL", {NoAceptada, "CANCEL", false}},
        {"OK|REENVIADO", {NoAceptada, "REENVIADO", false}},
        {"OK|Otro más", {NoAceptada, "Otro más", false}},
        {"NOK|Not found", {Desconocida, "Not found", true}},
        {"OK|Added", {SinRespuesta, "", true}},
        {"NOK|Failed", {SinRespuesta, "", true}},
        {"NOK|Closed", {SinRespuesta, "", true}},
        {"ok|OK", {SinRespuesta, "", true}},
        {"", {SinRespuesta, "", true}},
    };
    for (const auto& caso : casos) {
        Comparar(JuzgarEstado(QString::fromUtf8(caso.respuesta)), caso.esperado, caso.respuesta);
    }
}

TEST(MensajesZvpos, AMonitorThatCouldNotLookIsToldAsSuch) {
    EXPECT_EQ(JuzgarEstado(u"NOK|Failed"_s).error,
              u"el monitor no ha podido mirar en su base de datos"_s);
}

TEST(MensajesZvpos, AStateIsPrintedOnOneLine) {
    EXPECT_EQ(JuzgarEstado(u"OK|A\r\nB"_s).salida, u"A  B"_s);
    EXPECT_TRUE(JuzgarEstado(u"HTTP\nx"_s).error.contains(u"HTTP x"_s));
}

} // namespace
