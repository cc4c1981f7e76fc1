#pragma once

#include <QThread>
#include <functional>
#include <utility>

#include "tests/app/PinnedProgram.h"
#include "tests/common/ScratchHome.h"

namespace qpt {

// Places of the buttons on the toolbar at 1x, from its top left corner.
constexpr QPoint kRect(255, 20), kOval(285, 20), kLine(315, 20), kArrow(345, 20), kBrush(375, 20),
    kMosaic(405, 20), kFont(435, 20), kReturn(493, 20), kDel(523, 20);
// On the style bar at 1x, which opens under the toolbar: the widest pen, and
// the palette's green cell in the shape and in the text arrangement.
constexpr QPoint kWidestPen(80, 26), kGreen(273, 16), kGreenForText(373, 16);
constexpr QRgb kGreenRgb = 0x22B14C;

// Drawing on the real program with the mouse, and what the screen shows.
class AnnotateOnScreen : public testing::PinnedProgram {
protected:
    // A grey picture at 100,100; the toolbar comes with a first click, at
    // 0,402 for a picture this size.
    void PinGrey() {
        QImage grey(400, 300, QImage::Format_RGB888);
        grey.fill(QColor(0x80, 0x80, 0x80));
        PinAndShowBar(grey);
    }
    void PinAndShowBar(const QImage& picture, const QString& program = QPT_PROGRAM_DIR "/QptPin",
                       const QStringList& arguments = {"/QPTMain"}) {
        picture_ = picture;
        Pin(picture, QRect(100, 100, 400, 300), arguments, program);
        ClickAt(QPoint(300, 110));
        ASSERT_TRUE(testing::WaitFor([&] { return !(bar_ = ToolbarRect()).isEmpty(); }));
    }
    void Tool(QPoint button) {
        ClickAt(bar_.topLeft() + button);
        QThread::msleep(150);
    }
    void Drag(QPoint from, QPoint to) {
        const QPoint mid = (from + to) / 2;
        Xdotool({"mousemove", N(from.x()), N(from.y()), "mousedown", "1", "mousemove",
                 N(from.x() + 3), N(from.y() + 3), "mousemove", N(mid.x()), N(mid.y()), "mousemove",
                 N(to.x()), N(to.y()), "sleep", "0.2", "mouseup", "1"});
    }
    void Key(const char* keys) { Xdotool({"mousemove", "300", "250", "key", keys}); }
    // Screen pixels in r of the session's red, the colour a new mark gets.
    int RedIn(const QRect& r) { return ColourIn(r, 0xFF0000); }
    int ColourIn(const QRect& r, QRgb colour) {
        return Count(r, [colour](QRgb p) { return (p & 0xFFFFFF) == colour; });
    }
    int Count(const QRect& r, const std::function<bool(QRgb)>& counts) {
        const QImage shot = Screen(r);
        int count = 0;
        for (int y = 0; y < shot.height(); ++y)
            for (int x = 0; x < shot.width(); ++x)
                count += counts(shot.pixel(x, y));
        return count;
    }
    // Smoothed marks and text on the grey picture, in red or in the
    // palette's green.
    static bool Reddish(QRgb p) { return qRed(p) > 200 && qGreen(p) < 90 && qBlue(p) < 90; }
    static bool Greenish(QRgb p) { return qGreen(p) - qRed(p) > 60 && qGreen(p) - qBlue(p) > 30; }
    // The screen stays the same in r for a while: what was sent is painted.
    bool Settled(const QRect& r) {
        QImage last = Screen(r);
        return testing::WaitFor(
            [&] {
                QThread::msleep(250);
                QImage now = Screen(r);
                const bool same = now == last;
                last = std::move(now);
                return same;
            },
            8000);
    }
    QPoint StyleBar() const { return bar_.bottomLeft() + QPoint(0, 3); }
    // The style bar's window while it is on the screen.
    xcb_window_t StyleBarWindow() {
        return MappedWindowId([&](xcb_window_t w) { return Geometry(w).topLeft() == StyleBar(); });
    }
    // The picture is untouched in r (screen coordinates).
    bool Plain(const QRect& r) { return Shows(picture_, r.translated(-100, -100), r.topLeft()); }
    bool Ended() {
        return program_.waitForFinished(8000) && program_.exitStatus() == QProcess::NormalExit &&
               program_.exitCode() == 0;
    }

    static QString N(int v) { return QString::number(v); }
    QImage picture_;
    QRect bar_;
};

}  // namespace qpt
