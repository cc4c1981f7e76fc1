#include <gtest/gtest.h>

#include "app/CommandLine.h"

namespace qpt {
namespace {

TEST(CommandLine, QptMainCountsInAnyArgumentAndAnyCase) {
    EXPECT_TRUE(HasQptMainSwitch({"QptPin", "/QPTMain"}));
    EXPECT_TRUE(HasQptMainSwitch({"QptPin", "x", "y", "/qptmain"}));
    EXPECT_TRUE(HasQptMainSwitch({"/QptMain"}));  // even the program's own path
    EXPECT_FALSE(HasQptMainSwitch({"QptPin"}));
    EXPECT_FALSE(HasQptMainSwitch({"QptPin", "/QPTMain2", "QPTMain", "-QPTMain"}));
}

TEST(CommandLine, FirstArgumentSwitchesCountOnlyInFirstPlace) {
    EXPECT_TRUE(FirstArgumentIs({"QptPin", "/scale", "/QPTMain"}, "/Scale"));
    EXPECT_FALSE(FirstArgumentIs({"QptPin", "/QPTMain", "/Scale"}, "/Scale"));
    EXPECT_FALSE(FirstArgumentIs({"/Scale"}, "/Scale"));
    EXPECT_TRUE(FirstArgumentIs({"QptPin", "/TESTBUGREPORT"}, "/testbugreport"));
}

}  // namespace
}  // namespace qpt
