#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <functional>

#include "support/Language.h"
#include "support/MainIni.h"
#include "support/ScreenRecordSettingsData.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ReadFile;
using testing::ScratchHome;
using testing::WriteFile;

struct stat StatOf(const QString& path) {
    struct stat st {};
    ::lstat(QFile::encodeName(path).constData(), &st);
    return st;
}

class SettingsTest : public ::testing::Test {
protected:
    QString MainIni() const { return home_.configHome() + "Zelk Screenshot/Main.ini"; }
    QString DefaultCapture() const { return home_.home() + "Pictures/Zelk Screenshot/"; }
    ScratchHome home_;
};

TEST_F(SettingsTest, FirstStartKeepsDefaultsAndLeavesAnEmptyFile) {
    ASSERT_EQ(MainIniPath(), MainIni());
    TScreenRecordSettingsData s;
    EXPECT_EQ(s.Language, "English");
    EXPECT_TRUE(s.StartWithSystem && s.AutoUpdate && s.MainUi && s.SaveTip);
    EXPECT_EQ(s.JpegQuality, 90);
    EXPECT_EQ(s.FormatName(), "JPEG");
    EXPECT_EQ(s.DefaultCapturePath, DefaultCapture());
    EXPECT_EQ(s.CapturePath, DefaultCapture());
    EXPECT_EQ(s.Hotkeys->Codes, (std::array<quint16, 4>{0x8041, 0x8053, 0x8057, 0x8044}));
    EXPECT_EQ(s.Hotkeys->Texts[TTab_Hotkeys::kLong], "Alt + D");
    EXPECT_FALSE(s.Hotkeys->Changed);
    EXPECT_TRUE(QFileInfo::exists(MainIni()));
    EXPECT_EQ(QFileInfo(MainIni()).size(), 0);
    EXPECT_EQ(ReadMainIni("StartPin", "Left", "0"), "0");
}

TEST_F(SettingsTest, LoadReadsTheFileAndRewritesItAsUtf16) {
    const QString capture = home_.home() + "shots";
    QDir().mkpath(capture);
    WriteFile(MainIni(), ("; the host's\n[Main]\nLanguage=Deutsch\nStartup=0\n"
                          "[Screenshot]\nCapturePath=" +
                          capture + "\nSaveTip=0\n[Format]\nJpegQuality=101\nScreenFmat=257\n")
                             .toUtf8());
    TScreenRecordSettingsData s;
    EXPECT_EQ(s.Language, "Deutsch");
    EXPECT_FALSE(s.StartWithSystem);
    EXPECT_TRUE(s.AutoUpdate);
    EXPECT_EQ(s.CapturePath, capture);
    EXPECT_FALSE(s.SaveTip);
    EXPECT_EQ(s.JpegQuality, 90);  // out of its bounds
    EXPECT_EQ(s.ImageFormat, 1);   // stored as a byte
    EXPECT_EQ(s.FormatName(), "PNG");
    EXPECT_TRUE(ReadFile(MainIni()).startsWith("\xFF\xFE[\0M\0a\0i\0n\0]\0"));

    s.ImageFormat = 3;
    EXPECT_EQ(s.FormatName(), "");
    s.ResetDefaults(true);
    EXPECT_EQ(s.Language, "Deutsch");
    EXPECT_EQ(s.JpegQuality, 90);
    s.ResetDefaults(false);
    EXPECT_EQ(s.Language, "English");
}

TEST_F(SettingsTest, RemovedCaptureFolderAndBadNumbersFallBack) {
    WriteFile(MainIni(),
              "[Screenshot]\nCapturePath=/no/such/folder/\n[Format]\nJpegQuality=high\n");
    TScreenRecordSettingsData s;
    EXPECT_EQ(s.CapturePath, DefaultCapture());
    EXPECT_EQ(s.JpegQuality, 90);
    EXPECT_EQ(ReadMainIni("Screenshot", "CapturePath", ""), "/no/such/folder/");
}

