// The platform's save dialog as the save flow opens it, answered from the
// test while it runs.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QTimer>

#include "output/OutputDialogs.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

const QString kSaveFilter =
    "BMP(*.bmp)|*.bmp|JPEG(*.Jpeg;*.jpg)|*.jpeg;*.jpg|PNG(*.png)|*.png|GIF(*.gif)|*.gif|"
    "TIFF(*.tif;*.tiff)|*.tif;*.tiff";

TEST(OutputDialogs, TheSaveFilterBecomesOneEntryPerFormat) {
    EXPECT_EQ(PlatformNameFilters(kSaveFilter),
              QStringList({"BMP (*.bmp)", "JPEG (*.jpeg *.jpg)", "PNG (*.png)", "GIF (*.gif)",
                           "TIFF (*.tif *.tiff)"}));
    EXPECT_EQ(PlatformNameFilters("All|*.*|Broken"), QStringList({"All (*.*)"}))
        << "a description without patterns is dropped";
    EXPECT_EQ(PlatformNameFilters("Empty||Text|*.txt"), QStringList({"Text (*.txt)"}));
}

// Runs `answer` on the save dialog once it is up.
void WhenTheDialogOpens(const std::function<void(QFileDialog&)>& answer) {
    QTimer::singleShot(0, [answer] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        answer(*dialog);
    });
}

TEST(OutputDialogs, ThePlatformSaveDialogOpensAsAskedAndNeverAsksToReplace) {
    testing::ScratchHome env;
    const QString folder = env.root() + "shots";
    QDir().mkpath(folder);
    TSaveDialogRequest request{kSaveFilter, 3, folder, "ScreenShot_20240102030405", ".jpeg"};
    WhenTheDialogOpens([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.selectedNameFilter(), "PNG (*.png)");
        EXPECT_EQ(QDir(dialog.directory()).absolutePath(), folder);
        EXPECT_EQ(dialog.defaultSuffix(), "jpeg");
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        dialog.selectNameFilter("GIF (*.gif)");
        dialog.selectFile(folder + "/typed");
        static_cast<QDialog&>(dialog).accept();  // as the Save button does
    });
    TSaveDialogAnswer answer = OutputDialogs().RunSaveDialog(nullptr, request);
    EXPECT_TRUE(answer.Accepted);
    EXPECT_EQ(answer.FileName, folder + "/typed.jpeg") << "the default extension, not the filter's";
    EXPECT_EQ(answer.FilterIndex, 4);

    WhenTheDialogOpens([](QFileDialog& dialog) { dialog.reject(); });
    answer = OutputDialogs().RunSaveDialog(nullptr, request);
    EXPECT_FALSE(answer.Accepted);
    EXPECT_EQ(answer.FilterIndex, 3) << "a cancelled dialog leaves the filter as it was";
}

}  // namespace
}  // namespace qpt
