#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include "support/Paths.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ScratchHome;
using testing::WriteFile;

TEST(SpecialFolders, FollowXdgVariablesThenHome) {
    ScratchHome env;
    EXPECT_EQ(GetSpecialFolder(kFolderAppData), env.home() + ".config");
    EXPECT_EQ(GetSpecialFolder(kFolderLocalAppData), env.home() + ".local/share");
    EXPECT_EQ(GetSpecialFolder(kFolderProfile) + '/', env.home());

    env.setEnv("XDG_CONFIG_HOME", "  /elsewhere/config/  ");
    env.setEnv("XDG_DATA_HOME", "/elsewhere/data");
    EXPECT_EQ(GetSpecialFolder(kFolderAppData), "/elsewhere/config");
    EXPECT_EQ(GetSpecialFolder(kFolderLocalAppData), "/elsewhere/data");
    EXPECT_EQ(SettingsFolder(), "/elsewhere/config/Zelk Screenshot/");

    // A relative value is not a usable base: the home fallback holds.
    env.setEnv("XDG_CONFIG_HOME", "relative/config");
    EXPECT_EQ(GetSpecialFolder(kFolderAppData), env.home() + ".config");
}

TEST(SpecialFolders, WithoutHomeTheAccountsHomeFolderIsUsed) {
    ScratchHome env;
    env.setEnv("HOME", std::nullopt);
    const QString appData = GetSpecialFolder(kFolderAppData);
    EXPECT_FALSE(appData.isEmpty());
    EXPECT_TRUE(appData.endsWith("/.config"));
    EXPECT_FALSE(appData.startsWith(env.root()));
}

TEST(SpecialFolders, PicturesComeFromUserDirsWithHomeExpanded) {
    ScratchHome env;
    EXPECT_EQ(GetSpecialFolder(kFolderMyPictures), env.home() + "Pictures");
    WriteFile(env.configHome() + "user-dirs.dirs",
              "# written by the desktop\n"
              "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n"
              "XDG_DOCUMENTS_DIR=\"/data/docs/\"\n"
              "XDG_MUSIC_DIR=\"relative\"\n");
    EXPECT_EQ(GetSpecialFolder(kFolderMyPictures), env.home() + "Bilder");
    EXPECT_EQ(GetSpecialFolder(kFolderPersonal), "/data/docs");
    EXPECT_EQ(GetSpecialFolder(kFolderMyMusic), env.home() + "Music");
}

TEST(SpecialFolders, NumbersWithoutMeaningAndFolderCodes) {
    ScratchHome env;
    EXPECT_EQ(GetSpecialFolder(38), "");  // program files
    EXPECT_EQ(GetSpecialFolder(35), "");  // common application data
    EXPECT_EQ(GetFolderPath(14), "");
    EXPECT_EQ(GetFolderPath(0), "");
    EXPECT_EQ(GetFolderPath(291), "");
    EXPECT_EQ(GetFolderPath(-1), "");
    EXPECT_EQ(GetFolderPath(27), env.home() + "Pictures");
    EXPECT_EQ(GetFolderPath(12), env.home() + ".config");
    EXPECT_EQ(GetFolderPath(2), GetTempFolder());
}

mode_t ModeOf(const QString& path) {
    struct stat st {};
    ::lstat(QFile::encodeName(path).constData(), &st);
    return st.st_mode & 07777;
}

TEST(TempFolder, IsMadePrivateUnderTheRuntimeFolder) {
    ScratchHome env;
    const QString temp = GetTempFolder();
    EXPECT_EQ(temp, env.runtimeDir() + "qpt/");
    EXPECT_EQ(ModeOf(temp), 0700u);
    EXPECT_EQ(GetTempFolder(), temp);  // a second call finds it in place
}

TEST(TempFolder, IsRefusedWhenOthersCanReachItAndTheReasonIsToldOnce) {
    ScratchHome env;
    const QString folder = env.runtimeDir() + "qpt";
    ASSERT_TRUE(QDir().mkpath(folder));
    ::chmod(QFile::encodeName(folder).constData(), 0755);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(GetTempFolder(), "");
    EXPECT_EQ(GetTempFolder(), "");
    ::chmod(QFile::encodeName(folder).constData(), 0770);
    EXPECT_EQ(GetTempFolder(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              ("QptPin: the private temporary folder " + folder +
               " is refused: its mode is 0755, not 0700\n"
               "QptPin: the private temporary folder " +
               folder + " is refused: its mode is 0770, not 0700\n")
                  .toStdString());
}

TEST(TempFolder, IsRefusedWhenItIsALinkOrAFile) {
    ScratchHome env;
    const QString target = env.root() + "target";
    QDir().mkpath(target);
    ::chmod(QFile::encodeName(target).constData(), 0700);
    ASSERT_TRUE(QFile::link(target, env.runtimeDir() + "qpt"));
    EXPECT_EQ(GetTempFolder(), "");

    ScratchHome other;
    WriteFile(other.runtimeDir() + "qpt", "not a folder");
    EXPECT_EQ(GetTempFolder(), "");
}

TEST(TempFolder, WithoutAnAbsoluteRuntimeFolderFallsBackToAPerUserFolderInTmp) {
    ScratchHome env;
    env.setEnv("XDG_RUNTIME_DIR", std::nullopt);
    EXPECT_EQ(GetTempFolder(), QStringLiteral("/tmp/qpt-%1/").arg(::getuid()));
    env.setEnv("XDG_RUNTIME_DIR", "run/user");
    EXPECT_EQ(GetTempFolder(), QStringLiteral("/tmp/qpt-%1/").arg(::getuid()));
}

TEST(HostVersion, ReadsFourDottedNumbersOrDefaults) {
    ScratchHome env;
    const QString folder = env.root() + "prog/";
    QDir().mkpath(folder);
    EXPECT_EQ(GetHostVersion(folder), "1.0.0.0");
    WriteFile(folder + "QptHost.version", "3.2.1.77\nanything else\n");
    EXPECT_EQ(GetHostVersion(folder), "3.2.1.77");
    WriteFile(folder + "QptHost.version", "3.2.1\n");
    EXPECT_EQ(GetHostVersion(folder), "1.0.0.0");
    WriteFile(folder + "QptHost.version", "");
    EXPECT_EQ(GetHostVersion(folder), "1.0.0.0");
}

TEST(LocalDisk, ScratchFoldersAreLocalAndNothingIsNot) {
    ScratchHome env;
    EXPECT_TRUE(IsFixedLocalDisk(env.root()));
    EXPECT_TRUE(IsFixedLocalDisk(env.root() + "not/made/yet"));
    EXPECT_FALSE(IsFixedLocalDisk(""));
}

}  // namespace
}  // namespace qpt
