// The program as a user gets it: installed into a private folder, started
// through the installed launcher and from the demo's menu entry on a
// private X server, and seen on the screen with its toolbar.
#include <gtest/gtest.h>

#include <signal.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>
#include <memory>

#include "tests/app/PinnedProgram.h"
#include "tests/install/InstalledTree.h"

namespace qpt {
namespace {

using testing::FilesUnder;
using testing::InstalledTree;
using testing::Pattern;
using testing::WaitFor;

class InstalledProgram : public testing::PinnedProgram {
protected:
    static void SetUpTestSuite() { tree_ = std::make_unique<InstalledTree>(); }
    static void TearDownTestSuite() { tree_.reset(); }

    void SetUp() override {
        PinnedProgram::SetUp();
        ASSERT_TRUE(tree_->ok()) << tree_->log().toStdString();
    }

    void StartHost(const QString& program, const QStringList& arguments) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "xcb");
        program_.setProcessEnvironment(environment);
        program_.start(program, arguments);
        ASSERT_TRUE(program_.waitForStarted()) << program.toStdString();
    }

    // Waits for the host's line about the picture it handed over.
    QString PinningLine() {
        QByteArray out;
        WaitFor(
            [&] {
                program_.waitForReadyRead(20);
                out += program_.readAllStandardOutput();
                return out.contains('\n');
            },
            20000);
        return QString::fromUtf8(out).section('\n', 0, 0);
    }

    void TearDown() override;
    QRect PinAndShowBar(const QString& host, const QString& qptpin);
    void EndHost();
    QImage SettledScreen(const QRect& r);

    static std::unique_ptr<InstalledTree> tree_;
};

std::unique_ptr<InstalledTree> InstalledProgram::tree_;

// A key of the desktop entry's main group, as written.
QString EntryValue(const QString& entry, const QString& key) {
    QFile file(entry);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n'))
        if (line.startsWith(key + '=')) return line.mid(key.size() + 1);
    return {};
}

bool IsElf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(4) == QByteArray(
                                                                 "\x7f"
                                                                 "ELF",
                                                                 4);
}

