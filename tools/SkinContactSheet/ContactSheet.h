#pragma once

#include <QImage>
#include <QList>
#include <QMargins>
#include <QString>
#include <optional>

namespace qpt {

// One picture of a package as it lies under images/.
struct TSheetPicture {
    QString name;
    QImage image;
};

// A nine-slice description from a package's main.ini (a section of class
// "image"): which picture, the four margins, and whether the middle is drawn.
struct TSheetSlice {
    QString section;
    QString pictureName;
    QMargins margins;
    bool frameOnly = false;
};

// Draws everything a skin package holds onto one picture, so that a person
// can judge the artwork without starting the program: every picture at its
// own size with its name, then every nine-slice picture stretched to a few
// sizes with its margins.
class TContactSheet {
public:
    // Registers the package under a private root; false if it is no resource file.
    bool Open(const QString& rccPath);
    ~TContactSheet();

    QList<TSheetPicture> Pictures() const;
    QList<TSheetSlice> Slices() const;
    QImage Render(const QString& title) const;

private:
    QString rccPath_;
};

// Stretches a picture into a rectangle in nine parts: the corners keep their
// size, the edges stretch along their length, the middle both ways (unless
// frameOnly). A target as wide (or high) as the picture draws it whole in
// that direction, as the skin controls do.
void DrawNineSlice(QPainter& painter, const QRect& target, const QImage& picture, QMargins margins,
                   bool frameOnly);

// "l,t,r,b,mode" as written in main.ini; nothing for malformed text.
std::optional<TSheetSlice> ParseSliceOption(const QString& text);

}  // namespace qpt
