// The image view on the offscreen platform: what it paints, where a click
// lands in the picture, the text editor and the cursor values.
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

#include "imaging/IEImageLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"
#include "imaging/view/IEImageView.h"
#include "imaging/view/IETextControl.h"
#include "imaging/view/IEViewBlit.h"

namespace qpt {
namespace {

QApplication& App() {
    static int argc = 1;
    static char name[] = "imageview_tests";
    static char* argv[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: at exit Qt's input devices would go after their owner.
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

struct ApplicationFirst {
    ApplicationFirst() { App(); }
};

// Every pixel tells its own coordinates: red and green the low bytes of x
// and y, blue their high bits.
QRgb CoordinateColour(int x, int y) {
    return qRgb(x & 255, y & 255, ((x >> 8) & 15) | (((y >> 8) & 15) << 4));
}

void LoadCoordinatePicture(TIEImageView& view, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, CoordinateColour(x, y));
    view.Layers().Background().Bitmap()->Assign(image);
    view.Layers().Background().FitToBitmap();
    view.Layers().Background().Changed();
    view.Update();
}

class ImageView : public ::testing::Test {
protected:
    void SetUp() override { view.resize(640, 480); }
    QImage Shown() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }
    void Send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(at), QPointF(view.mapToGlobal(at)), button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    }
    void Drag(QPoint from, QPoint to) {
        Send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        for (int i = 1; i <= 4; ++i)
            Send(QEvent::MouseMove, from + (to - from) * i / 4, Qt::NoButton, Qt::LeftButton);
        Send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    }
    ApplicationFirst application;
    TIEImageView view;
};

// The click and the pixel under it agree at any zoom: what the paint shows
// at a client point is the picture pixel that XScr2Bmp names there.
TEST_F(ImageView, AClickAndThePixelUnderItAgreeAtEveryZoom) {
    LoadCoordinatePicture(view, 300, 200);
    for (double zoom : {100.0, 33.0, 150.0, 250.0, 400.0}) {
        view.SetZoom(zoom);
        view.SetViewXY(37, 23);
        const QImage shown = Shown();
        int checked = 0;
        for (int y = 0; y < view.height(); y += 7)
            for (int x = 0; x < view.width(); x += 11) {
                const int bx = view.XScr2Bmp(x), by = view.YScr2Bmp(y);
                if (bx < 0 || by < 0 || bx >= 300 || by >= 200) continue;
                ASSERT_EQ(shown.pixel(x, y), CoordinateColour(bx, by))
                    << "zoom " << zoom << " at " << x << "," << y;
                ++checked;
            }
        EXPECT_GT(checked, 50) << zoom;
        // Enlarged, every bitmap pixel shown maps to a screen pixel that
        // maps back.
        if (zoom < 100) continue;
        for (int bx = view.XScr2Bmp(view.OffsetX()); bx < 300; bx += 13) {
            const int sx = view.XBmp2Scr(bx);
            if (sx >= view.OffsetX() + view.ExtentX()) break;
            EXPECT_EQ(view.XScr2Bmp(sx), bx) << "zoom " << zoom;
        }
    }
}

TEST_F(ImageView, OneHundredPercentShowsThePictureUnfilteredAndCentred) {
    LoadCoordinatePicture(view, 320, 240);
    view.SetZoomFilter(rfLinear);
    EXPECT_EQ(view.ZoomFilterCurrent(), rfLinear);
    const QImage shown = Shown();
    EXPECT_EQ(view.OffsetX(), 160);
    EXPECT_EQ(view.OffsetY(), 120);
    const QImage expected = shown.copy(160, 120, 320, 240);
    for (int y = 0; y < 240; ++y)
        for (int x = 0; x < 320; ++x)
            ASSERT_EQ(expected.pixel(x, y), CoordinateColour(x, y)) << x << "," << y;
    // Beside the picture: the button face, which follows the palette.
    EXPECT_EQ(shown.pixel(5, 5), QGuiApplication::palette().color(QPalette::Button).rgb());
}

// In a smaller scroll box only what shows is composed; what is scrolled into
// view later is composed as it is painted, and shows the right pixels.
TEST(ImageViewInABox, ComposesWhatShowsAndTheRestWhenScrolledTo) {
    App();
    QScrollArea box;
    box.setFrameShape(QFrame::NoFrame);
    box.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box.resize(300, 200);
    auto* view = new TIEImageView;
    LoadCoordinatePicture(*view, 1500, 1000);
    view->SetZoom(200);
    view->resize(3000, 2000);
    box.setWidget(view);
    box.show();
    QApplication::processEvents();
    const QImage first = box.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(first.pixel(151, 101), CoordinateColour(75, 50));
    EXPECT_EQ(view->PendingArea(), QRegion(0, 0, 3000, 2000) - QRegion(0, 0, 300, 200));

    box.verticalScrollBar()->setValue(1000);
    box.horizontalScrollBar()->setValue(2000);
    QApplication::processEvents();
    const QImage later = box.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(later.pixel(11, 21), CoordinateColour(1005, 510));
    EXPECT_EQ(later.pixel(299, 199), CoordinateColour(1149, 599));
    EXPECT_FALSE(view->PendingArea().intersects(QRect(2000, 1000, 300, 200)));
}

// Every row length, so that the wide steps, the plain loop and the last
// pixel all meet; nothing is read or written past either row.
TEST(ImageViewBlit, WidensEveryPixelOfARowAndNoMore) {
    for (int count = 1; count <= 41; ++count) {
        std::vector<uint8_t> source(3 * size_t(count));
        for (size_t i = 0; i < source.size(); ++i)
            source[i] = uint8_t(i * 37 + count);
        std::vector<uint32_t> target(size_t(count) + 1, 0x12345678u);
        IEWidenBgrRow(source.data(), target.data(), count);
        for (int x = 0; x < count; ++x) {
            const uint8_t* p = &source[3 * size_t(x)];
            ASSERT_EQ(target[size_t(x)], qRgb(p[2], p[1], p[0])) << count << " at " << x;
        }
        EXPECT_EQ(target[size_t(count)], 0x12345678u);
    }
}

// A plain 32-bit image takes the rows straight in; the asked region is the
// whole of what changes, wherever the view lands in the image.
TEST_F(ImageView, RenderedIntoAnImageItChangesOnlyTheAskedRegion) {
    LoadCoordinatePicture(view, 640, 480);
    const QRegion asked = QRegion(0, 0, 100, 50) + QRegion(300, 200, 40, 30);
    const QPoint at(30, 7);
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB888}) {
        QImage target(700, 500, format);
        target.fill(QColor(0x12, 0x34, 0x56));
        view.render(&target, at, asked);
        for (int y = 0; y < target.height(); ++y)
            for (int x = 0; x < target.width(); ++x) {
                const QPoint local = QPoint(x, y) - at;
                const QRgb expected = asked.contains(local) ? CoordinateColour(local.x(), local.y())
                                                            : qRgb(0x12, 0x34, 0x56);
                ASSERT_EQ(target.pixel(x, y), expected) << format << " at " << x << "," << y;
            }
    }
}

