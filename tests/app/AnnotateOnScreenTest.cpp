// Drawing on the real program: the toolbar's tools clicked and the marks
// dragged out with XTest, what the screen then shows, undo and the ways out
// by the keys and the exit button.
#include <gtest/gtest.h>

#include <QThread>
#include <cstdlib>

#include "tests/app/AnnotateOnScreen.h"

namespace qpt {
namespace {

using testing::Pattern;
using testing::WaitFor;

TEST_F(AnnotateOnScreen, EachToolDrawsItsMarkInTheSessionsRedAndWidth) {
    PinGrey();
    const std::pair<QPoint, QRect> marks[] = {
        {kRect, QRect(120, 120, 80, 60)}, {kOval, QRect(240, 120, 80, 60)},
        {kLine, QRect(360, 150, 80, 1)},  {kArrow, QRect(120, 260, 80, 60)},
        {kBrush, QRect(240, 290, 80, 1)},
    };
    for (const auto& [button, box] : marks) {
        Tool(button);
        Drag(box.topLeft(), box.bottomRight());
        const QRect around = box.adjusted(-12, -12, 12, 12);
        EXPECT_TRUE(WaitFor([&] { return RedIn(around) > 60; }))
            << "tool at " << button.x() << ": " << RedIn(around);
    }
    // The rectangle is an outline of 4 pixels: its inside and its line.
    EXPECT_TRUE(Plain(QRect(130, 130, 60, 40)));
    EXPECT_EQ(RedIn(QRect(150, 118, 1, 8)), 4);
    // Across the oval's top, the line and the stroke: 4 pixels, smoothed.
    for (const QRect across :
         {QRect(280, 112, 1, 16), QRect(400, 142, 1, 16), QRect(300, 282, 1, 16)})
        EXPECT_NEAR(Count(across, Reddish), 4, 1) << "at " << across.x() << ',' << across.y();
    // Nothing beside the marks, and no grips round them.
    EXPECT_TRUE(Plain(QRect(100, 210, 400, 30)));
}

// The style bar's pen and palette dress the next mark; the marks before
// keep their look.
TEST_F(AnnotateOnScreen, TheStyleBarsPenAndColourDressTheNextMark) {
    PinGrey();
    Tool(kRect);
    Drag(QPoint(120, 120), QPoint(200, 180));
    ASSERT_TRUE(WaitFor([&] { return RedIn(QRect(110, 110, 100, 80)) > 60; }));
    ClickAt(StyleBar() + kWidestPen);
    ClickAt(StyleBar() + kGreen);
    Drag(QPoint(300, 120), QPoint(380, 180));
    ASSERT_TRUE(WaitFor([&] { return ColourIn(QRect(290, 110, 100, 80), kGreenRgb) > 200; }));
    EXPECT_EQ(ColourIn(QRect(340, 105, 1, 30), kGreenRgb), 8) << "8 pixels wide";
    EXPECT_EQ(RedIn(QRect(160, 105, 1, 30)), 4) << "the first keeps its 4 red pixels";
}

// A text is begun with a drag, takes what is typed in the text colour, and
// stays when the tool is put away.
TEST_F(AnnotateOnScreen, TheTextToolWritesInTheTextColour) {
    PinGrey();
    const QRect text(130, 130, 250, 100);
    Tool(kFont);
    Drag(QPoint(150, 150), QPoint(300, 200));
    QThread::msleep(300);
    EXPECT_LT(Count(text, Reddish), 3) << "nothing written yet";
    Xdotool({"type", "--delay", "30", "HHHHHH"});
    EXPECT_TRUE(WaitFor([&] { return Count(text, Reddish) > 12; })) << Count(text, Reddish);
    Tool(kFont);
    QThread::msleep(300);
    EXPECT_GT(Count(text, Reddish), 12) << "the text stays";
}

// A closed text tool stays the current one, so the palette still colours
// text. No click reaches the palette while the bar is closed, so the test
// maps the closed bar's window itself, as any X client may, and clicks the
// palette there with the mouse.
TEST_F(AnnotateOnScreen, APaletteClickAfterTheTextToolClosedStillColoursText) {
    PinGrey();
    Tool(kFont);
    xcb_window_t bar = XCB_WINDOW_NONE;
    ASSERT_TRUE(WaitFor([&] { return (bar = StyleBarWindow()) != XCB_WINDOW_NONE; }));
    Tool(kFont);
    ASSERT_TRUE(WaitFor([&] { return StyleBarWindow() == XCB_WINDOW_NONE; })) << "closed";
    xcb_map_window(c_, bar);
    xcb_flush(c_);
    ASSERT_TRUE(WaitFor([&] { return StyleBarWindow() == bar; }));
    ClickAt(StyleBar() + kGreenForText);

    Tool(kRect);
    Drag(QPoint(120, 120), QPoint(200, 180));
    const QRect shape(110, 110, 100, 80);
    EXPECT_TRUE(WaitFor([&] { return RedIn(shape) > 60; })) << "the shape colour stays red";
    EXPECT_EQ(ColourIn(shape, kGreenRgb), 0);
    Tool(kFont);
    Drag(QPoint(150, 250), QPoint(300, 300));
    Xdotool({"type", "--delay", "30", "HHHHHH"});
    const QRect text(130, 230, 250, 100);
    EXPECT_TRUE(WaitFor([&] { return Count(text, Greenish) > 12; })) << Count(text, Greenish);
    EXPECT_LT(Count(text, Reddish), 3);
}

TEST_F(AnnotateOnScreen, ASecondClickDisarmsTheToolAndTheDragMovesThePictureAgain) {
    PinGrey();
    Tool(kRect);
    Tool(kRect);
    Drag(QPoint(200, 200), QPoint(260, 240));
    EXPECT_TRUE(WaitFor([&] { return PinnedWindowRect().topLeft() == QPoint(160, 140); }));
    EXPECT_EQ(RedIn(QRect(160, 140, 400, 300)), 0);
}

TEST_F(AnnotateOnScreen, PixelationFlattensFirstAndStopsWhenAnotherToolIsChosen) {
    PinAndShowBar(Pattern(400, 300));
    Tool(kRect);
    Drag(QPoint(120, 120), QPoint(180, 160));
    ASSERT_TRUE(WaitFor([&] { return RedIn(QRect(110, 110, 80, 60)) > 60; }));
    Tool(kMosaic);
    // Along the rectangle's top edge: the mark is part of the picture by
    // now, so the brush pixelates it with the picture, and the rest of the
    // mark stays where it was.
    const QRect beyondTheBrush(100, 140, 100, 40);
    const QImage before = Screen(beyondTheBrush);
    Drag(QPoint(125, 122), QPoint(175, 122));
    ASSERT_TRUE(WaitFor([&] { return !Plain(QRect(130, 110, 40, 6)); })) << "pixelated";
    ASSERT_TRUE(Settled(QRect(100, 100, 200, 100)));
    EXPECT_EQ(RedIn(QRect(140, 114, 20, 16)), 0) << "the edge is pixelated too";
    EXPECT_EQ(Screen(beyondTheBrush), before);
    EXPECT_TRUE(Plain(QRect(100, 200, 400, 200)));
    Tool(kRect);
    Drag(QPoint(300, 300), QPoint(420, 370));
    ASSERT_TRUE(WaitFor([&] { return RedIn(QRect(290, 290, 140, 90)) > 100; }));
    EXPECT_TRUE(Plain(QRect(320, 320, 80, 30))) << "the brush no longer works on the picture";
}

TEST_F(AnnotateOnScreen, CtrlZAndTheUndoButtonTakeBackTheLastMarks) {
    PinGrey();
    Tool(kOval);
    Drag(QPoint(120, 120), QPoint(200, 180));
    Drag(QPoint(300, 250), QPoint(380, 320));
    ASSERT_TRUE(WaitFor([&] { return RedIn(QRect(290, 240, 100, 90)) > 60; }));
    Key("ctrl+z");
    EXPECT_TRUE(WaitFor([&] { return RedIn(QRect(290, 240, 100, 90)) == 0; }));
    EXPECT_GT(RedIn(QRect(110, 110, 100, 80)), 60) << "one step only";
    ClickAt(bar_.topLeft() + kReturn);
    EXPECT_TRUE(WaitFor([&] { return Plain(QRect(100, 100, 400, 300)); }));
}

TEST_F(AnnotateOnScreen, EscLeavesAtOnceWithoutAChange) {
    PinGrey();
    Key("Escape");
    EXPECT_TRUE(Ended());
}

TEST_F(AnnotateOnScreen, EscAfterAChangeShowsTheTipAndTheSecondLeaves) {
    PinGrey();
    Tool(kRect);
    Drag(QPoint(120, 120), QPoint(200, 180));
    ASSERT_TRUE(WaitFor([&] { return RedIn(QRect(110, 110, 100, 80)) > 60; }));
    Key("Escape");
    // The tip stands centred over the picture.
    EXPECT_TRUE(WaitFor([&] {
        return !MappedWindow([&](xcb_window_t w) {
                    const QRect tip = Geometry(w);
                    return tip.width() == 300 &&
                           (tip.center() - QPoint(300, 250)).manhattanLength() < 3;
                }).isEmpty();
    }));
    EXPECT_FALSE(program_.waitForFinished(500)) << "the tip, not the end";
    Key("Escape");
    EXPECT_TRUE(Ended());
}

// Auto-repeat counts as more presses: held down, Esc ends a session that
// has a change without a second press.
TEST_F(AnnotateOnScreen, HoldingEscLeavesOnceAChangeExists) {
    PinGrey();
    Tool(kRect);
    Drag(QPoint(120, 120), QPoint(200, 180));
    ASSERT_TRUE(WaitFor([&] { return RedIn(QRect(110, 110, 100, 80)) > 60; }));
    Xdotool({"mousemove", "300", "250", "keydown", "Escape", "sleep", "2", "keyup", "Escape"});
    EXPECT_TRUE(Ended());
}

// A close request, as a window manager sends it for Alt+F4, ends the
// process with code 0 instead of leaving it running unseen.
TEST_F(AnnotateOnScreen, ACloseRequestEndsTheProcessWithCodeZero) {
    PinGrey();
    QProcess search;
    search.start("xdotool", {"search", "--name", "^Zelk Screenshot$"});
    ASSERT_TRUE(search.waitForFinished(5000));
    const QList<QByteArray> ids = search.readAllStandardOutput().trimmed().split('\n');
    ASSERT_FALSE(ids.isEmpty());
    const auto atom = [&](const char* name) {
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
            c_, xcb_intern_atom(c_, 0, uint16_t(qstrlen(name)), name), nullptr);
        const xcb_atom_t value = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        std::free(reply);
        return value;
    };
    const xcb_atom_t protocols = atom("WM_PROTOCOLS"), close = atom("WM_DELETE_WINDOW");
    for (const QByteArray& id : ids) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = xcb_window_t(id.toUInt());
        event.type = protocols;
        event.data.data32[0] = close;
        event.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(c_, 0, event.window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&event));
    }
    xcb_flush(c_);
    EXPECT_TRUE(Ended());
}

TEST_F(AnnotateOnScreen, TheExitButtonEndsTheSessionReportingIt) {
    const QString record = env_.root() + "stat.txt";
    const QString program = ProgramBesideStatRecorder(record);
    QImage grey(400, 300, QImage::Format_RGB888);
    grey.fill(Qt::gray);
    PinAndShowBar(grey, program);
    Tool(kRect);
    ClickAt(bar_.topLeft() + kDel);
    EXPECT_TRUE(Ended());
    const QStringList codes =
        QString::fromUtf8(testing::ReadFile(record)).split('\n').filter("DoStatistic");
    EXPECT_EQ(codes, QStringList({"DoStatistic qpt1 a302 0", "DoStatistic qpt1 a313 0"}));
}

}  // namespace
}  // namespace qpt
