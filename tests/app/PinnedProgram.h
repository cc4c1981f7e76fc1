#pragma once

#include <QImage>
#include <QProcess>
#include <QRect>
#include <QStringList>
#include <functional>

#include "tests/common/DisplayTest.h"

namespace qpt::testing {

// Polls until done() holds or the time is up.
bool WaitFor(const std::function<bool()>& done, int ms = 3000);

// A picture that differs from pixel to pixel, so that any shift shows.
QImage Pattern(int width, int height);

// The real program on a private X server: a picture handed over as the host
// does, then what the screen shows, driven with XTest through xdotool.
class PinnedProgram : public DisplayTest {
protected:
    using DisplayTest::DisplayTest;
    void TearDown() override;

    // Writes the hand-over and starts QptPin with the arguments; returns once
    // it has painted.
    void Pin(const QImage& picture, const QRect& rect, const QStringList& arguments = {"/QPTMain"},
             const QString& program = QPT_PROGRAM_DIR "/QptPin");

    // The hand-over as a host writes it: the picture, and the four "StartPin"
    // values Left, Top, Right and Bottom as text, whatever they say.
    static bool WriteHandOver(const QImage& picture, const QStringList& startPin);
    // Starts the program and waits for its first paint; false when it ends
    // or 15 s go by first. What it said is in `errors_`.
    bool StartPinned(const QStringList& arguments = {"/QPTMain"},
                     const QString& program = QPT_PROGRAM_DIR "/QptPin");

    // A copy of the program, with its skin and clipboard holder, beside a
    // statistics library that writes what it is told to `record`.
    QString ProgramBesideStatRecorder(const QString& record);

    QImage Screen(const QRect& r);
    // The screen shows the picture's part `part` at `at`.
    bool Shows(const QImage& picture, const QRect& part, QPoint at);
    void Xdotool(const QStringList& arguments);
    void ClickAt(QPoint at);

    // Mapped top-level windows: the pinned window by its title, the toolbar
    // by its role; an empty rectangle while it is not on the screen.
    QRect PinnedWindowRect();
    QRect ToolbarRect();

    // The first mapped top-level window that matches, or an empty rectangle.
    QRect MappedWindow(const std::function<bool(xcb_window_t)>& matches);
    // The same window itself, or XCB_WINDOW_NONE.
    xcb_window_t MappedWindowId(const std::function<bool(xcb_window_t)>& matches);
    QRect Geometry(xcb_window_t window);
    QByteArray Property(xcb_window_t window, const char* name);

    QProcess program_;
    QByteArray errors_;
};

}  // namespace qpt::testing