TEST_F(SettingsTest, HotKeysFollowTheirStoredCodes) {
    WriteFile(MainIni(),
              "[Hotkey]\n"
              "nCapKey=0\nCapKey=Alt + A\n"             // switched off despite a text
              "nCapFullKey=-1\nCapFullKey=Ctrl + F\n"   // default: the text is ignored
              "nCapWinKey=81751\nCapWinKey=Ctrl + W\n"  // 0x13F57, cut to 16 bits
              "nCaplongKey=16452\n");                   // no text: the default text
    TScreenRecordSettingsData s;
    const TTab_Hotkeys& h = *s.Hotkeys;
    EXPECT_EQ(h.Codes[TTab_Hotkeys::kArea], 0);
    EXPECT_EQ(h.Texts[TTab_Hotkeys::kArea], "");
    EXPECT_EQ(h.Codes[TTab_Hotkeys::kFullScreen], 0x8053);
    EXPECT_EQ(h.Texts[TTab_Hotkeys::kFullScreen], "Alt + S");
    EXPECT_EQ(h.Codes[TTab_Hotkeys::kWindow], 0x3F57);
    EXPECT_EQ(h.Texts[TTab_Hotkeys::kWindow], "Ctrl + W");
    EXPECT_EQ(h.Codes[TTab_Hotkeys::kLong], 0x4044);
    EXPECT_EQ(h.Texts[TTab_Hotkeys::kLong], "Alt + D");
}

// A folder, a named pipe nobody writes to (which would block a plain open for
// ever) and links to endless devices (which would fill the memory) all read
// as a missing file, and none of them is replaced by a write.
TEST_F(SettingsTest, WhatIsNoRegularFileKeepsDefaultsAndIsLeftAlone) {
    const std::pair<const char*, std::function<void()>> kinds[] = {
        {"folder", [&] { QDir().mkpath(MainIni()); }},
        {"pipe", [&] { ::mkfifo(QFile::encodeName(MainIni()).constData(), 0600); }},
        {"/dev/zero", [&] { QFile::link("/dev/zero", MainIni()); }},
        {"/dev/urandom", [&] { QFile::link("/dev/urandom", MainIni()); }},
    };
    for (const auto& [kind, make] : kinds) {
        SCOPED_TRACE(kind);
        QDir(home_.configHome()).removeRecursively();
        QDir().mkpath(QFileInfo(MainIni()).path());
        make();
        const struct stat before = StatOf(MainIni());
        TScreenRecordSettingsData s;
        EXPECT_EQ(s.Language, "English");
        EXPECT_EQ(TLanguage::CurrentLanguageName(), "English");
        WriteMainIni("Main", "GsearchRed", "1");
        EXPECT_EQ(ReadMainIni("Main", "GsearchRed", "0"), "0");
        const struct stat after = StatOf(MainIni());
        EXPECT_EQ(after.st_mode, before.st_mode);
        EXPECT_EQ(after.st_ino, before.st_ino);
    }
}

TEST_F(SettingsTest, WriteMainIniMakesTheFileAndKeepsOtherKeys) {
    EXPECT_EQ(ReadMainIni("Main", "GsearchRed", "0"), "0");
    EXPECT_FALSE(QFileInfo::exists(MainIni()));  // reading creates nothing
    WriteMainIni("Main", "GsearchRed", "1");
    WriteMainIni("Screenshot", "CaptureSave", "1");
    WriteMainIni("main", "gsearchred", "0");
    EXPECT_EQ(ReadMainIni("MAIN", "GsearchRed", "x"), "0");
    EXPECT_EQ(ReadMainIni("Screenshot", "CaptureSave", "x"), "1");
    EXPECT_TRUE(ReadFile(MainIni()).startsWith("\xFF\xFE"));

    const QString lang = home_.root() + "Lang.dat";
    WriteFile(lang, "[Lang]\nid = 7\n");
    EXPECT_EQ(ReadIniFile(lang, "Lang", "id", ""), "7");
    EXPECT_EQ(ReadFile(lang), QByteArray("[Lang]\nid = 7\n"));
    EXPECT_EQ(ReadIniFile(home_.root() + "none", "Lang", "id", "d"), "d");
}

TEST_F(SettingsTest, ProcessWideInstanceIsMadeOnce) {
    CreateSettingsData();
    TScreenRecordSettingsData* first = SettingsData();
    ASSERT_NE(first, nullptr);
    CreateSettingsData();
    EXPECT_EQ(SettingsData(), first);
}

}  // namespace
}  // namespace qpt
