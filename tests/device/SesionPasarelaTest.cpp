// The socket of a session comes from whoever makes the session.
#include "device/SesionPasarela.h"

#include <QTcpSocket>

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(SesionPasarela, AsksItsMakerForASocketAtEachConnection) {
    int hechos = 0;
    SesionPasarela sesion([&hechos] {
        ++hechos;
        return std::make_unique<QTcpSocket>();
    });
    EXPECT_EQ(hechos, 0);
    sesion.Abrir({QStringLiteral("127.0.0.1"), 1});
    sesion.Abrir({QStringLiteral("127.0.0.1"), 1});
    EXPECT_EQ(hechos, 2);
}

} // namespace
} // namespace zv
