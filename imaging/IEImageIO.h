#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

#include "imaging/IEBitmap.h"

namespace qpt {

enum TIOFileType { ioUnknown = 0, ioBMP, ioPNG, ioJPEG, ioGIF, ioTIFF };

// The readable format that owns a file extension (without the dot, any
// case), or ioUnknown when none does or no decoder for it is present.
TIOFileType IEFileTypeOfExtension(const QString& extension);
// The format that the first bytes of a file announce.
TIOFileType IEDetectFileType(const QByteArray& head);

// Properties of the file last read.
struct TIOParams {
    QString FileName;
    TIOFileType FileType = ioUnknown;
    int Width = 0;
    int Height = 0;
};

// Picture input of a view: fills the view's bitmap from a file. A file that
// cannot be read leaves the bitmap as it was and Aborting() true.
class TIEImageIO {
public:
    explicit TIEImageIO(TIEBitmap* bitmap = nullptr) : bitmap_(bitmap) {}

    void SetBitmap(TIEBitmap* bitmap) { bitmap_ = bitmap; }
    TIEBitmap* Bitmap() const { return bitmap_; }

    // With checkUnknownFormats the file's head decides over its extension.
    bool LoadFromFile(const QString& fileName, bool checkUnknownFormats = true);
    bool Aborting() const { return aborting_; }
    const TIOParams& Params() const { return params_; }

    // Runs after every successful load: the view's update.
    std::function<void()> OnLoaded;

private:
    bool Decode(const QString& fileName, TIOFileType type);

    TIEBitmap* bitmap_;
    bool aborting_ = false;
    TIOParams params_;
};

}  // namespace qpt
