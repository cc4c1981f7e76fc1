#pragma once

#include <QRect>
#include <QStringList>
#include <memory>

#include "skin/DesignRect.h"
#include "skin/RdGraphic.h"

class QTimer;

namespace qpt {

class TPngImage;

// Part of a source picture as left, top, right, bottom. All zero: the whole.
struct TImgRect {
    int32_t Left = 0;
    int32_t Top = 0;
    int32_t Right = 0;
    int32_t Bottom = 0;
    bool IsSet() const { return Left != 0 || Top != 0 || Right != 0 || Bottom != 0; }
    QRect ToQRect() const { return QRect(Left, Top, Right - Left, Bottom - Top); }
    bool operator==(const TImgRect&) const = default;
};

// A picture described by text: which picture ("imgname", a skin path or a
// "[section]" of class image), which part of it, how to slice, how opaque to
// draw it and how to animate it through numbered frames. Descriptions can
// name other descriptions and inherit from them; a key written with a final
// "!" is fixed and never inherited over.
class TRdgImage : public TRdGraphic {
public:
    TRdgImage();
    ~TRdgImage() override;

    int Width() const override;
    int Height() const override;

    // Bytes are the description's lines in UTF-8.
    bool LoadFromBytes(const QByteArray& bytes) override;
    bool LoadFromText(const QStringList& lines) override;
    // Without a list everything is cleared. KeepName keeps the source and the
    // animation frames, and rereads the other keys.
    void LoadValues(const QStringList* list, bool keepName);
    // The lines that store this description: its own keys, fixed ones with
    // "!", and none that it merely inherited from its source.
    void ToValues(QStringList& target) const;
    void Assign(const TRdGraphic* source) override;

    QRgb GetPixel(int x, int y) const override;
    // A description has no pixels of its own to write to.
    void SetPixel(int, int, QRgb) override {}
    void DrawPart(QPainter& painter, const QRect& dest, const QRect& source, int alpha, bool gray,
                  TPngSmoothFilter smooth) override;
    int DrawAlpha() const override;
    void Draw(QPainter& painter, const QRect& dest) override;

    void ParentChanged() override;
    void SourceGone(const TRdGraphic* source) override;

    // Animation, driven by a timer that exists only while someone paints.
    // `now` is a millisecond tick that may wrap.
    virtual void PrepareDraw(uint32_t now);
    virtual void AnimationTick(uint32_t now);
    bool HasTimer() const { return timer_ != nullptr; }
    int TimerInterval() const;

    // The picture the chain ends in, and the part of it shown.
    TPngImage* ResolvedImage() const;
    QRect ResolvedRect() const;

    const QStringList& Values() const { return values_; }
    const QString& ImgName() const { return imgName_; }
    void SetImgName(const QString& name);
    const TImgRect& ImgRect() const { return rect_; }
    int AlphaBlendValue() const { return alpha_; }
    void SetAlphaBlendValue(int value);
    TPngSmoothFilter SmoothFilter() const { return smooth_; }
    void SetSmoothFilter(TPngSmoothFilter value);
    int Duration() const { return duration_; }
    void SetDuration(int value);
    // Changing the slicing through this reference fixes it.
    TDesignRect& ImgOpt() { return imgOpt_; }
    const TDesignRect& ImgOpt() const { return imgOpt_; }

    TRdGraphic* BaseImage() const { return baseImage_; }
    const QString& PlayImgName() const { return playImgName_; }
    const QString& PlayScript() const { return playScript_; }
    int PlayIndex() const { return playIndex_; }
    int PlayFirst() const { return playFirst_; }
    int PlayLast() const { return playLast_; }
    bool OptFixed() const { return optFixed_; }
    bool RectFixed() const { return rectFixed_; }
    bool AlphaFixed() const { return alphaFixed_; }
    bool DurationFixed() const { return durationFixed_; }

private:
    struct Resolved {
        bool valid = false;
        TPngImage* image = nullptr;
        QRect rect;
        int alpha = -1;
    };

    const Resolved& Resolve() const;
    TRdGraphic* NextGraphic() const;
    void EnsureBase() const;
    void SetBase(TRdGraphic* graphic) const;
    void SetPlayImage(TRdGraphic* graphic) const;
    void ClearPlay();
    void ParsePlayName();
    void ReadKeys();
    void MergeFrom(const TRdgImage& source);
    void UpdateTimerInterval();
    void StopAnimation();
    void SetOptSilently(const TDesignRect& from);

    mutable TRdGraphic* playImage_ = nullptr;
    mutable TRdGraphic* baseImage_ = nullptr;
    mutable bool baseAsked_ = false;
    mutable Resolved resolved_;
    TImgRect rect_;
    QString imgName_;
    QString playImgName_;
    QString playScript_;
    int32_t playIndex_ = -1;
    int32_t playFirst_ = 0;
    int32_t playLast_ = 0;
    int32_t alpha_ = -1;
    QStringList values_;
    TPngSmoothFilter smooth_ = TPngSmoothFilter::psfDefault;
    TDesignRect imgOpt_;
    bool loadingOpt_ = false;
    bool optFixed_ = false;
    bool rectFixed_ = false;
    bool alphaFixed_ = false;
    bool durationFixed_ = false;
    int32_t duration_ = 0;
    std::unique_ptr<QTimer> timer_;
    uint32_t lastDrawTick_ = 0;
};

// A monotonic millisecond tick that wraps at 32 bits.
uint32_t SkinTickNow();

}  // namespace qpt
