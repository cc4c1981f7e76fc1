#include "tests/app/PinnedProgram.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/common/ProgramRun.h"

namespace qpt::testing {

bool WaitFor(const std::function<bool()>& done, int ms) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > ms) return false;
        QThread::msleep(20);
    }
    return true;
}

QImage Pattern(int width, int height) {
    QImage image(width, height, QImage::Format_RGB888);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb((x * 7) & 255, (y * 5) & 255, ((x + y) * 3) & 255));
    return image;
}

void PinnedProgram::TearDown() {
    if (program_.state() != QProcess::NotRunning) {
        program_.kill();
        program_.waitForFinished();
    }
    DisplayTest::TearDown();
}

void PinnedProgram::Pin(const QImage& picture, const QRect& rect, const QStringList& arguments,
                        const QString& program) {
    ASSERT_TRUE(WriteHandOver(picture, {QString::number(rect.left()), QString::number(rect.top()),
                                        QString::number(rect.left() + rect.width()),
                                        QString::number(rect.top() + rect.height())}));
    ASSERT_TRUE(StartPinned(arguments, program)) << errors_.toStdString();
}

bool PinnedProgram::WriteHandOver(const QImage& picture, const QStringList& startPin) {
    if (!picture.save(GetTempFolder() + "QPTPinTemp.bmp", "BMP")) return false;
    const char* keys[] = {"Left", "Top", "Right", "Bottom"};
    for (int i = 0; i < 4; ++i)
        WriteMainIni("StartPin", keys[i], startPin[i]);
    return true;
}

bool PinnedProgram::StartPinned(const QStringList& arguments, const QString& program) {
    program_.setProcessEnvironment(
        ChangedEnvironment({{"QT_QPA_PLATFORM", "xcb"}, {"QPT_DEBUG", "1"}}));
    errors_.clear();
    program_.start(program, arguments);
    if (!program_.waitForStarted()) return false;
    WaitFor(
        [&] {
            program_.waitForReadyRead(20);
            errors_ += program_.readAllStandardError();
            return errors_.contains("first paint") || program_.state() == QProcess::NotRunning;
        },
        15000);
    errors_ += program_.readAllStandardError();
    return errors_.contains("first paint");
}

QString PinnedProgram::ProgramBesideStatRecorder(const QString& record) {
    const QString folder = env_.root() + "program/";
    EXPECT_TRUE(QDir().mkpath(folder));
    EXPECT_TRUE(QFile::copy(QPT_PROGRAM_DIR "/QptPin", folder + "QptPin"));
    QFile::setPermissions(folder + "QptPin", QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_TRUE(QFile::link(QPT_PROGRAM_DIR "/skin", folder + "skin"));
    EXPECT_TRUE(QFile::link(QPT_PROGRAM_DIR "/QptClipboard", folder + "QptClipboard"));
    EXPECT_TRUE(QFile::copy(QPT_STAT_STANDIN, folder + "libProductStatistics.so"));
    env_.setEnv("QPT_STAT_STANDIN_LOG", record.toStdString());
    return folder + "QptPin";
}

QImage PinnedProgram::Screen(const QRect& r) {
    xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c_)).data;
    auto* reply = xcb_get_image_reply(
        c_,
        xcb_get_image(c_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root, int16_t(r.x()), int16_t(r.y()),
                      uint16_t(r.width()), uint16_t(r.height()), ~0u),
        nullptr);
    if (!reply) return {};
    QImage image(xcb_get_image_data(reply), r.width(), r.height(), r.width() * 4,
                 QImage::Format_RGB32);
    QImage copy = image.copy();
    std::free(reply);
    return copy;
}

bool PinnedProgram::Shows(const QImage& picture, const QRect& part, QPoint at) {
    const QImage expected = picture.copy(part).convertToFormat(QImage::Format_RGB32);
    return Screen(QRect(at, part.size())) == expected;
}

void PinnedProgram::Xdotool(const QStringList& arguments) {
    ASSERT_EQ(QProcess::execute("xdotool", arguments), 0) << arguments.join(' ').toStdString();
}

void PinnedProgram::ClickAt(QPoint at) {
    Xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
}

QByteArray PinnedProgram::Property(xcb_window_t window, const char* name) {
    auto atom = std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)>(
        xcb_intern_atom_reply(c_, xcb_intern_atom(c_, 0, uint16_t(std::strlen(name)), name),
                              nullptr),
        &std::free);
    if (!atom) return {};
    auto reply = std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)>(
        xcb_get_property_reply(
            c_, xcb_get_property(c_, 0, window, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 256),
            nullptr),
        &std::free);
    if (!reply) return {};
    return QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

xcb_window_t PinnedProgram::MappedWindowId(const std::function<bool(xcb_window_t)>& matches) {
    xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c_)).data->root;
    auto tree = std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)>(
        xcb_query_tree_reply(c_, xcb_query_tree(c_, root), nullptr), &std::free);
    if (!tree) return XCB_WINDOW_NONE;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        auto attributes = std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)>(
            xcb_get_window_attributes_reply(c_, xcb_get_window_attributes(c_, children[i]),
                                            nullptr),
            &std::free);
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) continue;
        if (matches(children[i])) return children[i];
    }
    return XCB_WINDOW_NONE;
}

QRect PinnedProgram::Geometry(xcb_window_t window) {
    auto g = std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)>(
        xcb_get_geometry_reply(c_, xcb_get_geometry(c_, window), nullptr), &std::free);
    return g ? QRect(g->x, g->y, g->width, g->height) : QRect();
}

QRect PinnedProgram::MappedWindow(const std::function<bool(xcb_window_t)>& matches) {
    const xcb_window_t window = MappedWindowId(matches);
    return window == XCB_WINDOW_NONE ? QRect() : Geometry(window);
}

QRect PinnedProgram::PinnedWindowRect() {
    return MappedWindow(
        [&](xcb_window_t w) { return Property(w, "WM_NAME") == "Zelk Screenshot"; });
}

QRect PinnedProgram::ToolbarRect() {
    return MappedWindow(
        [&](xcb_window_t w) { return Property(w, "WM_WINDOW_ROLE") == "FormTools"; });
}

}  // namespace qpt::testing
