#pragma once

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <functional>

#include "skin/DesignRectProperty.h"
#include "skin/MenuHost.h"
#include "skin/MenuItem.h"
#include "skin/RdFont.h"
#include "skin/RdImageNoteList.h"
#include "skin/RdPictureProperty.h"
#include "skin/RdSkinClass.h"

namespace qpt {

class TRdMenuForm;

// A popup menu drawn by the skin: its items (Items) show in a frameless popup
// window of their own, each level in a TRdMenuCtrl, and behave like the
// platform's popup menu. Colours are colour values (clNone leaves a part out).
class TRdSkinMenu : public QObject, public TMenuHost {
    Q_OBJECT
    Q_PROPERTY(bool TestPopup READ TestPopup WRITE SetTestPopup STORED false)
    Q_PROPERTY(bool AlphaBlend MEMBER alphaBlend_)
    Q_PROPERTY(int AlphaBlendValue MEMBER alphaBlendValue_)
    Q_PROPERTY(bool DropShadow MEMBER dropShadow_)
    Q_PROPERTY(bool ModalMenu MEMBER modalMenu_)
    Q_PROPERTY(bool LightBorder MEMBER lightBorder_ NOTIFY Changed)
    Q_PROPERTY(int ItemPadding READ ItemPadding WRITE SetItemPadding)
    Q_PROPERTY(int ItemBorderWidth READ ItemBorderWidth WRITE SetItemBorderWidth)
    Q_PROPERTY(int ItemHeight READ ItemHeight WRITE SetItemHeight)
    Q_PROPERTY(int ItemSeparatorBorder READ ItemSeparatorBorder WRITE SetItemSeparatorBorder)
    Q_PROPERTY(int ItemRightMargin READ ItemRightMargin WRITE SetItemRightMargin)
    Q_PROPERTY(int ItemLeftMargin READ ItemLeftMargin WRITE SetItemLeftMargin)
    Q_PROPERTY(quint32 ColorBackground MEMBER colorBackground_ NOTIFY Changed)
    Q_PROPERTY(quint32 ColorIconBar MEMBER colorIconBar_ NOTIFY Changed)
    Q_PROPERTY(quint32 ColorBorder MEMBER colorBorder_ NOTIFY Changed)
    Q_PROPERTY(quint32 ColorHighLight MEMBER colorHighLight_ NOTIFY Changed)
    Q_PROPERTY(quint32 ColorSeparator MEMBER colorSeparator_ NOTIFY Changed)
    Q_PROPERTY(quint32 ColorVertLine MEMBER colorVertLine_ NOTIFY Changed)
    Q_PROPERTY(qpt::TRdFont* FontNormal READ FontNormal)
    Q_PROPERTY(qpt::TRdFont* FontHighLight READ FontHighLight)
    Q_PROPERTY(qpt::TRdFont* FontDisabled READ FontDisabled)
    Q_PROPERTY(qpt::TRdPictureProperty* PictureCheck READ PictureCheck)
    Q_PROPERTY(qpt::TRdPictureProperty* PictureRadio READ PictureRadio)
    Q_PROPERTY(qpt::TRdPictureProperty* PictureArrow READ PictureArrow)
    Q_PROPERTY(int IconOffsetX READ IconOffsetX WRITE SetIconOffsetX)
    Q_PROPERTY(int IconOffsetY READ IconOffsetY WRITE SetIconOffsetY)
    Q_PROPERTY(int IconSpaceX READ IconSpaceX WRITE SetIconSpaceX)
    Q_PROPERTY(int IconMargin READ IconMargin WRITE SetIconMargin)
    Q_PROPERTY(qpt::TDesignRectProperty* FormBorder READ FormBorder)
    Q_PROPERTY(qpt::TRdPictureProperty* PictureShadow READ PictureShadow)
    Q_PROPERTY(qpt::TDesignRectProperty* PictureShadowOpt READ PictureShadowOpt)
    Q_PROPERTY(qpt::TRdImageNoteList* Images READ Images WRITE SetImages)
    Q_PROPERTY(qpt::TRdSkinClass* AllSkin READ AllSkin)

public:
    explicit TRdSkinMenu(QObject* parent = nullptr);
    ~TRdSkinMenu() override;

    // The root item: its entries are the menu.
    TMenuItem* Items() const { return items_; }

    // Shows the menu with its top left corner at a screen point, kept on the
    // screen. With ModalMenu it returns only once the menu is closed.
    void Popup(const QPoint& screenPos);
    void Popup(int x, int y) { Popup(QPoint(x, y)); }
    // Closes every level; Dismissed tells whether that happened without an
    // item being chosen.
    void CloseMenu() override;
    bool Dismissed() const { return dismissed_; }
    bool Showing() const { return !forms_.isEmpty(); }
    // The levels on show, the root first.
    QList<TRdMenuForm*> Forms() const override;

    // A design aid: setting it pops the menu up at the mouse.
    bool TestPopup() const { return false; }
    void SetTestPopup(bool value);

