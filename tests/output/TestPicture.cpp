#include "tests/output/TestPicture.h"

#include <string>

namespace qpt::testing {

namespace {

QRgb PatternPixel(int x, int y, uint8_t seed) {
    return qRgb((x * 7 + y * 3 + seed) & 0xFF, (x ^ (y * 5)) & 0xFF,
                (x + y * 11 + seed * 37) & 0xFF);
}

}  // namespace

TIEBitmap PatternPicture(int width, int height, uint8_t seed) {
    TIEBitmap picture(width, height, ie24RGB);
    for (int y = 0; y < height; ++y) {
        uint8_t* row = picture.Scanline(y);
        for (int x = 0; x < width; ++x) {
            const QRgb c = PatternPixel(x, y, seed);
            row[x * 3] = uint8_t(qBlue(c));
            row[x * 3 + 1] = uint8_t(qGreen(c));
            row[x * 3 + 2] = uint8_t(qRed(c));
        }
    }
    return picture;
}

std::string PatternDifference(const QImage& image, int width, int height, uint8_t seed) {
    if (image.isNull()) return "no picture";
    if (image.width() != width || image.height() != height)
        return "size " + std::to_string(image.width()) + "x" + std::to_string(image.height());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (image.pixel(x, y) != (PatternPixel(x, y, seed) | 0xFF000000u))
                return "pixel " + std::to_string(x) + "," + std::to_string(y);
    return {};
}

}  // namespace qpt::testing
