#pragma once

#include <gtest/gtest.h>

namespace qpt::testing {

// The widget application of an in-process test program, on the offscreen
// platform unless the test chose another, one picture pixel per screen
// pixel as in the program. Made once and never destroyed: at exit Qt's
// input devices would go after their owner.
void MakeWidgetApplication();

// Makes the widget application before any test of the program runs, so that
// no test makes a lesser application first. One source of a test program
// registers it with QPT_WIDGET_APPLICATION_FIRST.
class WidgetApplicationEnvironment : public ::testing::Environment {
public:
    void SetUp() override { MakeWidgetApplication(); }
};

}  // namespace qpt::testing

// In one source of each test program whose tests are all widget tests.
#define QPT_WIDGET_APPLICATION_FIRST()                                  \
    [[maybe_unused]] static ::testing::Environment* const g_widgetApp = \
        ::testing::AddGlobalTestEnvironment(new ::qpt::testing::WidgetApplicationEnvironment)
