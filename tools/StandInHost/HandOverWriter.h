#pragma once

#include <QImage>
#include <QRect>
#include <QString>

#include "HostOptions.h"

namespace qpt::standin {

// Reads a picture file (SVG included) into an image; null when it can't.
QImage LoadPicture(const QString& path);

// The bundled sample picture beside the host.
QString SamplePicturePath();

// The picture the options ask for and the place it was "captured" at: a
// file (the sample by default) centred on the primary screen unless placed,
// or a grab of part of the screen. False when there is no picture.
bool TakePicture(const HostOptions& options, QImage* picture, QRect* rect);

// Leaves the picture and its rectangle where QptPin looks for them. Returns
// an error text, empty on success.
QString WriteHandOver(const QImage& picture, const QRect& rect);

}  // namespace qpt::standin
