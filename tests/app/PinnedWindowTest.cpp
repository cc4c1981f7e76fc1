// The real program on a private X server: a picture handed over as the host
// does, then what the screen shows, driven with XTest through xdotool.
#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QElapsedTimer>
#include <QImage>
#include <QProcess>
#include <QThread>
#include <cstdlib>
#include <functional>

#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/common/DisplayTest.h"
#include "tests/common/ScratchHome.h"

namespace qpt {
namespace {

using testing::ScratchHome;

// A picture that differs from pixel to pixel, so that any shift shows.
QImage Pattern(int width, int height) {
    QImage image(width, height, QImage::Format_RGB888);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb((x * 7) & 255, (y * 5) & 255, ((x + y) * 3) & 255));
    return image;
}

bool WaitFor(const std::function<bool()>& done, int ms = 3000) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > ms) return false;
        QThread::msleep(20);
    }
    return true;
}

class PinnedWindow : public testing::DisplayTest {
protected:
    void TearDown() override {
        if (program_.state() != QProcess::NotRunning) {
            program_.kill();
            program_.waitForFinished();
        }
        DisplayTest::TearDown();
    }

    // Writes the hand-over and starts QptPin; returns once it has painted.
    void Pin(const QImage& picture, const QRect& rect, const QByteArray& tool = {}) {
        ASSERT_TRUE(picture.save(GetTempFolder() + "QPTPinTemp.bmp", "BMP"));
        WriteMainIni("StartPin", "Left", QString::number(rect.left()));
        WriteMainIni("StartPin", "Top", QString::number(rect.top()));
        WriteMainIni("StartPin", "Right", QString::number(rect.left() + rect.width()));
        WriteMainIni("StartPin", "Bottom", QString::number(rect.top() + rect.height()));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("QPT_DEBUG", "1");
        if (!tool.isEmpty()) environment.insert("QPT_TEST_ARM_TOOL", tool);
        program_.setProcessEnvironment(environment);
        program_.start(QPT_PROGRAM_DIR "/QptPin", {"/QPTMain"});
        ASSERT_TRUE(program_.waitForStarted());
        QByteArray errors;
        ASSERT_TRUE(WaitFor(
            [&] {
                program_.waitForReadyRead(20);
                errors += program_.readAllStandardError();
                return errors.contains("first paint");
            },
            15000))
            << errors.toStdString();
    }

    QImage Screen(const QRect& r) {
        xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c_)).data;
        auto* reply = xcb_get_image_reply(
            c_,
            xcb_get_image(c_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root, int16_t(r.x()),
                          int16_t(r.y()), uint16_t(r.width()), uint16_t(r.height()), ~0u),
            nullptr);
        if (!reply) return {};
        QImage image(xcb_get_image_data(reply), r.width(), r.height(), r.width() * 4,
                     QImage::Format_RGB32);
        QImage copy = image.copy();
        std::free(reply);
        return copy;
    }

    // The screen shows the picture's part `part` at `at`.
    bool Shows(const QImage& picture, const QRect& part, QPoint at) {
        const QImage expected = picture.copy(part).convertToFormat(QImage::Format_RGB32);
        return Screen(QRect(at, part.size())) == expected;
    }

    void Xdotool(const QStringList& arguments) {
        ASSERT_EQ(QProcess::execute("xdotool", arguments), 0) << arguments.join(' ').toStdString();
    }

    QProcess program_;
};

TEST_F(PinnedWindow, StandsAtTheHandedOverRectangleWithThePicturesPixels) {
    const QImage picture = Pattern(320, 240);
    Pin(picture, QRect(200, 150, 320, 240));
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), QPoint(200, 150)); }));
    // Nothing of the window beside the rectangle: the screen there is bare.
    EXPECT_EQ(Screen(QRect(520, 150, 9, 240)).pixel(0, 0), Screen(QRect(0, 0, 1, 1)).pixel(0, 0));
}

