// The scripted device tells on a program that strays from the script.
#include "support/DeviceGuion.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(DeviceGuion, AnswersTheExpectedCallsInOrder) {
    DeviceGuion guion;
    guion.EsperaConnect();
    guion.EsperaCharge(1000, 1500, 0, FinGuion::Error(12, u"Atasco"_s));
    bool bien = false;
    guion.Connect(bien);
    EXPECT_TRUE(bien);
    qint32 entra = 0;
    qint32 sale = -1;
    guion.Charge(1000, entra, sale, bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(entra, 1500);
    EXPECT_EQ(sale, 0);
    EXPECT_EQ(guion.ErrorCode(), 12);
    EXPECT_EQ(guion.ErrorMessage(), u"Atasco"_s);
    EXPECT_EQ(guion.Llamadas(), QStringList({u"Connect()"_s, u"Charge(1000)"_s}));
    EXPECT_TRUE(guion.Agotado());
}

TEST(DeviceGuion, FailsTheTestOnAnUnexpectedCall) {
    EXPECT_NONFATAL_FAILURE(
        {
            DeviceGuion guion;
            bool bien = true;
            guion.Connect(bien);
            EXPECT_FALSE(bien);
        },
        "expected was nothing");
}

TEST(DeviceGuion, FailsTheTestOnAnAnswerNobodyAskedFor) {
    EXPECT_NONFATAL_FAILURE(
        {
            DeviceGuion guion;
            guion.EsperaPay(500, 500);
        },
        "never asked for Pay(500)");
}

TEST(DeviceGuion, KeepsTheErrorWhileLevelsAreReadWithSuccess) {
    DeviceGuion guion;
    guion.PonerTotal(12345);
    guion.PonerError(7, u"Puerta"_s);
    QString noms;
    QString levels;
    bool bien = false;
    guion.GetLevels(2, noms, levels, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(levels, u"12345"_s);
    EXPECT_EQ(guion.ErrorCode(), 7);
    guion.FallarNiveles(2, 9, u"x"_s);
    guion.GetLevels(2, noms, levels, bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(guion.ErrorCode(), 9);
}

} // namespace
} // namespace zv
