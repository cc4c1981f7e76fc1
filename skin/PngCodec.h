#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <vector>

namespace qpt {

// One tEXt chunk, kept as bytes so that chunks we do not read survive a
// round trip unchanged.
struct TPngText {
    QByteArray Keyword;
    QByteArray Text;
};

struct TDecodedPng {
    QImage Pixels;  // ARGB32 premultiplied; null when the data was refused
    std::vector<TPngText> Texts;
    QString Error;
};

bool HasPngSignature(const QByteArray& bytes);

// Any PNG colour type and depth becomes 8-bit premultiplied ARGB. Truncated,
// corrupt or oversized data (a side of 65536 or more, more than 16 million
// pixels) yields no pixels and a reason in Error, never an exception.
TDecodedPng DecodePng(const QByteArray& bytes);

// Writes 8-bit RGBA (RGB when every pixel is opaque) with the given texts;
// an empty result means the writer failed.
QByteArray EncodePng(const QImage& pixels, const std::vector<TPngText>& texts);

}  // namespace qpt
