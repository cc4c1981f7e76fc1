// Work that waits for the picture's first paint: it runs in the order it was
// asked for, at a turn of the event loop, and never for a form that has gone.
// It holds whether or not another test of this program painted first.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QObject>
#include <memory>
#include <vector>

#include "app/session/FirstPaint.h"
#include "tests/app/InProcessPin.h"

namespace qpt {
namespace {

TEST(FirstPaint, WorkRunsInOrderOnceAndNotForAGoneForm) {
    testing::MakeTestApplication();
    std::vector<int> ran;
    QObject form;
    auto gone = std::make_unique<QObject>();
    AfterFirstPaint(&form, [&] { ran.push_back(1); });
    AfterFirstPaint(gone.get(), [&] { ran.push_back(2); });
    AfterFirstPaint(&form, [&] { ran.push_back(3); });
    gone.reset();
    FirstPaintDone();
    EXPECT_TRUE(ran.empty()) << "not inside the paint itself";
    QCoreApplication::processEvents();
    EXPECT_EQ(ran, std::vector<int>({1, 3}));
    FirstPaintDone();
    QCoreApplication::processEvents();
    EXPECT_EQ(ran, std::vector<int>({1, 3})) << "a second paint runs nothing again";
}

}  // namespace
}  // namespace qpt
