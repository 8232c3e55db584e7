// The socket of a session comes from whoever makes the session.
#include "device/gateway/GatewaySession.h"

#include "platform/StringLiterals.h"

#include <QTcpSocket>

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(GatewaySession, AsksItsMakerForASocketAtEachConnection) {
    int hechos = 0;
    GatewaySession sesion([&hechos] {
        ++hechos;
        return std::make_unique<QTcpSocket>();
    });
    EXPECT_EQ(hechos, 0);
    sesion.Abrir({u"127.0.0.1"_s, 1});
    sesion.Abrir({u"127.0.0.1"_s, 1});
    EXPECT_EQ(hechos, 2);
}

} // namespace
} // namespace zv
