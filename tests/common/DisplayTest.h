#pragma once

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include "tests/common/ScratchHome.h"
#include "tests/common/VirtualDisplay.h"

namespace qpt::testing {

// A test on a private X server: DISPLAY points at it for the test and for
// the programs it starts, and the test holds its own connection to look.
class DisplayTest : public ::testing::Test {
protected:
    explicit DisplayTest(int width = 1920, int height = 1080) : display_(width, height) {}
    explicit DisplayTest(const QList<QRect>& monitors) : display_(monitors) {}

    void SetUp() override {
        if (!display_.isRunning()) GTEST_SKIP() << "no Xvfb";
        ASSERT_TRUE(display_.monitorsSet()) << "xrandr could not set up the monitors";
        env_.setEnv("DISPLAY", display_.name().toStdString());
        c_ = xcb_connect(display_.name().toLatin1().constData(), nullptr);
        ASSERT_FALSE(xcb_connection_has_error(c_));
    }
    void TearDown() override {
        if (c_) xcb_disconnect(c_);
        c_ = nullptr;
    }

    VirtualDisplay display_;
    ScratchHome env_;
    xcb_connection_t* c_ = nullptr;
};

}  // namespace qpt::testing