// Everything the build lays into its program folder is there, and nothing
// installed points back into the build or the sources, as a build path
// compiled in or a run path of the linker would.
TEST_F(InstalledProgram, HoldsTheWholeProgramFolderAndNothingOfTheBuild) {
    const QStringList built = FilesUnder(QPT_PROGRAM_DIR);
    ASSERT_TRUE(built.contains("QptPin") && built.contains("QptClipboard"));
    EXPECT_EQ(FilesUnder(tree_->programDir()), built);
    for (const QString& name : built) {
        const QString installed = tree_->programDir() + '/' + name;
        if (IsElf(installed)) {
            EXPECT_TRUE(QFileInfo(installed).isExecutable()) << name.toStdString();
        }
    }
    EXPECT_EQ(QFileInfo(tree_->prefix() + "/bin/QptPin").canonicalFilePath(),
              QFileInfo(tree_->programDir() + "/QptPin").canonicalFilePath());
    for (const QString& name : FilesUnder(tree_->root())) {
        QFile file(tree_->root() + '/' + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        const QByteArray bytes = file.readAll();
        EXPECT_FALSE(bytes.contains(QPT_BINARY_DIR)) << name.toStdString();
        EXPECT_FALSE(bytes.contains(QPT_SOURCE_DIR)) << name.toStdString();
    }
}

// The menu entry passes the desktop's validator, starts the installed demo,
// and its icon has the size its theme folder promises.
TEST_F(InstalledProgram, TheMenuEntryIsValidAndItsIconsFitTheirFolders) {
    const QString entry = tree_->prefix() + "/share/applications/qptpin-demo.desktop";
    QProcess validate;
    validate.setProcessChannelMode(QProcess::MergedChannels);
    validate.start("desktop-file-validate", {entry});
    ASSERT_TRUE(validate.waitForFinished());
    const QByteArray said = validate.readAll();
    EXPECT_EQ(validate.exitCode(), 0) << said.toStdString();
    EXPECT_FALSE(said.contains("error:")) << said.toStdString();

    const QString exec = EntryValue(entry, "Exec");
    const QString program = exec.section('"', 1, 1);
    EXPECT_TRUE(QFileInfo(tree_->Resolve(program)).isExecutable()) << exec.toStdString();
    const QString icon = EntryValue(entry, "Icon");
    const QString themes = tree_->prefix() + "/share/icons/hicolor/";
    int sizes = 0;
    for (const QString& name : FilesUnder(themes)) {
        const auto match = QRegularExpression("^(\\d+)x\\1/apps/(.*)\\.png$").match(name);
        if (!match.hasMatch() || match.captured(2) != icon) continue;
        const int side = match.captured(1).toInt();
        EXPECT_EQ(QImage(themes + name).size(), QSize(side, side)) << name.toStdString();
        ++sizes;
    }
    EXPECT_GE(sizes, 4);
    EXPECT_TRUE(QFile::exists(themes + "scalable/apps/" + icon + ".svg"));
}

// The host hands a picture over and starts QptPin; the picture stands where
// it was taken, and a click brings the toolbar. Returns where the bar stands.
QRect InstalledProgram::PinAndShowBar(const QString& host, const QString& qptpin) {
    const QImage picture = Pattern(500, 300);
    const QString file = env_.root() + "picture.png";
    EXPECT_TRUE(picture.save(file));
    StartHost(host, {file, "--at", "400,250", "--program", qptpin});
    EXPECT_EQ(PinningLine(), "pinning 500x300 at 400,250");
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), {400, 250}); }, 20000));
    ClickAt({650, 260});
    QRect bar;
    EXPECT_TRUE(WaitFor([&] { return !(bar = ToolbarRect()).isEmpty(); }, 20000));
    // Away from the bar, so that no button is lit under the pointer.
    Xdotool({"mousemove", "5", "5"});
    return bar;
}

// The processes started by `parent`, found by their parent in /proc.
QList<pid_t> ChildrenOf(qint64 parent) {
    QList<pid_t> children;
    for (const QString& name : QDir("/proc").entryList(QDir::Dirs)) {
        QFile stat("/proc/" + name + "/stat");
        if (!stat.open(QIODevice::ReadOnly)) continue;
        // "pid (command) state ppid ...": the command may hold spaces.
        const QByteArray line = stat.readAll();
        const QList<QByteArray> rest = line.mid(line.lastIndexOf(')') + 2).split(' ');
        if (rest.size() > 1 && rest[1].toLongLong() == parent) children << name.toInt();
    }
    return children;
}

// Ends the host and the QptPin it started, whose windows are then gone.
void InstalledProgram::EndHost() {
    for (pid_t child : ChildrenOf(program_.processId()))
        ::kill(child, SIGKILL);
    program_.kill();
    program_.waitForFinished();
    EXPECT_TRUE(WaitFor([&] { return ToolbarRect().isEmpty(); }, 10000));
}

void InstalledProgram::TearDown() {
    if (program_.state() != QProcess::NotRunning) EndHost();
    PinnedProgram::TearDown();
}

// What the screen shows in `r` once it holds still and is not a blank window.
QImage InstalledProgram::SettledScreen(const QRect& r) {
    QImage shown;
    WaitFor(
        [&] {
            const QImage first = Screen(r);
            QThread::msleep(300);
            shown = Screen(r);
            return shown == first &&
                   shown.pixel(0, 0) != shown.pixel(r.width() / 2, r.height() / 2);
        },
        20000);
    return shown;
}

