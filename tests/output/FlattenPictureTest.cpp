// The flatten every way out begins with: a text under edit is kept, and
// where marks overlap the older one ends on top.
#include <gtest/gtest.h>

#include "imaging/IEImageLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "imaging/view/IEImageView.h"
#include "imaging/view/IETextControl.h"
#include "output/FlattenPicture.h"

namespace qpt {
namespace {

// A filled square mark of one colour.
void AddSquare(TIEImageView& view, QPointF at, TColor color) {
    auto* square =
        static_cast<TIEShapeLayer*>(view.Layers().LayersAdd(ielkShape, at, QSizeF(40, 40), false));
    square->Shape = iesRectangle;
    square->FillColor = color;
    square->BorderColor = color;
    square->Changed();
}

QRgb PixelAt(TIEImageView& view, int x, int y) {
    return view.Layers().Background().Bitmap()->WrapQImage().pixel(x, y) & 0xFFFFFF;
}

TEST(FlattenPicture, KeepsTheTypedTextAndPutsTheOlderMarkOnTop) {
    TIEImageView view;
    view.resize(200, 150);
    QImage white(200, 150, QImage::Format_RGB32);
    white.fill(Qt::white);
    view.Layers().Background().Bitmap()->Assign(white);
    view.Layers().Background().FitToBitmap();
    view.Update();
    AddSquare(view, QPointF(10, 10), 0x0000FF);  // red, older
    AddSquare(view, QPointF(30, 30), 0xFF0000);  // blue, newer, over the red one's corner
    auto* text = static_cast<TIETextLayer*>(
        view.Layers().LayersAdd(ielkText, QPointF(100, 80), QSizeF(90, 40), false));
    text->FillColor = clNone;
    view.Update();
    view.LayersActivateTextEditor(view.Layers().IndexOf(text));
    view.TextEditor()->setPlainText("WWWW");

    const int steps = view.Proc()->UndoCount();
    FlattenPicture(view);
    EXPECT_EQ(view.EditingLayer(), -1);
    EXPECT_EQ(view.Layers().LayersCount(), 1);
    EXPECT_EQ(PixelAt(view, 40, 40), 0xFF0000u) << "the older mark lies over the newer one";
    EXPECT_EQ(PixelAt(view, 60, 60), 0x0000FFu);
    bool textShows = false;
    for (int y = 80; y < 120 && !textShows; ++y)
        for (int x = 100; x < 190 && !textShows; ++x)
            textShows = PixelAt(view, x, y) != 0xFFFFFFu;
    EXPECT_TRUE(textShows) << "the typed text went into the picture";
    EXPECT_EQ(view.Proc()->UndoCount(), steps + 1)
        << "the typed text is a step to undo, the flatten none";
}

}  // namespace
}  // namespace qpt
