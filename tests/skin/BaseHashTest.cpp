#include <gtest/gtest.h>

#include "skin/BaseHash.h"

namespace qpt {
namespace {

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