// The launcher in bin/ runs QptPin from its program folder, which finds
// its skin and companions there: the bar is the very bar of the build tree.
TEST_F(InstalledProgram, TheLauncherPinsThePictureWithTheToolbarOfTheBuildTree) {
    const QRect bar = PinAndShowBar(QPT_PROGRAM_DIR "/StandInHost", QPT_PROGRAM_DIR "/QptPin");
    ASSERT_FALSE(bar.isEmpty());
    const QImage built = SettledScreen(bar);
    EndHost();
    EXPECT_EQ(PinAndShowBar(tree_->programDir() + "/StandInHost", tree_->prefix() + "/bin/QptPin"),
              bar);
    EXPECT_TRUE(WaitFor([&] { return Screen(bar) == built; }, 20000));
}

// A window of known pixels on the screen stands for what the user sees.
class ScreenContent {
public:
    ScreenContent(xcb_connection_t* c, const QImage& picture, QPoint at);
    ~ScreenContent() { Remove(); }
    void Remove();

private:
    xcb_connection_t* c_;
    xcb_window_t window_ = 0;
    xcb_pixmap_t pixmap_ = 0;
};

ScreenContent::ScreenContent(xcb_connection_t* c, const QImage& picture, QPoint at) : c_(c) {
    xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB32);
    const auto width = uint16_t(pixels.width()), height = uint16_t(pixels.height());
    pixmap_ = xcb_generate_id(c);
    xcb_create_pixmap(c, screen->root_depth, pixmap_, screen->root, width, height);
    const xcb_gcontext_t gc = xcb_generate_id(c);
    xcb_create_gc(c, gc, pixmap_, 0, nullptr);
    xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap_, gc, width, height, 0, 0, 0,
                  screen->root_depth, uint32_t(pixels.sizeInBytes()), pixels.constBits());
    xcb_free_gc(c, gc);
    window_ = xcb_generate_id(c);
    const uint32_t values[] = {pixmap_, 1};
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window_, screen->root, int16_t(at.x()),
                      int16_t(at.y()), width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual, XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(c, window_);
    xcb_flush(c);
}

void ScreenContent::Remove() {
    if (!window_) return;
    xcb_destroy_window(c_, window_);
    xcb_free_pixmap(c_, pixmap_);
    xcb_flush(c_);
    window_ = 0;
}

// As from the desktop menu: the entry's command opens the demo's window, a
// region of the screen is dragged out, and that piece of the screen stays
// pinned in its place when what was there goes away.
TEST_F(InstalledProgram, TheDemoFromTheMenuPinsARegionOfTheScreen) {
    const QImage picture = Pattern(240, 160);
    const QPoint at(300, 200);
    ScreenContent content(c_, picture, at);
    ASSERT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), at); }, 10000));

    const QString entry = tree_->prefix() + "/share/applications/qptpin-demo.desktop";
    const QString exec = EntryValue(entry, "Exec");
    StartHost(tree_->Resolve(exec.section('"', 1, 1)),
              exec.section('"', 2).split(' ', Qt::SkipEmptyParts));
    QRect demo;
    ASSERT_TRUE(WaitFor([&] { return !(demo = PinnedWindowRect()).isEmpty(); }, 20000));
    // The lower of the two buttons, which ends 12 pixels above the window's edge.
    ClickAt({demo.center().x(), demo.bottom() - 20});
    ASSERT_TRUE(WaitFor([&] { return !Shows(picture, picture.rect(), at); }, 20000))
        << "the screen is veiled for the choice";
    const QPoint last = at + QPoint(picture.width() - 1, picture.height() - 1);
    Xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "mousedown", "1",
             "mousemove", QString::number(at.x() + 50), QString::number(at.y() + 50), "mousemove",
             QString::number(last.x()), QString::number(last.y()), "mouseup", "1"});
    EXPECT_EQ(PinningLine(), "pinning 240x160 at 300,200");
    content.Remove();
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), at); }, 20000))
        << "QptPin holds the piece of the screen";
}

}  // namespace
}  // namespace qpt
