// The folders a save goes to: made level by level, and the user's shell
// folders found by their conventional names.
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include "output/SaveFolders.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ScratchHome;
using testing::WriteFile;

TEST(ForceFolderTree, MakesEveryMissingLevelWhateverTheDelimitersAndBlanks) {
    ScratchHome env;
    const QString root = env.root();
    EXPECT_TRUE(ForceFolderTree(root + "My Shots//2024\\June \r"));
    EXPECT_TRUE(QFileInfo(root + "My Shots/2024/June ").isDir()) << "blanks are kept";
    EXPECT_TRUE(ForceFolderTree(root + "My Shots/2024/")) << "a level that is there is fine";
    EXPECT_TRUE(ForceFolderTree(root + "what?/x")) << "no character stands in for a blank";
    EXPECT_TRUE(QFileInfo(root + "what?/x").isDir());
}

TEST(ForceFolderTree, FailsWhereAFileStandsInTheWay) {
    ScratchHome env;
    WriteFile(env.root() + "taken", "a file");
    EXPECT_FALSE(ForceFolderTree(env.root() + "taken/below"));
    EXPECT_FALSE(QFileInfo::exists(env.root() + "taken/below"));
}

TEST(ShellFolderPath, FollowsTheUsersFolderSettingsByConventionalName) {
    ScratchHome env;
    WriteFile(env.configHome() + "user-dirs.dirs",
              "XDG_PICTURES_DIR=\"$HOME/Bilder\"\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    EXPECT_EQ(ShellFolderPath("My Pictures"), env.home() + "Bilder");
    EXPECT_EQ(ShellFolderPath("my pictures"), env.home() + "Bilder");
    EXPECT_EQ(ShellFolderPath("Personal"), env.home() + "Dokumente");
    EXPECT_EQ(ShellFolderPath("Desktop"), env.home() + "Desktop") << "the usual default";
    EXPECT_EQ(ShellFolderPath("Recent"), "") << "a name not known here";
}

}  // namespace
}  // namespace qpt
