#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "support/ProductStat.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ReadFile;
using testing::WriteFile;

// A program folder of its own, with the stand-in library copied in when asked
// for, and the stand-in's call record in a file of the test.
class ProductStatTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        record_ = dir_.path() + "/calls.txt";
        home_.setEnv("QPT_STAT_STANDIN_LOG", record_.toStdString());
    }
    QString Folder() const { return dir_.path() + "/program/"; }
    void InstallStandin() {
        WriteFile(Folder() + kProductStatLibrary, ReadFile(QStringLiteral(QPT_STAT_STANDIN)));
    }
    QStringList Calls() const {
        return QString::fromUtf8(ReadFile(record_)).split('\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir dir_;
    testing::ScratchHome home_;
    QString record_;
};

TEST_F(ProductStatTest, InitHandsOverVersionLanguageAndEndpointThenCodesArrive) {
    InstallStandin();
    WriteFile(Folder() + "Lang.dat", "[CusLan]\npr = de\n");
    WriteFile(Folder() + "QptHost.version", "3.1.4.1\n");
    TProductStat stat;
    stat.Init(Folder());
    ASSERT_TRUE(stat.IsLoaded());
    EXPECT_EQ(stat.DoStatistic("qpt1", "a302", 0, 0, 0, 0), 1);
    EXPECT_EQ(Calls(), QStringList({"SetStatParam qpt1 3.1.4.1 de " + QString(kUsageStatUrl),
                                    "DoStatistic qpt1 a302 0"}));
}

TEST_F(ProductStatTest, MissingLangDatGivesDefaultLanguageCode) {
    InstallStandin();
    TProductStat stat;
    stat.Init(Folder());
    EXPECT_EQ(Calls(), QStringList({"SetStatParam qpt1 1.0.0.0 zelk " + QString(kUsageStatUrl)}));
}

TEST_F(ProductStatTest, OncePerProcessModeSendsEachCodeOnlyOnce) {
    TProductStat stat;
    ASSERT_TRUE(stat.Load(QStringLiteral(QPT_STAT_STANDIN)));
    EXPECT_EQ(stat.DoStatistic("qpt1", "A317", -2, 0, 0, 0), 1);
    EXPECT_EQ(stat.DoStatistic("qpt1", "a317", -2, 0, 0, 0), 0);
    EXPECT_EQ(stat.DoStatistic("qpt1", "a318", -2, 0, 0, 0), 1);
    EXPECT_EQ(Calls(), QStringList({"DoStatistic qpt1 A317 0", "DoStatistic qpt1 a318 0"}));
}

TEST_F(ProductStatTest, WithoutLibraryEverythingIsAQuietNoOp) {
    TProductStat stat;
    stat.Init(Folder());
    EXPECT_FALSE(stat.IsLoaded());
    stat.SetParam("qpt1", "1", "zelk", kUsageStatUrl);
    EXPECT_EQ(stat.DoStatistic("qpt1", "a311", 0, 0, 0, 0), -1);
    EXPECT_TRUE(Calls().isEmpty());
}

TEST_F(ProductStatTest, FileThatIsNoLibraryFailsWithADebugLine) {
    WriteFile(Folder() + kProductStatLibrary, "not a shared object");
    home_.setEnv("QPT_DEBUG", "1");
    TProductStat stat;
    ::testing::internal::CaptureStderr();
    stat.Init(Folder());
    const std::string debug = ::testing::internal::GetCapturedStderr();
    EXPECT_FALSE(stat.IsLoaded());
    EXPECT_EQ(debug.rfind("LoadSP Failed. ", 0), 0u) << debug;
    EXPECT_EQ(stat.DoStatistic("qpt1", "a313", 0, 0, 0, 0), -1);
}

TEST_F(ProductStatTest, SendUsageCodeReportsThroughTheProcessWrapper) {
    ASSERT_TRUE(LoadProductStat(QStringLiteral(QPT_STAT_STANDIN)));
    SendUsageCode(QStringLiteral("a312"));
    EXPECT_EQ(Calls(), QStringList({"DoStatistic qpt1 a312 0"}));
}

}  // namespace
}  // namespace qpt
