#pragma once

#include <QHash>
#include <QImage>
#include <QList>
#include <functional>

#include "skin/HtmLayout.h"
#include "skin/HtmMarkup.h"
#include "skin/RdHtmLabelLinks.h"
#include "skin/RdLabel.h"

namespace qpt {

// A label whose caption is a small markup with fonts, colours, lists,
// pictures and links. Links light up under the mouse and report a click
// through OnLinkClick. A picture source "IDX:n" is picture n of Images,
// "SSYS:name" a picture of the skin, "LSYS:name" an icon of the desktop's
// theme, and any other source a picture of the skin by that name.
class TRdHtmLabel : public TRdLabel {
    Q_OBJECT
    Q_PROPERTY(bool FoundTextOutOfRect READ FoundTextOutOfRect)
    Q_PROPERTY(QString PlainText READ PlainText)
    Q_PROPERTY(int Lines READ Lines)
    Q_PROPERTY(int LineSpacing READ LineSpacing WRITE SetLineSpacing)
    Q_PROPERTY(qpt::TRdHtmLabelLinks* LinkItems READ LinkItems)

public:
    explicit TRdHtmLabel(QWidget* parent = nullptr);

    // Whether the text at the present size had to be cut.
    bool FoundTextOutOfRect() const { return CurrentLayout().cut; }
    QString PlainText() const { return HtmPlainText(document_); }
    int Lines() const { return CurrentLayout().lines; }
    int LineSpacing() const { return lineSpacing_; }
    void SetLineSpacing(int value);
    TRdHtmLabelLinks* LinkItems() const { return linkItems_; }

    QList<QImage> Images() const { return images_; }
    void SetImages(const QList<QImage>& images);

    const THtmDocument& Document() const { return document_; }
    // The link item under the mouse, or none.
    TRdHtmLabelLink* HoverLink() const;
    // The layout inside TextRect at the present size.
    THtmLayout CurrentLayout() const;

    std::function<void(TRdHtmLabel& sender, TRdHtmLabelLink& link)> OnLinkClick;

protected:
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void FontChanged() override;

    void CaptionChanged() override;
    void PaintText(QPainter& painter) override;
    QSize MeasureText(int width, int height) const override;
    bool TextCut() const override { return CurrentLayout().cut; }
    QString AutoHintText() const override { return PlainText(); }

private:
    THtmLayoutOptions LayoutOptions(int width, int height) const;
    THtmPaintContext PaintContext() const;
    void SyncLinks();
    QImage Picture(const QString& source) const;
    void PaintPageBackground(QPainter& painter);
    void SetHoverLink(int link);
    TRdHtmLabelLink* LinkItem(int link) const;

    THtmDocument document_;
    // The links as the markup wrote them, before the link items' settings.
    std::vector<THtmLinkRef> markupLinks_;
    std::vector<TRdHtmLabelLink*> linkOf_;
    TRdHtmLabelLinks* linkItems_;
    QList<QImage> images_;
    mutable QHash<QString, QImage> pictures_;
    int lineSpacing_ = 0;
    int hoverLink_ = -1;
    int pressedLink_ = -1;
};

}  // namespace qpt
