#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QStringEncoder>
#include <QTemporaryDir>

#include "support/ExtIniFile.h"
#include "support/SafeIniFile.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ReadFile;
using testing::WriteFile;

QByteArray Utf16Le(const QString& text) {
    return QStringEncoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom).encode(text);
}

mode_t ModeOf(const QString& path) {
    struct stat st {};
    ::stat(QFile::encodeName(path).constData(), &st);
    return st.st_mode & 07777;
}

class SafeIniFileTest : public ::testing::Test {
protected:
    QString Path(const QString& name) const { return dir_.path() + '/' + name; }
    QTemporaryDir dir_;
};

TEST(IniParsing, FollowsTheDialectRules) {
    TSafeIniFile ini;
    ini.LoadFromStream(
        QByteArray("orphan=dropped\n"
                   "  [ Main ]  \r\n"
                   "; a comment\n"
                   "\tName  =  Value with = sign \r"
                   "[unclosed line\n"
                   "bare line\n"
                   "[Second]\n"
                   "k=first\n"
                   "[main]\n"
                   "Name=shadowed\n"));
    EXPECT_EQ(ini.ReadSections(), QStringList({"Main", "Second", "main"}));
    EXPECT_EQ(ini.ReadString("MAIN", "name", "-"), "Value with = sign");
    EXPECT_EQ(ini.ReadSectionValues("Main"),
              QStringList({"Name=Value with = sign", "[unclosed line", "bare line"}));
    EXPECT_EQ(ini.ReadSection("Main"), QStringList({"Name"}));
    EXPECT_FALSE(ini.ValueExists("Main", "orphan"));
    EXPECT_FALSE(ini.ValueExists("Main", "bare line"));
    EXPECT_EQ(ini.ReadString("Second", "missing", "dflt"), "dflt");
    EXPECT_EQ(ini.GetStrings(),
              QStringList({"[Main]", "Name=Value with = sign", "[unclosed line", "bare line", "",
                           "[Second]", "k=first", "", "[main]", "Name=shadowed", ""}));
}

TEST(IniParsing, TypedValuesFallBackToTheDefault) {
    TSafeIniFile ini;
    ini.LoadFromStream(
        QByteArray("[N]\nplain=42\nneg=-7\nhex=0x1F\ndollar=$FFFFFFFF\n"
                   "word=abc\nhuge=99999999999\nempty=\ntwo=2\nzero=0\n"));
    EXPECT_EQ(ini.ReadInteger("N", "plain", 5), 42);
    EXPECT_EQ(ini.ReadInteger("N", "neg", 5), -7);
    EXPECT_EQ(ini.ReadInteger("N", "hex", 5), 31);
    EXPECT_EQ(ini.ReadInteger("N", "dollar", 5), -1);
    EXPECT_EQ(ini.ReadInteger("N", "word", 5), 5);
    EXPECT_EQ(ini.ReadInteger("N", "huge", 5), 5);
    EXPECT_EQ(ini.ReadInteger("N", "empty", 5), 5);
    EXPECT_TRUE(ini.ReadBool("N", "two", false));
    EXPECT_FALSE(ini.ReadBool("N", "zero", true));
    EXPECT_TRUE(ini.ReadBool("N", "word", true));
    ini.WriteBool("N", "flag", true);
    EXPECT_EQ(ini.ReadString("N", "flag", ""), "1");
}

struct EncodingCase {
    const char* name;
    QByteArray bytes;
};

class IniEncoding : public ::testing::TestWithParam<EncodingCase> {};

const QString kUnicodeText = QString::fromUtf8("[Größe]\nÜmlaut=Wert ✓ 𝄞\n");

TEST_P(IniEncoding, IsRecognisedByItsByteOrderMark) {
    TSafeIniFile ini;
    ini.LoadFromStream(GetParam().bytes);
    EXPECT_EQ(ini.ReadString(QString::fromUtf8("größe"), QString::fromUtf8("ümlaut"), "-"),
              QString::fromUtf8("Wert ✓ 𝄞"));
}

