#include <gtest/gtest.h>

#include <stdexcept>

#include "skin/BaseHash.h"
#include "skin/RdValueStrings.h"
#include "skin/StringValueList.h"

namespace qpt {
namespace {

TEST(StringValueList, StaysSortedByNameAndReplacesByName) {
    TStringValueList list;
    list.Add("b=2");
    list.Add("A=1");
    list.Add("c=3");
    EXPECT_EQ(list.Add("B=ignored"), 1);  // a name is present once
    EXPECT_EQ(list.Lines(), QStringList({"A=1", "b=2", "c=3"}));
    EXPECT_EQ(list.IndexOf("C=anything"), 2);
    list.Put(0, "d=4");  // a renamed line moves to its place
    EXPECT_EQ(list.Lines(), QStringList({"b=2", "c=3", "d=4"}));
    list.SetValue("c", "5");
    EXPECT_EQ(list.Values("C"), "5");
    list.SetCaseSensitive(true);
    EXPECT_EQ(list.IndexOfName("C"), -1);
}

TEST(RdValueStrings, LookupsFallBackToParentsAndTheHashFollowsChanges) {
    TRdValueStrings base, child;
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
}

TEST(RdValueStrings, AssignToFlattensOwnLinesOverInherited) {
    TRdValueStrings base, child;
    base.AddStrings({"a=base", "b=base"});
    child.AddStrings({"b=child", "c=child"});
    child.SetParent(&base);

    TStringListEx plain;
    child.AssignTo(plain);
    EXPECT_EQ(plain.Lines(), QStringList({"a=base", "b=child", "c=child"}));
    TStringValueList sorted;
    child.AssignTo(sorted);
    EXPECT_EQ(sorted.Lines(), QStringList({"a=base", "b=child", "c=child"}));

    TStringValueList owner;
    owner.Add("k", std::make_unique<TStringValueList>());
    EXPECT_THROW(child.Assign(owner), std::logic_error);
    child.Assign(base);
    EXPECT_EQ(child.Lines(), base.Lines());
}

TEST(BaseHash, KeepsEqualHashesApartAndRemoves) {
    TStringHash hash(1);  // one bucket: every key collides
    for (int i = 0; i < 50; ++i)
        hash.Add(QString::number(i), i);
    EXPECT_FALSE(hash.Add("7", 99));
    EXPECT_EQ(*hash.Find("7"), 7);
    EXPECT_TRUE(hash.Remove("7"));
    EXPECT_EQ(hash.Find("7"), nullptr);
    EXPECT_EQ(hash.Count(), 49u);
    // Units whose rotations cancel: the same hash, different keys.
    const QString a = QString(QChar(1)) + QChar(0);
    const QString b = QString(QChar(0)) + QChar(4);
    ASSERT_EQ(StringHashOf(a), StringHashOf(b));
    TStringHash tiny(4);
    tiny.Add(a, 1);
    tiny.Add(b, 2);
    EXPECT_EQ(*tiny.Find(b), 2);
    EXPECT_TRUE(tiny.Remove(a));
    EXPECT_EQ(*tiny.Find(b), 2);
}

}  // namespace
}  // namespace qpt
