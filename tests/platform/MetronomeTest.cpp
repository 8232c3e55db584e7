// The timer that keeps its rate.
#include "platform/Metronome.h"

#include "support/Esperas.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace zv::test {

TEST(MetronomeTest, TicksOnlyWhileItRuns) {
    int tics = 0;
    Metronome metronomo(1, [&] { ++tics; });
    EXPECT_FALSE(metronomo.Activo());
    metronomo.Arrancar();
    EXPECT_TRUE(metronomo.Activo());
    ASSERT_TRUE(Esperar([&] { return tics >= 3; }));
    metronomo.Parar();
    EXPECT_FALSE(metronomo.Activo());
    const int antes = tics;
    int otros = 0;
    Metronome otro(1, [&] { ++otros; });
    otro.Arrancar();
    ASSERT_TRUE(Esperar([&] { return otros >= 20; }));
    EXPECT_EQ(tics, antes);
    metronomo.Arrancar();
    EXPECT_TRUE(Esperar([&] { return tics > antes; }));
}

TEST(MetronomeTest, StartedAgainWhileItRunsItKeepsItsBeat) {
    int tics = 0;
    Metronome metronomo(150, [&] { ++tics; });
    metronomo.Arrancar();
    // Far more often than it beats, also on a machine that has much to do.
    EXPECT_TRUE(Esperar([&] {
        metronomo.Arrancar();
        return tics >= 2;
    }));
}

TEST(MetronomeTest, StoppedByItsOwnTickItIsSilentAtOnce) {
    int tics = 0;
    Metronome* yo = nullptr;
    Metronome metronomo(1, [&] {
        ++tics;
        yo->Parar();
    });
    yo = &metronomo;
    metronomo.Arrancar();
    QElapsedTimer reloj;
    reloj.start();
    while (reloj.elapsed() < 10) {
        // Several ticks fall due before the event loop looks.
    }
    ASSERT_TRUE(Esperar([&] { return tics > 0; }));
    int otros = 0;
    Metronome otro(1, [&] { ++otros; });
    otro.Arrancar();
    ASSERT_TRUE(Esperar([&] { return otros >= 20; }));
    EXPECT_EQ(tics, 1);
}

TEST(MetronomeTest, LateTicksFollowAtOnceButNotWithoutEnd) {
    int tics = 0;
    int primeros = 0;
    Metronome metronomo(1, [&] { ++tics; });
    metronomo.Arrancar();
    QElapsedTimer reloj;
    reloj.start();
    while (reloj.elapsed() < 50) {
        // Fifty fall due.
    }
    ASSERT_TRUE(Esperar([&] {
        primeros = tics;
        return tics > 0;
    }));
    EXPECT_GT(primeros, 1);
    EXPECT_LE(primeros, 4);
}

} // namespace zv::test
