// The single-byte code page.
#include "platform/CodePage.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(CodePage, WritesSpanishAndTheEuroInOneByteEach) {
    EXPECT_EQ(ACodePage(u"AÑADIR ¿qué? 12,50 €"), QByteArray("A\xD1"
                                                             "ADIR \xBFqu\xE9? 12,50 \x80"));
    EXPECT_EQ(DeCodePage("\xD1\x80\xBF"), u"Ñ€¿"_s);
}

TEST(CodePage, EveryByteComesBackAsItWas) {
    QByteArray todos;
    for (int i = 0; i < 256; ++i) {
        todos.append(static_cast<char>(i));
    }
    EXPECT_EQ(ACodePage(DeCodePage(todos)), todos);
}

TEST(CodePage, WritesAQuestionMarkForEachCharacterItLacks) {
    EXPECT_EQ(ACodePage(u"aΩb"), QByteArray("a?b"));
    EXPECT_EQ(ACodePage(u"a\U0001F4B6b"), QByteArray("a?b"));
    const QString suelto = u"a"_s + QChar(0xD83D) + u"b"_s;
    EXPECT_EQ(ACodePage(suelto), QByteArray("a?b"));
}

TEST(CodePage, EmptyStaysEmpty) {
    EXPECT_TRUE(ACodePage(u"").isEmpty());
    EXPECT_TRUE(DeCodePage(QByteArray()).isEmpty());
}

} // namespace
} // namespace zv