INSTANTIATE_TEST_SUITE_P(
    AllFour, IniEncoding,
    ::testing::Values(EncodingCase{"Utf8Bom", "\xEF\xBB\xBF" + kUnicodeText.toUtf8()},
                      EncodingCase{"Utf8Plain", kUnicodeText.toUtf8()},
                      EncodingCase{"Utf16LE", Utf16Le(kUnicodeText)},
                      EncodingCase{"Utf16BE", QStringEncoder(QStringConverter::Utf16BE,
                                                             QStringConverter::Flag::WriteBom)
                                                  .encode(kUnicodeText)}),
    [](const auto& info) { return std::string(info.param.name); });

QByteArray Utf16Bytes(const QString& text, QStringConverter::Encoding order) {
    return QStringEncoder(order).encode(text);
}

// Files that other programs write: no byte-order mark, or 8-bit text. They
// are read as they were meant and rewritten with the same text.
TEST_F(SafeIniFileTest, TextWithoutMarkIsReadAsMeantAndRewrittenFaithfully) {
    const QString text = QString::fromUtf8("[Main]\nName=Müller ✓\n");
    const EncodingCase cases[] = {
        {"utf-16 le", Utf16Bytes(text, QStringConverter::Utf16LE)},
        {"utf-16 be", Utf16Bytes(text, QStringConverter::Utf16BE)},
        {"latin-1", QByteArray("[Main]\nName=M\xFCller\n")},
    };
    for (const EncodingCase& c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = Path("other.ini");
        WriteFile(path, c.bytes);
        QString expected;
        {
            TSafeIniFile ini(path);
            EXPECT_FALSE(ini.LoadFailed());
            expected = ini.ReadString("Main", "Name", "");
            EXPECT_TRUE(expected.startsWith(QString::fromUtf8("Müller")));
        }
        EXPECT_EQ(ReadFile(path), Utf16Le("[Main]\nName=" + expected + "\n\n"));
    }
}

TEST_F(SafeIniFileTest, TextThatCannotBeDecodedIsNeverWrittenBack) {
    const EncodingCase cases[] = {
        {"broken utf-8 after a mark", QByteArray("\xEF\xBB\xBF[S]\nk=\xC3\x28\n")},
        {"utf-16 cut in a character", Utf16Le("[S]\nk=v\n").chopped(1)},
        {"lone surrogate", Utf16Le("[S]\nk=") + QByteArray("\x00\xD8"
                                                           "A\0",
                                                           4)},
        {"zeros in no pattern", QByteArray("[S]\nk=v\0\0x\0y\n", 13)},
    };
    for (const EncodingCase& c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = Path("foreign.ini");
        WriteFile(path, c.bytes);
        {
            TSafeIniFile ini(path);
            EXPECT_TRUE(ini.LoadFailed());
            EXPECT_EQ(ini.LastError(), EILSEQ);
            EXPECT_TRUE(ini.SectionExists("S"));  // still read as well as it goes
            ini.WriteString("S", "k", "new");
            ini.UpdateFile();
        }
        EXPECT_EQ(ReadFile(path), c.bytes);
    }
}

TEST_F(SafeIniFileTest, SavesUtf16WithMarkAndRewritesWhatItLoaded) {
    const QString path = Path("a.ini");
    WriteFile(path, "[S]\n k = v \n");
    { TSafeIniFile ini(path); }  // loading alone counts as a change
    EXPECT_EQ(ReadFile(path), Utf16Le("[S]\nk=v\n\n"));

    TSafeIniFile empty;
    ASSERT_TRUE(empty.SaveToFile(Path("empty.ini")));
    EXPECT_EQ(ReadFile(Path("empty.ini")), QByteArray("\xFF\xFE", 2));
}

