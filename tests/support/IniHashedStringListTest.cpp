#include <gtest/gtest.h>

#include "support/IniHashedStringList.h"

namespace qpt {
namespace {

// Lookups after every kind of change must agree with a plain scan: the
// tables are kept up to date on add and replace, dropped on anything else.
TEST(IniHashedStringList, LookupsStayRightAcrossChanges) {
    int changes = 0;
    TIniHashedStringList list;
    list.SetOnChange([&changes] { ++changes; });
    list.Add("a=1");
    list.Add("b=2");
    EXPECT_EQ(list.IndexOfName("A"), 0);  // tables built here
    list.Add("a=3");
    list.Add("plain");
    EXPECT_EQ(list.IndexOfName("a"), 0);
    EXPECT_EQ(list.IndexOf("PLAIN"), 3);
    EXPECT_EQ(list.IndexOfName("plain"), -1);

    list.Put(0, "c=1");  // the later duplicate of "a" takes over
    EXPECT_EQ(list.IndexOfName("a"), 2);
    EXPECT_EQ(list.IndexOfName("c"), 0);
    EXPECT_EQ(list.IndexOf("a=1"), -1);
    list.Put(2, "b=9");  // a later line never displaces an earlier one
    EXPECT_EQ(list.IndexOfName("b"), 1);
    EXPECT_EQ(list.IndexOfName("a"), -1);
    list.Put(1, "b=2b");  // same name, new value
    EXPECT_EQ(list.IndexOfName("B"), 1);
    EXPECT_EQ(list.ValueFromIndex(1), "2b");

    list.Delete(0);
    EXPECT_EQ(list.IndexOfName("b"), 0);
    EXPECT_EQ(list.IndexOf("plain"), 2);
    list.Clear();
    EXPECT_EQ(list.IndexOfName("b"), -1);
    EXPECT_EQ(changes, 9);
}

TEST(IniHashedStringList, CaseSensitiveListKeepsCase) {
    TIniHashedStringList list(true);
    list.Add("Key=v");
    EXPECT_EQ(list.IndexOfName("key"), -1);
    EXPECT_EQ(list.IndexOfName("Key"), 0);
    EXPECT_EQ(list.Names(0), "Key");
}

}  // namespace
}  // namespace qpt