// At twice the scale each picture pixel covers four of the image's.
TEST_F(ImageView, RenderedIntoAScaledImageItDrawsThePictureLarger) {
    LoadCoordinatePicture(view, 640, 480);
    QImage target(1280, 960, QImage::Format_RGB32);
    target.setDevicePixelRatio(2);
    target.fill(Qt::black);
    view.render(&target);
    for (const QPoint p : {QPoint(0, 0), QPoint(123, 45), QPoint(639, 479)})
        for (const QPoint d : {QPoint(0, 0), QPoint(1, 1)})
            EXPECT_EQ(target.pixel(2 * p + d), CoordinateColour(p.x(), p.y()))
                << p.x() << "," << p.y();
}

TEST_F(ImageView, ScreenToBitmapPastTheTableTakesTheFloatPath) {
    LoadCoordinatePicture(view, 640, 480);
    EXPECT_EQ(view.XScr2Bmp(639), 639);
    EXPECT_EQ(view.XScr2Bmp(640), 640);
    EXPECT_EQ(view.YScr2Bmp(-10), -10);
}

TEST_F(ImageView, ZoomAtKeepsThePointOrDoesNothingForTheZoomInForce) {
    LoadCoordinatePicture(view, 2000, 1500);
    view.ZoomAt(50, 50, 100, false);
    EXPECT_EQ(view.ViewX(), 0);
    EXPECT_EQ(view.ViewY(), 0);
    view.SetZoom(0);
    EXPECT_EQ(view.Zoom(), 100.0);
    // The bitmap point 50,50 lands at 100 zoomed; the placement adds the
    // percent / 100 term of its formula.
    view.ZoomAt(50, 50, 200, false);
    EXPECT_EQ(view.Zoom(), 200.0);
    EXPECT_EQ(view.ViewX(), 52);
    EXPECT_EQ(view.ViewY(), 52);
    // Centred: the bitmap point under 320,240 comes to the middle.
    view.SetZoom(100);
    view.SetViewXY(0, 0);
    view.ZoomAt(320, 240, 300, true);
    EXPECT_EQ(view.ViewX(), 320 * 3 - 320);
    EXPECT_EQ(view.ViewY(), 240 * 3 - 240);
    EXPECT_EQ(view.XScr2Bmp(320), 320);
}

