#include "skin/RdTimer.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

namespace qpt {
namespace {

int CountTicks(TRdTimer& timer, int waitMs) {
    int ticks = 0;
    timer.OnTimer = [&] { ++ticks; };
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < waitMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    return ticks;
}

TEST(RdTimer, FiresOnlyWhileEnabledWithAnInterval) {
    TRdTimer timer;
    timer.SetInterval(5);
    EXPECT_GT(CountTicks(timer, 60), 0);

    timer.SetEnabled(false);
    EXPECT_EQ(CountTicks(timer, 30), 0);

    timer.SetEnabled(true);
    timer.SetInterval(0);
    EXPECT_EQ(CountTicks(timer, 30), 0);
}

TEST(RdTimer, TickRunsTheHandlerWithoutWaiting) {
    TRdTimer timer;
    timer.SetEnabled(false);
    int ticks = 0;
    timer.OnTimer = [&] { ++ticks; };
    timer.Tick();
    EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace qpt
