// A stream of bytes comes in pieces of any size and leaves in lines.
#include "platform/LineSplitter.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(LineSplitter, HoldsHalfALineUntilTheRestComes) {
    LineSplitter cortador;
    cortador.Anadir("{\"a\":");
    EXPECT_FALSE(cortador.Siguiente());
    cortador.Anadir("1}");
    EXPECT_FALSE(cortador.Siguiente());
    cortador.Anadir("\n");
    EXPECT_EQ(cortador.Siguiente().value(), "{\"a\":1}");
    EXPECT_FALSE(cortador.Siguiente());
}

TEST(LineSplitter, CutsManyLinesOfOnePacket) {
    LineSplitter cortador;
    cortador.Anadir("uno\ndos\n\ntr");
    EXPECT_EQ(cortador.Siguiente().value(), "uno");
    EXPECT_EQ(cortador.Siguiente().value(), "dos");
    EXPECT_EQ(cortador.Siguiente().value(), "");
    EXPECT_FALSE(cortador.Siguiente());
    cortador.Anadir("es\n");
    EXPECT_EQ(cortador.Siguiente().value(), "tres");
}

TEST(LineSplitter, TakesTheLongestLineAllowed) {
    LineSplitter cortador;
    cortador.Anadir(QByteArray(LineSplitter::kMaxLinea - 1, 'x'));
    EXPECT_FALSE(cortador.Siguiente());
    EXPECT_FALSE(cortador.Desbordado());
    cortador.Anadir("\ny\n");
    EXPECT_EQ(cortador.Siguiente().value().size(), LineSplitter::kMaxLinea - 1);
    EXPECT_EQ(cortador.Siguiente().value(), "y");
}

TEST(LineSplitter, RefusesALongerLineAndAllThatFollows) {
    LineSplitter cortador;
    cortador.Anadir(QByteArray(LineSplitter::kMaxLinea, 'x'));
    EXPECT_FALSE(cortador.Siguiente());
    EXPECT_TRUE(cortador.Desbordado());
    cortador.Anadir("\n{}\n");
    EXPECT_FALSE(cortador.Siguiente());
    cortador.Vaciar();
    cortador.Anadir("{}\n");
    EXPECT_EQ(cortador.Siguiente().value(), "{}");
}

TEST(LineSplitter, RefusesALongLineThatComesWhole) {
    LineSplitter cortador;
    cortador.Anadir("corta\n" + QByteArray(LineSplitter::kMaxLinea, 'x') + '\n');
    EXPECT_EQ(cortador.Siguiente().value(), "corta");
    EXPECT_FALSE(cortador.Siguiente());
    EXPECT_TRUE(cortador.Desbordado());
}

} // namespace
} // namespace zv
