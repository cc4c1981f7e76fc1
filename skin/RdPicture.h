#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>
#include <memory>

#include "skin/RdGraphic.h"

namespace qpt {

// A picture property of a skinned control: owns one graphic, and reads and
// writes it in the two forms a form resource stores it in. "Data" is one
// length byte, the class name in UTF-8 and the graphic's own stream; "Text"
// is the lines of a description.
class TRdPicture {
public:
    TRdPicture() = default;
    TRdPicture(const TRdPicture&) = delete;
    TRdPicture& operator=(const TRdPicture&) = delete;

    TRdGraphic* Graphic() const { return graphic_.get(); }
    void SetGraphic(std::unique_ptr<TRdGraphic> graphic);

    // Unreadable data leaves the picture without a graphic and returns false.
    bool ReadData(const QByteArray& data);
    QByteArray WriteData() const;

    // Reads into the description the picture holds, or replaces the graphic
    // by a new description.
    void ReadText(const QStringList& lines);
    // Only a description that differs from the ancestor's is written.
    bool WriteText(QStringList& lines, const TRdPicture* ancestor) const;

    // The class follows the extension (".png", ".rdg"); others are refused.
    bool LoadFromFile(const QString& path);

    // Called whenever the graphic changes, so the owner can repaint.
    std::function<void()> OnChange;

private:
    std::unique_ptr<TRdGraphic> graphic_;
};

}  // namespace qpt