    TMenuMetrics Metrics() const { return metrics_; }
    int ItemPadding() const { return metrics_.ItemPadding; }
    void SetItemPadding(int value) { SetMetric(metrics_.ItemPadding, value); }
    int ItemBorderWidth() const { return metrics_.ItemBorderWidth; }
    void SetItemBorderWidth(int value) { SetMetric(metrics_.ItemBorderWidth, value); }
    int ItemHeight() const { return metrics_.ItemHeight; }
    void SetItemHeight(int value) { SetMetric(metrics_.ItemHeight, value); }
    int ItemSeparatorBorder() const { return metrics_.ItemSeparatorBorder; }
    void SetItemSeparatorBorder(int value) { SetMetric(metrics_.ItemSeparatorBorder, value); }
    int ItemRightMargin() const { return metrics_.ItemRightMargin; }
    void SetItemRightMargin(int value) { SetMetric(metrics_.ItemRightMargin, value); }
    int ItemLeftMargin() const { return metrics_.ItemLeftMargin; }
    void SetItemLeftMargin(int value) { SetMetric(metrics_.ItemLeftMargin, value); }
    int IconOffsetX() const { return metrics_.IconOffsetX; }
    void SetIconOffsetX(int value) { SetMetric(metrics_.IconOffsetX, value); }
    int IconOffsetY() const { return metrics_.IconOffsetY; }
    void SetIconOffsetY(int value) { SetMetric(metrics_.IconOffsetY, value); }
    int IconSpaceX() const { return metrics_.IconSpaceX; }
    void SetIconSpaceX(int value) { SetMetric(metrics_.IconSpaceX, value); }
    int IconMargin() const { return metrics_.IconMargin; }
    void SetIconMargin(int value) { SetMetric(metrics_.IconMargin, value); }

    bool AlphaBlend() const { return alphaBlend_; }
    int AlphaBlendValue() const { return alphaBlendValue_; }
    bool DropShadow() const { return dropShadow_; }
    bool ModalMenu() const { return modalMenu_; }
    bool LightBorder() const { return lightBorder_; }
    quint32 ColorBackground() const { return colorBackground_; }
    quint32 ColorIconBar() const { return colorIconBar_; }
    quint32 ColorBorder() const { return colorBorder_; }
    quint32 ColorHighLight() const { return colorHighLight_; }
    quint32 ColorSeparator() const { return colorSeparator_; }
    quint32 ColorVertLine() const { return colorVertLine_; }
    TRdFont* FontNormal() const { return fontNormal_; }
    TRdFont* FontHighLight() const { return fontHighLight_; }
    TRdFont* FontDisabled() const { return fontDisabled_; }
    TRdPictureProperty* PictureCheck() const { return pictureCheck_; }
    TRdPictureProperty* PictureRadio() const { return pictureRadio_; }
    TRdPictureProperty* PictureArrow() const { return pictureArrow_; }
    TRdPictureProperty* PictureShadow() const { return pictureShadow_; }
    TDesignRectProperty* FormBorder() const { return formBorder_; }
    TDesignRectProperty* PictureShadowOpt() const { return pictureShadowOpt_; }
    TRdImageNoteList* Images() const { return images_; }
    void SetImages(TRdImageNoteList* value);
    TRdSkinClass* AllSkin() const { return allSkin_; }

    // The menu's window is made and placed, and about to show.
    std::function<void(TRdSkinMenu& sender)> OnShow;
    std::function<void(TRdSkinMenu& sender)> OnHide;
    // An item of the menu changed while it is known to the menu.
    std::function<void(TRdSkinMenu& sender, TMenuItem* item)> ItemChange;

    // What the levels on show ask of the menu.
    TMenuLooks Looks() const override;
    QWidget* OpenLevel(TMenuItem* item, const QRect& row, QWidget* from, bool firstHot) override;
    void CloseLevelsAbove(QWidget* level) override;
    bool CloseSubLevel(QWidget* level) override;
    void Choose(TMenuItem* item) override;

signals:
    void Changed();
    // Every level is gone, by a choice or not.
    void Closed();

private:
    void SetMetric(int& field, int value);
    void Refresh();
    TRdMenuForm* NewForm(TMenuItem* level, TRdMenuForm* parent);
    void FormGone(TRdMenuForm* form);
    void Finish(bool dismissed);
    void Hidden();

    TMenuItem* items_;
    TMenuMetrics metrics_;
    bool alphaBlend_ = false;
    int alphaBlendValue_ = 255;
    bool dropShadow_ = true;
    bool modalMenu_ = false;
    bool lightBorder_ = false;
    quint32 colorBackground_ = 0xFFFFFF;
    quint32 colorIconBar_ = 0xF0F0F0;
    quint32 colorBorder_ = 0x999999;
    quint32 colorHighLight_ = 0xF7E4CC;
    quint32 colorSeparator_ = 0xDDDDDD;
    quint32 colorVertLine_;
    TRdFont* fontNormal_;
    TRdFont* fontHighLight_;
    TRdFont* fontDisabled_;
    TRdPictureProperty* pictureCheck_;
    TRdPictureProperty* pictureRadio_;
    TRdPictureProperty* pictureArrow_;
    TRdPictureProperty* pictureShadow_;
    TDesignRectProperty* formBorder_;
    TDesignRectProperty* pictureShadowOpt_;
    QPointer<TRdImageNoteList> images_;
    TRdSkinClass* allSkin_;
    QList<QPointer<TRdMenuForm>> forms_;
    bool dismissed_ = false;
    bool finishing_ = false;
};

}  // namespace qpt
