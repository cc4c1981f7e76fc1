// Feeds arbitrary bytes to the skin's PNG reader and draws whatever comes out
// sliced into a small target, so decoding and nine-slice drawing both see
// hostile sizes.
#include <QByteArray>
#include <QPainter>

#include "skin/DesignRect.h"
#include "skin/PngImage.h"
#include "skin/SkinDraw.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    qpt::TPngImage picture;
    picture.LoadFromBytes(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    QImage target(37, 23, QImage::Format_ARGB32_Premultiplied);
    target.fill(0);
    QPainter painter(&target);
    qpt::TDesignRect slicing;
    const int border = size > 0 ? data[size - 1] % 12 : 0;
    for (auto mode : {qpt::TSuperStretchMode::sdmStretch, qpt::TSuperStretchMode::sdmFill,
                      qpt::TSuperStretchMode::sdmFrame}) {
        slicing.Set(border, border / 2, border, border / 3, mode);
        qpt::SkinDraw(painter, target.rect(), &picture, &slicing);
    }
    picture.DrawPart(painter, QRect(1, 1, 50, 9), QRect(-2, 1, 7, 300), 128, true,
                     qpt::TPngSmoothFilter::psfSmooth);
    if (!picture.Empty()) picture.SaveToBytes();
    return 0;
}