TEST_F(SafeIniFileTest, CreatesMissingFileAndFoldersWithSource) {
    const QString path = Path("deep/er/new.ini");
    {
        TSafeIniFile ini(path, "[Src]\nk=1\n");
        EXPECT_EQ(ini.ReadString("Src", "k", ""), "1");
        EXPECT_FALSE(ini.Modified());
    }
    EXPECT_EQ(ReadFile(path), QByteArray("[Src]\nk=1\n"));
    { TSafeIniFile bare(Path("other/bare.ini")); }
    EXPECT_TRUE(QFile::exists(Path("other/bare.ini")));
}

TEST_F(SafeIniFileTest, NamelessObjectNeverWrites) {
    const QString path = Path("keep.ini");
    WriteFile(path, "[S]\nk=v\n");
    {
        TSafeIniFile ini;
        ASSERT_TRUE(ini.LoadFromFile(path));
        ini.WriteString("S", "k", "changed");
        ini.UpdateFile();
    }
    EXPECT_EQ(ReadFile(path), QByteArray("[S]\nk=v\n"));
}

TEST_F(SafeIniFileTest, ReadOnlyFileIsSavedAndStaysReadOnly) {
    const QString path = Path("ro.ini");
    WriteFile(path, "[S]\nk=v\n");
    ::chmod(QFile::encodeName(path).constData(), 0444);
    {
        TSafeIniFile ini(path);
        ini.WriteString("S", "k", "new");
        ini.UpdateFile();
        EXPECT_EQ(ini.LastError(), 0);
        EXPECT_FALSE(ini.Modified());
    }
    EXPECT_EQ(ReadFile(path), Utf16Le("[S]\nk=new\n\n"));
    EXPECT_EQ(ModeOf(path), 0444u);
}

TEST_F(SafeIniFileTest, FileThatVanishesBeforeTheWriteIsCreatedAgain) {
    const QString path = Path("gone/x.ini");
    WriteFile(path, "[S]\nk=v\n");
    TSafeIniFile ini(path);
    ASSERT_TRUE(QDir(Path("gone")).removeRecursively());
    ini.WriteString("S", "k2", "w");
    ini.UpdateFile();
    EXPECT_EQ(ReadFile(path), Utf16Le("[S]\nk=v\nk2=w\n\n"));
}

TEST_F(SafeIniFileTest, UnreadablePathIsNeverOverwritten) {
    const QString path = Path("is-a-folder.ini");
    QDir().mkpath(path);
    {
        TSafeIniFile ini(path);
        EXPECT_TRUE(ini.LoadFailed());
        EXPECT_EQ(ini.LastError(), EISDIR);
        EXPECT_TRUE(ini.ReadSections().isEmpty());
        ini.WriteString("S", "k", "v");  // works on the empty state
        EXPECT_EQ(ini.ReadString("S", "k", ""), "v");
    }
    EXPECT_TRUE(QFileInfo(path).isDir());
}