// 80% of 1080 is 864: a taller picture is cut there, the window is 9 pixels
// wider for the bar, and the wheel scrolls the picture.
TEST_F(PinnedWindow, ARectangleTallerThanTheLimitIsCutAndScrolls) {
    const QImage picture = Pattern(300, 1000);
    Pin(picture, QRect(50, 40, 300, 1000));
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, QRect(0, 0, 300, 864), QPoint(50, 40)); }));
    const QRgb bare = Screen(QRect(1900, 1070, 1, 1)).pixel(0, 0);
    EXPECT_EQ(Screen(QRect(50, 40 + 864, 1, 1)).pixel(0, 0), bare) << "below the cut";
    EXPECT_NE(Screen(QRect(350, 40, 9, 864)),
              picture.copy(0, 0, 9, 864).convertToFormat(QImage::Format_RGB32));
    EXPECT_NE(Screen(QRect(354, 400, 1, 1)).pixel(0, 0), bare) << "the bar is part of the window";
    EXPECT_EQ(Screen(QRect(359, 400, 1, 1)).pixel(0, 0), bare) << "and no wider than 9";

    Xdotool({"mousemove", "150", "300"});
    Xdotool({"click", "--repeat", "5", "--delay", "30", "5"});
    ASSERT_TRUE(WaitFor([&] { return !Shows(picture, QRect(0, 0, 300, 50), QPoint(50, 40)); }));
    // Scrolled by whole rows: the top of the window shows a later row.
    const QImage top = Screen(QRect(50, 40, 300, 1));
    int row = -1;
    for (int y = 1; y <= 1000 - 864 && row < 0; ++y)
        if (top == picture.copy(0, y, 300, 1).convertToFormat(QImage::Format_RGB32)) row = y;
    EXPECT_GT(row, 0);
}

TEST_F(PinnedWindow, ALeftDragMovesTheWindowByTheMouseDelta) {
    const QImage picture = Pattern(200, 160);
    Pin(picture, QRect(300, 250, 200, 160));
    ASSERT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), QPoint(300, 250)); }));
    Xdotool({"mousemove", "350", "300", "mousedown", "1", "mousemove", "360", "310", "mousemove",
             "380", "330", "mousemove", "410", "345", "sleep", "0.2", "mouseup", "1"});
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), QPoint(360, 295)); }));
}

TEST_F(PinnedWindow, APictureOfTheWholeMonitorStartsAtItsOrigin) {
    const QImage picture = Pattern(1920, 1080);
    Pin(picture, QRect(0, 0, 1920, 1080));
    EXPECT_TRUE(WaitFor([&] { return Shows(picture, QRect(0, 0, 1911, 864), QPoint(0, 0)); }));
}

TEST_F(PinnedWindow, AnArmedRectangleToolDrawsWhereTheMouseDrags) {
    const QImage picture = Pattern(400, 300);
    Pin(picture, QRect(100, 100, 400, 300), "rectangle");
    ASSERT_TRUE(WaitFor([&] { return Shows(picture, picture.rect(), QPoint(100, 100)); }));
    Xdotool({"mousemove", "150", "150", "mousedown", "1", "mousemove", "200", "190", "mousemove",
             "260", "230", "mousemove", "300", "250", "sleep", "0.2", "mouseup", "1"});
    // The window stayed; the picture changed along the dragged box only.
    EXPECT_TRUE(WaitFor([&] {
        return !Shows(picture, QRect(45, 48, 160, 5), QPoint(145, 148)) &&
               !Shows(picture, QRect(48, 45, 5, 110), QPoint(148, 145));
    })) << "no frame along the drag";
    EXPECT_TRUE(Shows(picture, QRect(0, 0, 400, 40), QPoint(100, 100)));
    EXPECT_TRUE(Shows(picture, QRect(70, 70, 100, 50), QPoint(170, 170))) << "an outline only";
    EXPECT_TRUE(Shows(picture, QRect(0, 170, 400, 130), QPoint(100, 270)));
}

}  // namespace
}  // namespace qpt
