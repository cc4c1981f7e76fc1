#pragma once

#include <QImage>
#include <QRect>
#include <QString>

namespace qpt::standin {

// Reads a picture file (SVG included) into an image; null when it can't.
QImage LoadPicture(const QString& path);

// Leaves the picture and its rectangle where QptPin looks for them. Returns
// an error text, empty on success.
QString WriteHandOver(const QImage& picture, const QRect& rect);

}  // namespace qpt::standin