// A file without read permission for its owner: the owner could still write
// it (the save lifts a missing write bit), so only the guard keeps it whole.
// Root reads anything, so under root the check runs as an unprivileged user.
TEST_F(SafeIniFileTest, FileWithoutReadPermissionKeepsItsContent) {
    const QString path = Path("locked.ini");
    const QByteArray original = "[S]\nk=precious\n";
    WriteFile(path, original);
    const uid_t nobody = 65534;
    const bool asRoot = ::geteuid() == 0;
    if (asRoot) {
        ::chmod(QFile::encodeName(dir_.path()).constData(), 0777);
        ASSERT_EQ(::chown(QFile::encodeName(path).constData(), nobody, nobody), 0);
    }
    ::chmod(QFile::encodeName(path).constData(), 0);
    const auto scenario = [&] {
        TSafeIniFile ini(path);
        const bool failed = ini.LoadFailed() && ini.LastError() == EACCES;
        ini.WriteString("S", "k", "lost");
        return failed;
    };
    if (!asRoot) {
        EXPECT_TRUE(scenario());
    } else {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const bool ok = ::setgid(nobody) == 0 && ::setuid(nobody) == 0 && scenario();
            ::_exit(ok ? 0 : 1);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    ::chmod(QFile::encodeName(path).constData(), 0600);
    EXPECT_EQ(ReadFile(path), original);
}

TEST(SafeIniFileWrites, CacheFollowsSectionChanges) {
    TSafeIniFile ini;
    ini.WriteString("A", "k", "1");
    ini.WriteString("B", "k", "2");
    ini.EraseSection("A");  // B moves to index 0
    ini.WriteString("B", "k2", "3");
    ini.WriteString("A", "k", "4");
    EXPECT_EQ(ini.GetStrings(), QStringList({"[B]", "k=2", "k2=3", "", "[A]", "k=4", ""}));
    ini.DeleteKey("B", "K");
    EXPECT_EQ(ini.ReadSectionValues("B"), QStringList({"k2=3"}));

    ini.SetAppendOnly(true);
    ini.WriteString("A", "k", "5");
    EXPECT_EQ(ini.ReadSectionValues("A"), QStringList({"k=4", "k=5"}));
    EXPECT_EQ(ini.ReadString("A", "k", ""), "4");
}

TEST(SafeIniFileWrites, DateTimeIgnoresTheLocale) {
    const QLocale saved;
    const QDateTime when(QDate(2024, 3, 7), QTime(14, 5, 9, 42));
    QString written[2];
    int i = 0;
    for (const auto language : {QLocale::English, QLocale::German}) {
        QLocale::setDefault(QLocale(language, QLocale::Germany));
        TSafeIniFile ini;
        ini.WriteDateTime("T", "when", when);
        written[i++] = ini.ReadString("T", "when", "");
        EXPECT_EQ(ini.ReadDateTime("T", "when", {}), when);
    }
    QLocale::setDefault(saved);
    EXPECT_EQ(written[0], "03/07/2024 14:05:09:042");
    EXPECT_EQ(written[1], written[0]);

    TSafeIniFile ini;
    ini.LoadFromStream(QByteArray("[T]\nshort=12/31/1999\nbad=31/12/1999\nempty=\n"));
    const QDateTime fallback(QDate(2000, 1, 1), QTime(0, 0));
    EXPECT_EQ(ini.ReadDateTime("T", "short", fallback),
              QDateTime(QDate(1999, 12, 31), QTime(0, 0)));
    EXPECT_EQ(ini.ReadDateTime("T", "bad", fallback), fallback);
    EXPECT_EQ(ini.ReadDateTime("T", "empty", fallback), fallback);
}

TEST_F(SafeIniFileTest, StreamsFromADevice) {
    QByteArray bytes = Utf16Le("[Skin]\nname=classic\n");
    QBuffer buffer(&bytes);
    TSafeIniFile ini;
    ASSERT_TRUE(ini.LoadFromStream(buffer));
    EXPECT_EQ(ini.ReadString("skin", "NAME", ""), "classic");
    QFile missing(Path("none.ini"));
    EXPECT_FALSE(ini.LoadFromStream(missing));
    EXPECT_TRUE(ini.ReadSections().isEmpty());
}

TEST_F(SafeIniFileTest, ExtIniFileReadsButNeverWrites) {
    const QString path = Path("English.lng");
    const QByteArray original = "\xEF\xBB\xBF[QPT_Main]\n Save = Save \n";
    WriteFile(path, original);
    {
        TExtIniFile ini(path);
        EXPECT_EQ(ini.ReadString("qpt_main", "save", ""), "Save");
        ini.WriteString("QPT_Main", "Save", "Sichern");
        EXPECT_EQ(ini.ReadString("QPT_Main", "Save", ""), "Sichern");
        ini.UpdateFile();
    }
    EXPECT_EQ(ReadFile(path), original);
    TExtIniFile missing(Path("none.lng"));
    EXPECT_EQ(missing.LastError(), ENOENT);
    EXPECT_EQ(missing.ReadString("QPT_Main", "Save", "dflt"), "dflt");
}

}  // namespace
}  // namespace qpt