TEST_F(ImageView, BitmapReaderMovesThePictureToQImageStorage) {
    LoadCoordinatePicture(view, 123, 45);
    QImage* image = view.Bitmap();
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->size(), QSize(123, 45));
    EXPECT_EQ(view.IEBitmap()->Location(), ieTBitmap);
    EXPECT_EQ(Shown().pixel(view.OffsetX() + 7, view.OffsetY() + 3), CoordinateColour(7, 3));
    view.SetLegacyBitmap(false);
    EXPECT_NE(view.IEBitmap()->Location(), ieTBitmap);
}

TEST_F(ImageView, TheWheelIsLeftToWhatHoldsTheView) {
    LoadCoordinatePicture(view, 2000, 2000);
    QWheelEvent wheel(QPointF(10, 10), QPointF(view.mapToGlobal(QPoint(10, 10))), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(view.Zoom(), 100.0);
    EXPECT_EQ(view.ViewY(), 0);
}

TEST_F(ImageView, CursorValuesAndTheirPlatformShapes) {
    view.SetCursor(crSizeAll);
    EXPECT_EQ(view.Cursor(), 65514);
    EXPECT_EQ(view.cursor().shape(), Qt::SizeAllCursor);
    view.SetCursor(crDefault);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
    // The handler sees the value first and may change it.
    view.OnSetCursor = [](int& cursor) {
        if (cursor == crDefault) cursor = crSizeNS;
    };
    view.SetCursor(crDefault);
    EXPECT_EQ(view.Cursor(), crSizeNS);
    EXPECT_EQ(view.cursor().shape(), Qt::SizeVerCursor);
    view.ShowCursor(crSizeWE);
    EXPECT_EQ(view.cursor().shape(), Qt::SizeHorCursor);
    view.ShowCursor(-1);
    EXPECT_EQ(view.cursor().shape(), Qt::SizeVerCursor);
}

TEST_F(ImageView, RetouchShowsItsRingExceptInThePictureDragState) {
    view.SetMouseInteractLayers(mlCreateShapeLayers);
    view.SetMouseInteractGeneral(miRetouchTool | miSelect | miZoom);
    EXPECT_EQ(view.MouseInteractLayers(), 0) << "retouch turns the layer tools off";
    EXPECT_EQ(view.MouseInteractGeneral(), miRetouchTool | miZoom);
    view.SetCursor(crDefault);
    EXPECT_EQ(view.cursor().shape(), Qt::BitmapCursor);
    view.SetCursor(crSizeAll);
    EXPECT_EQ(view.cursor().shape(), Qt::SizeAllCursor);
}

// The ring is the brush's footprint: it follows every change of size.
TEST_F(ImageView, TheRetouchRingFollowsTheBrushSize) {
    view.SetMouseInteractGeneral(miRetouchTool);
    view.SetCursor(crDefault);
    TIERetouchToolInteraction& brush = view.Interactions().RetouchTool();
    for (const int size : {10, 40, 20}) {
        brush.SetBrushSize(size);
        EXPECT_EQ(view.cursor().pixmap().width(), size + 2) << size;
    }
}

// The mouse reaches the armed tool in bitmap pixels: a drag at 200% makes
// a rectangle whose box is the dragged area of the picture.
TEST_F(ImageView, ADragWithTheShapeToolMakesALayerInBitmapPixels) {
    LoadCoordinatePicture(view, 640, 480);
    view.SetZoom(200);
    view.show();
    int styled = -1;
    view.OnNewLayer = [&](int index, TIELayerKind kind) {
        EXPECT_EQ(kind, ielkShape);
        styled = index;
    };
    view.SetCursor(crDefault);
    view.SetMouseInteractLayers(mlCreateShapeLayers);
    Drag(QPoint(100, 60), QPoint(300, 260));
    ASSERT_EQ(view.Layers().LayersCount(), 2);
    EXPECT_EQ(styled, 1);
    const TIELayer& layer = *view.Layers().GetLayer(1);
    EXPECT_NEAR(layer.PosX, view.XScr2Bmp(100), 1);
    EXPECT_NEAR(layer.PosY, view.YScr2Bmp(60), 1);
    EXPECT_NEAR(layer.Width, 100, 2);
    EXPECT_NEAR(layer.Height, 100, 2);
    // What the layer covers is painted over the picture.
    const QImage shown = Shown();
    const int sx = view.XBmp2Scr(int(layer.PosX + layer.Width / 2));
    const int sy = view.YBmp2Scr(int(layer.PosY));
    EXPECT_NE(shown.pixel(sx, sy + 1), CoordinateColour(view.XScr2Bmp(sx), view.YScr2Bmp(sy + 1)));
}

// The arrow points away from the corner where the drag began, at a zoom
// where view and bitmap pixels differ.
TEST_F(ImageView, AnArrowPointsAlongItsDragAtAnyZoom) {
    LoadCoordinatePicture(view, 640, 480);
    view.SetZoom(150);
    view.show();
    view.OnNewLayer = [&](int index, TIELayerKind) {
        static_cast<TIEShapeLayer&>(*view.Layers().GetLayer(index)).Shape = iesArrow;
    };
    view.SetCursor(crDefault);
    view.SetMouseInteractLayers(mlCreateShapeLayers);
    const std::pair<QPoint, QPoint> drags[] = {{{100, 260}, {300, 60}},
                                               {{100, 60}, {300, 260}},
                                               {{300, 60}, {100, 260}},
                                               {{300, 260}, {100, 60}}};
    for (int direction = 1; direction <= 4; ++direction) {
        Drag(drags[direction - 1].first, drags[direction - 1].second);
        ASSERT_EQ(view.Layers().LayersCount(), direction + 1);
        auto& arrow = static_cast<TIEShapeLayer&>(*view.Layers().GetLayer(direction));
        arrow.CacheFor(100, 100);
        EXPECT_EQ(arrow.ArrowDirection(), direction);
    }
}

// Esc and Delete reach the tool that is drawing, and a view that loses the
// activation drops what was under way: a two-click line and a mosaic stroke
// can be cancelled.
TEST_F(ImageView, EscDeleteAndLosingTheMouseCancelWhatIsBeingDrawn) {
    LoadCoordinatePicture(view, 640, 480);
    view.Proc()->SetUndoLimit(10);
    view.Proc()->SetUndoLocation(ieMemory);
    view.Layers().Background().Selectable = false;  // as the pinned window has it
    view.SetCursor(crDefault);
    const auto halfALine = [&] {
        view.SetMouseInteractLayers(mlMoveLayers | mlResizeLayers | mlClickCreateLineLayers);
        Send(QEvent::MouseButtonPress, QPoint(50, 50), Qt::LeftButton, Qt::LeftButton);
        Send(QEvent::MouseButtonRelease, QPoint(50, 50), Qt::LeftButton, Qt::NoButton);
        Send(QEvent::MouseMove, QPoint(200, 120), Qt::NoButton, Qt::NoButton);
        ASSERT_EQ(view.Layers().LayersCount(), 2) << "the line follows the pointer";
    };
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Delete}) {
        halfALine();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &press);
        EXPECT_TRUE(press.isAccepted());
        EXPECT_EQ(view.Layers().LayersCount(), 1);
        EXPECT_EQ(view.Proc()->UndoCount(), 0) << "its undo step goes with it";
    }
    QKeyEvent other(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &other);
    EXPECT_FALSE(other.isAccepted()) << "other keys go on";

    halfALine();
    QEvent deactivated(QEvent::ActivationChange);
    QCoreApplication::sendEvent(&view, &deactivated);
    EXPECT_EQ(view.Layers().LayersCount(), 1);

    const QImage before = Shown();
    view.SetMouseInteractGeneral(miRetouchTool);
    view.Interactions().RetouchTool().SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
    Send(QEvent::MouseButtonPress, QPoint(100, 100), Qt::LeftButton, Qt::LeftButton);
    Send(QEvent::MouseMove, QPoint(160, 130), Qt::NoButton, Qt::LeftButton);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &escape);
    Send(QEvent::MouseButtonRelease, QPoint(160, 130), Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(Shown(), before) << "the stroke is dropped, not merged";
}

