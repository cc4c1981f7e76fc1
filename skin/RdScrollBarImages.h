#pragma once

#include <QObject>

#include "skin/DesignRectProperty.h"
#include "skin/RdPictureProperty.h"

namespace qpt {

// The pictures of a skinned scroll bar and the switches that decide how they
// are laid out. "Left" and "Right" name the arrow at the low and the high
// end, "Top" and "Bottom" the pieces at the low and high end of the track
// and of the thumb, whatever the bar's direction; "Hot" pictures are used
// under the mouse and fall back to the plain ones when a skin leaves them out.
class TRdScrollBarImages : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool PropertyCopy READ PropertyCopy WRITE SetPropertyCopy STORED false)
    Q_PROPERTY(bool PropertyPaste READ PropertyPaste WRITE SetPropertyPaste STORED false)
    Q_PROPERTY(bool AutoArrow READ AutoArrow WRITE SetAutoArrow)
    Q_PROPERTY(bool AllowArrow READ AllowArrow WRITE SetAllowArrow)
    Q_PROPERTY(bool AutoSize READ AutoSize WRITE SetAutoSize)
    Q_PROPERTY(bool AutoHide READ AutoHide WRITE SetAutoHide)
    Q_PROPERTY(bool AutoCenter READ AutoCenter WRITE SetAutoCenter)
    Q_PROPERTY(qpt::TRdPictureProperty* BtnLeft READ BtnLeft)
    Q_PROPERTY(qpt::TRdPictureProperty* BtnLeftHot READ BtnLeftHot)
    Q_PROPERTY(qpt::TRdPictureProperty* BtnRight READ BtnRight)
    Q_PROPERTY(qpt::TRdPictureProperty* BtnRightHot READ BtnRightHot)
    Q_PROPERTY(qpt::TRdPictureProperty* ScrollBgTop READ ScrollBgTop)
    Q_PROPERTY(qpt::TRdPictureProperty* ScrollBg READ ScrollBg)
    Q_PROPERTY(qpt::TRdPictureProperty* ScrollBgBottom READ ScrollBgBottom)
    Q_PROPERTY(qpt::TRdPictureProperty* TrackTop READ TrackTop)
    Q_PROPERTY(qpt::TRdPictureProperty* TrackTopHot READ TrackTopHot)
    Q_PROPERTY(qpt::TRdPictureProperty* TrackCenter READ TrackCenter)
    Q_PROPERTY(qpt::TRdPictureProperty* TrackCenterHot READ TrackCenterHot)
    Q_PROPERTY(qpt::TRdPictureProperty* TrackBottom READ TrackBottom)
    Q_PROPERTY(qpt::TRdPictureProperty* TrackBottomHot READ TrackBottomHot)
    Q_PROPERTY(qpt::TDesignRectProperty* ScrollBg_Option READ ScrollBg_Option)
    Q_PROPERTY(qpt::TDesignRectProperty* Track_Option READ Track_Option)

public:
    enum TPicture {
        ipBtnLeft,
        ipBtnLeftHot,
        ipBtnRight,
        ipBtnRightHot,
        ipScrollBgTop,
        ipScrollBg,
        ipScrollBgBottom,
        ipTrackTop,
        ipTrackTopHot,
        ipTrackCenter,
        ipTrackCenterHot,
        ipTrackBottom,
        ipTrackBottomHot,
        ipCount
    };

    explicit TRdScrollBarImages(QObject* owner = nullptr);

    bool AutoArrow() const { return autoArrow_; }
    void SetAutoArrow(bool value) { Change(autoArrow_, value); }
    bool AllowArrow() const { return allowArrow_; }
    void SetAllowArrow(bool value) { Change(allowArrow_, value); }
    bool AutoSize() const { return autoSize_; }
    void SetAutoSize(bool value) { Change(autoSize_, value); }
    bool AutoHide() const { return autoHide_; }
    void SetAutoHide(bool value) { Change(autoHide_, value); }
    bool AutoCenter() const { return autoCenter_; }
    void SetAutoCenter(bool value) { Change(autoCenter_, value); }

    TRdPictureProperty* Picture(TPicture which) const { return pictures_[which]; }
    // The hot picture when asked for and present, else the plain one.
    TRdPictureProperty* Picture(TPicture plain, TPicture hot, bool useHot) const;

    TRdPictureProperty* BtnLeft() const { return pictures_[ipBtnLeft]; }
    TRdPictureProperty* BtnLeftHot() const { return pictures_[ipBtnLeftHot]; }
    TRdPictureProperty* BtnRight() const { return pictures_[ipBtnRight]; }
    TRdPictureProperty* BtnRightHot() const { return pictures_[ipBtnRightHot]; }
    TRdPictureProperty* ScrollBgTop() const { return pictures_[ipScrollBgTop]; }
    TRdPictureProperty* ScrollBg() const { return pictures_[ipScrollBg]; }
    TRdPictureProperty* ScrollBgBottom() const { return pictures_[ipScrollBgBottom]; }
    TRdPictureProperty* TrackTop() const { return pictures_[ipTrackTop]; }
    TRdPictureProperty* TrackTopHot() const { return pictures_[ipTrackTopHot]; }
    TRdPictureProperty* TrackCenter() const { return pictures_[ipTrackCenter]; }
    TRdPictureProperty* TrackCenterHot() const { return pictures_[ipTrackCenterHot]; }
    TRdPictureProperty* TrackBottom() const { return pictures_[ipTrackBottom]; }
    TRdPictureProperty* TrackBottomHot() const { return pictures_[ipTrackBottomHot]; }
    TDesignRectProperty* ScrollBg_Option() const { return scrollBgOption_; }
    TDesignRectProperty* Track_Option() const { return trackOption_; }

    // Takes the switches, pictures and slicings of another set.
    void Assign(const TRdScrollBarImages& source);

    // Switches that act once: true copies this set to a process-wide
    // clipboard, or takes the clipboard's set here; they always read false.
    bool PropertyCopy() const { return false; }
    void SetPropertyCopy(bool value);
    bool PropertyPaste() const { return false; }
    void SetPropertyPaste(bool value);

signals:
    // Something that changes the bar's look or layout: the owner repaints.
    void Changed();

private:
    void Change(bool& field, bool value);

    bool autoArrow_ = true;
    bool allowArrow_ = false;
    bool autoSize_ = false;
    bool autoHide_ = false;
    bool autoCenter_ = false;
    TRdPictureProperty* pictures_[ipCount];
    TDesignRectProperty* scrollBgOption_;
    TDesignRectProperty* trackOption_;
};

}  // namespace qpt
