// Feeds arbitrary bytes to the skin's PNG reader and draws whatever comes out
// sliced into a small target, so decoding and nine-slice drawing both see
// hostile sizes.
#include <QByteArray>
#include <QPainter>
#include <vector>

#include "skin/DesignRect.h"
#include "skin/PngImage.h"
#include "skin/SkinDraw.h"

// No skin picture needs more than 64 MiB, so no input may make the reader ask
// for much more at once: a bigger request is a finding (a chunk header that
// announces a gigabyte was one). A limit given on the command line wins.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static std::vector<char*> arguments(*argv, *argv + *argc);
    static char limit[] = "-malloc_limit_mb=160";
    arguments.insert(arguments.begin() + 1, limit);
    arguments.push_back(nullptr);
    *argc += 1;
    *argv = arguments.data();
    return 0;
}

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
