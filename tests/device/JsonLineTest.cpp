#include "device/gateway/JsonLine.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(Rpc, WritesARequestOnOneLine) {
    EXPECT_EQ(
        CodificarPeticion(7, u"pay.start"_s, {{u"opId"_s, u"a\nb"_s}, {u"value"_s, 2147483647}}),
        "{\"id\":7,\"jsonrpc\":\"2.0\",\"method\":\"pay.start\","
        "\"params\":{\"opId\":\"a\\nb\",\"value\":2147483647}}\n");
    EXPECT_EQ(CodificarPeticion(8, u"ping"_s, {}),
              "{\"id\":8,\"jsonrpc\":\"2.0\",\"method\":\"ping\"}\n");
}

TEST(Rpc, ReadsAnswersErrorsAndNotifications) {
    const auto respuesta = DescodificarRpc("{\"jsonrpc\":\"2.0\",\"id\":3,\"result\":{\"a\":1}}\r");
    ASSERT_TRUE(respuesta);
    EXPECT_EQ(respuesta->kind, RpcMessage::Kind::Respuesta);
    EXPECT_EQ(respuesta->id, 3);
    EXPECT_EQ(respuesta->resultado.toObject().value(u"a"_s).toInt(), 1);

    const auto error =
        DescodificarRpc("{\"id\":4,\"error\":{\"code\":-32020,\"message\":\"Puerta\","
                        "\"data\":{\"errorCode\":31}}}");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->kind, RpcMessage::Kind::Error);
    EXPECT_EQ(error->codigo, -32020);
    EXPECT_EQ(error->mensaje, u"Puerta"_s);
    EXPECT_EQ(error->datos.value(u"errorCode"_s).toInt(), 31);

    const auto aviso = DescodificarRpc("{\"method\":\"op.result\",\"params\":{\"opId\":\"x\"}}");
    ASSERT_TRUE(aviso);
    EXPECT_EQ(aviso->kind, RpcMessage::Kind::Notificacion);
    EXPECT_EQ(aviso->metodo, u"op.result"_s);
    EXPECT_EQ(aviso->params.value(u"opId"_s).toString(), u"x"_s);

    const auto nulo = DescodificarRpc("{\"id\":5,\"result\":null}");
    ASSERT_TRUE(nulo);
    EXPECT_EQ(nulo->kind, RpcMessage::Kind::Respuesta);
    EXPECT_TRUE(nulo->resultado.isNull());
}

TEST(Rpc, IsNoMessageWithoutAJsonObject) {
    for (const char* linea : {"", "hola", "[1]", "7", "{\"a\":", "{} {}", "\xff\xfe"}) {
        EXPECT_FALSE(DescodificarRpc(linea)) << linea;
    }
}

TEST(Rpc, LeavesAsideWhatIsNotForAClient) {
    for (const char* linea :
         {"{}", "{\"id\":null,\"error\":{\"code\":-32700}}", "{\"id\":\"3\",\"result\":1}",
          "{\"id\":1.5,\"result\":1}", "{\"id\":1e300,\"result\":1}",
          "{\"id\":1,\"method\":\"ping\"}", "{\"id\":9}"}) {
        const auto mensaje = DescodificarRpc(linea);
        ASSERT_TRUE(mensaje) << linea;
        EXPECT_EQ(mensaje->kind, RpcMessage::Kind::Ajeno) << linea;
    }
}

} // namespace
} // namespace zv
