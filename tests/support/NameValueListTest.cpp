#include <gtest/gtest.h>

#include "support/NameValueList.h"

namespace qpt {
namespace {

// Lookups after every kind of change must agree with a plain scan: the
// tables are kept up to date on add and replace, dropped on anything else.
TEST(NameValueList, LookupsStayRightAcrossChanges) {
    int changes = 0;
    TNameValueList list;
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

TEST(NameValueList, CaseSensitiveListKeepsCase) {
    TNameValueList list(true);
    list.Add("Key=v");
    EXPECT_EQ(list.IndexOfName("key"), -1);
    EXPECT_EQ(list.IndexOfName("Key"), 0);
    EXPECT_EQ(list.Names(0), "Key");
    list.SetCaseSensitive(false);
    EXPECT_EQ(list.IndexOfName("KEY"), 0);
}

// One rule for every list: a line without '=' has no name, so it is found
// only whole, as the keys of the skin's groups of sections are.
TEST(NameValueList, ALineWithoutEqualsIsFoundOnlyWhole) {
    TNameValueList groups;
    groups.Add("image", std::make_unique<TNameValueList>());
    groups.Add("x=1");
    EXPECT_EQ(groups.IndexOf("IMAGE"), 0);
    EXPECT_EQ(groups.IndexOfName("image"), -1);
    EXPECT_EQ(groups.Names(0), "");
    EXPECT_EQ(groups.ValueFromIndex(0), "");
    ASSERT_NE(groups.Objects(0), nullptr);
    groups.SetLine("image");  // already there: nothing is added
    groups.SetLine("x=2");
    groups.SetValue("y", "3");
    EXPECT_EQ(groups.Strings(), QStringList({"image", "x=2", "y=3"}));
    EXPECT_EQ(groups.Values("X"), "2");
    EXPECT_EQ(groups.Values("image"), "");
}

TEST(NameValueList, LookupsFallBackToParents) {
    TNameValueList base, child;
    base.AddStrings({"x=1", "y=1", "z=1"});
    child.AddStrings({"y=2"});
    ASSERT_TRUE(child.SetParent(&base));
    EXPECT_FALSE(base.SetParent(&child));  // a cycle would never end
    EXPECT_EQ(child.Values("X"), "1");
    EXPECT_EQ(child.Values("y"), "2");
    EXPECT_EQ(child.IndexOfName("x"), -1);
    child.SetLine("x=3");
    EXPECT_EQ(child.Values("x"), "3");
    child.Delete(0);  // "y" goes, "x" moves to index 0
    EXPECT_EQ(child.IndexOfName("x"), 0);
    EXPECT_EQ(child.Values("y"), "1");
    QString value;
    EXPECT_FALSE(child.FindValue("w", &value));
}

TEST(NameValueList, FlattenedPutsOwnLinesOverInheritedOnes) {
    TNameValueList grand, base, child;
    grand.AddStrings({"g=grand", "a=grand"});
    base.AddStrings({"a=base", "b=base"});
    child.AddStrings({"b=child", "c=child"});
    child.SetParent(&base);
    base.SetParent(&grand);
    EXPECT_EQ(child.Flattened(), QStringList({"g=grand", "a=base", "b=child", "c=child"}));
    EXPECT_EQ(grand.Flattened(), grand.Strings());
}

}  // namespace
}  // namespace qpt
