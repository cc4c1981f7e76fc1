#pragma once

#include <QByteArray>
#include <QRect>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

class QPainter;

namespace qpt {

// How scaled drawing is filtered. psfDefault is nearest-pixel, the fastest.
enum class TPngSmoothFilter : uint8_t { psfDefault = 0, psfFastSmooth = 1, psfSmooth = 2 };

// Values above the last level come from skin files and read as the default.
TPngSmoothFilter SmoothFilterFromInt(int value);

// Base of every skin picture. Controls only ever hold a TRdGraphic, so that a
// picture can be a decoded PNG or a text description pointing at one, and the
// skin cache can hand out one object per name for the whole process.
class TRdGraphic {
public:
    TRdGraphic() = default;
    virtual ~TRdGraphic();
    TRdGraphic(const TRdGraphic&) = delete;
    TRdGraphic& operator=(const TRdGraphic&) = delete;

    virtual int Width() const = 0;
    virtual int Height() const = 0;
    bool Empty() const { return Width() <= 0 || Height() <= 0; }

    // Replaces the content in place, so that everyone holding this object
    // sees the new skin after a repaint. Bytes are the picture's file form
    // (PNG data, or the lines of a description as UTF-8); a text is a list of
    // "name=value" lines. Content that cannot be read leaves an empty picture
    // and returns false.
    virtual bool LoadFromBytes(const QByteArray& bytes) = 0;
    virtual bool LoadFromText(const QStringList& lines) = 0;
    // Copies the content of another graphic into this one (none clears it).
    virtual void Assign(const TRdGraphic* source) = 0;

    // Straight (not premultiplied) ARGB; 0 outside the picture.
    virtual QRgb GetPixel(int x, int y) const = 0;
    virtual void SetPixel(int x, int y, QRgb color) = 0;

    // Draws the part `source` (picture pixels) of the picture into `dest`,
    // with a constant alpha 0..255, in grey when asked, and with the given
    // smoothing (psfDefault: the picture's own setting).
    virtual void DrawPart(QPainter& painter, const QRect& dest, const QRect& source, int alpha,
                          bool gray, TPngSmoothFilter smooth) = 0;
    // The constant alpha the picture is drawn with when nobody asks otherwise.
    virtual int DrawAlpha() const { return 255; }

    // Draws all of the picture into the rectangle.
    virtual void Draw(QPainter& painter, const QRect& dest);
    void DrawAlpha(QPainter& painter, const QRect& dest, int alpha);

    // Called when the content changed: lets the picture refresh what it
    // derives from others, tells every description drawing through it, and
    // then the owner (a control repaints).
    void Changed();
    virtual void ParentChanged() {}
    void SetOnChange(std::function<void()> handler) { onChange_ = std::move(handler); }

    // Descriptions that draw through this picture; they are told of changes
    // and of this picture going away.
    void AddReferrer(TRdGraphic* referrer);
    void RemoveReferrer(TRdGraphic* referrer);
    void NotifyReferrers();
    size_t ReferrerCount() const;
    // A picture this one draws through is being destroyed.
    virtual void SourceGone(const TRdGraphic* source) { (void)source; }

private:
    mutable std::mutex referrersLock_;
    std::vector<TRdGraphic*> referrers_;  // sorted by address
    std::function<void()> onChange_;
    bool changing_ = false;
};

// Turns a picture name ("images/x.png", ":/public/x.png", "[section]") into
// the process-wide graphic for it. The skin cache installs itself here; the
// result is not owned by the caller. Without a resolver every name is none.
// Returns the resolver it replaces, so a temporary one can be undone.
using TGraphicResolver = std::function<TRdGraphic*(const QString& name)>;
TGraphicResolver SetGraphicResolver(TGraphicResolver resolver);
TRdGraphic* ResolveGraphic(const QString& name);

}  // namespace qpt