// A mosaic stroke repaints only what each move changed, zoomed; the window
// then shows what a full repaint of the same stroke shows.
TEST_F(ImageView, AMosaicStrokeRepaintedInPiecesShowsAsRepaintedWhole) {
    LoadCoordinatePicture(view, 640, 480);
    view.SetZoom(150);
    view.SetCursor(crDefault);
    view.SetMouseInteractGeneral(miRetouchTool);
    view.Interactions().RetouchTool().SetRetouchMode(TIERetouchToolInteraction::kPixelateMode);
    const QImage before = Shown();
    Send(QEvent::MouseButtonPress, QPoint(100, 100), Qt::LeftButton, Qt::LeftButton);
    for (const QPoint at : {QPoint(161, 131), QPoint(90, 80), QPoint(233, 157), QPoint(240, 60)}) {
        Send(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
        QApplication::processEvents();
    }
    const QImage pieces = Shown();
    EXPECT_NE(pieces, before);
    view.Layers().Background().Changed();
    view.Update();
    EXPECT_EQ(Shown(), pieces);
    Send(QEvent::MouseButtonRelease, QPoint(240, 60), Qt::LeftButton, Qt::NoButton);
}

class TextEditor : public ImageView {
protected:
    int AddText(const QString& text) {
        TIELayer* layer =
            view.Layers().LayersAdd(ielkText, QPointF(40, 30), QSizeF(120, 40), false);
        auto* t = static_cast<TIETextLayer*>(layer);
        t->SetText(text);
        t->FillColor = clNone;
        view.Update();
        return view.Layers().IndexOf(layer);
    }
};

TEST_F(TextEditor, OpensOverTheLayerWithTheZoomedFontAndShowsThePictureThrough) {
    LoadCoordinatePicture(view, 640, 480);
    view.SetZoom(200);
    view.show();
    const int index = AddText("hello");
    bool activated = false;
    view.OnActivateTextEditor = [&] { activated = true; };
    view.LayersActivateTextEditor(index);
    EXPECT_TRUE(activated);
    EXPECT_EQ(view.EditingLayer(), index);
    TIETextControl* editor = view.TextEditor();
    ASSERT_TRUE(editor->isVisible());
    EXPECT_EQ(editor->geometry(), QRect(view.XBmp2Scr(40), view.YBmp2Scr(30), 240, 80));
    // The layer's 14 points at 96 dots per inch, doubled: whatever the
    // screen's resolution, the editor shows the size the layer draws.
    EXPECT_EQ(editor->font().pixelSize(), 37);
    EXPECT_EQ(editor->font().pixelSize(),
              IETextQFont(static_cast<TIETextLayer*>(view.Layers().GetLayer(index))->Font, 2.0)
                  .pixelSize());
    EXPECT_EQ(editor->Text(), "hello");
    EXPECT_FALSE(editor->autoFillBackground());
    // A change of zoom commits the editor.
    editor->setPlainText("bye");
    view.SetZoom(100);
    EXPECT_EQ(view.EditingLayer(), -1);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(static_cast<TIETextLayer*>(view.Layers().GetLayer(index))->Text, "bye");
}

TEST_F(TextEditor, EmptyTextRemovesTheCurrentLayerAndOnlyThatOne) {
    LoadCoordinatePicture(view, 640, 480);
    const int first = AddText("");
    view.LayersActivateTextEditor(first);
    view.LayersCancelEditors(true);
    EXPECT_EQ(view.Layers().LayersCount(), 1) << "nothing typed leaves nothing behind";

    const int kept = AddText("");
    AddText("other");
    view.LayersActivateTextEditor(kept);  // not the current layer
    view.LayersCancelEditors(false);
    EXPECT_EQ(view.Layers().LayersCount(), 3);

    // Arming another tool commits what was typed.
    const int typed = AddText("");
    view.LayersActivateTextEditor(typed);
    view.TextEditor()->setPlainText("words");
    view.SetMouseInteractLayers(mlCreateShapeLayers);
    EXPECT_EQ(view.EditingLayer(), -1);
    EXPECT_EQ(view.Layers().LayersCount(), 4);
    EXPECT_EQ(static_cast<TIETextLayer*>(view.Layers().GetLayer(typed))->Text, "words");
}

TEST_F(TextEditor, APressOnTheViewCommitsTheEditor) {
    LoadCoordinatePicture(view, 640, 480);
    view.show();
    const int index = AddText("");
    view.LayersActivateTextEditor(index);
    view.TextEditor()->setPlainText("typed");
    Send(QEvent::MouseButtonPress, QPoint(600, 400), Qt::LeftButton, Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, QPoint(600, 400), Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(view.EditingLayer(), -1);
    EXPECT_EQ(static_cast<TIETextLayer*>(view.Layers().GetLayer(index))->Text, "typed");
}

}  // namespace
}  // namespace qpt
