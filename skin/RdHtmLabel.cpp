#include "skin/RdHtmLabel.h"

#include <QHelpEvent>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolTip>
#include <climits>

#include "skin/FillSkinRect.h"
#include "skin/HtmTag.h"
#include "skin/RdGraphic.h"
#include "skin/Resource.h"
#include "skin/SkinQColor.h"

namespace qpt {

namespace {

constexpr int kThemeIconSide = 16;

QImage SkinPicture(const QString& name) {
    TRdGraphic* graphic = TResource::GetGraphic(name);
    if (!graphic || graphic->Empty()) return {};
    const QSize size = QSize(graphic->Width(), graphic->Height())
                           .boundedTo(QSize(kHtmMaxPictureSide, kHtmMaxPictureSide));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    graphic->Draw(painter, image.rect());
    return image;
}

}  // namespace

TRdHtmLabel::TRdHtmLabel(QWidget* parent)
    : TRdLabel(parent), linkItems_(new TRdHtmLabelLinks(this)) {
    setMouseTracking(true);
    // "&" starts an entity here, never an accelerator.
    SetShowAccelChar(false);
    connect(linkItems_, &TRdHtmLabelLinks::Changed, this, [this] {
        SyncLinks();
        AdjustBounds();
        update();
    });
}

void TRdHtmLabel::SetLineSpacing(int value) {
    ChangeAndFit(lineSpacing_, qBound(-100, value, 100));
}

void TRdHtmLabel::SetImages(const QList<QImage>& images) {
    images_ = images;
    pictures_.clear();
    AdjustBounds();
    update();
}

void TRdHtmLabel::CaptionChanged() {
    document_ = ParseHtm(Caption());
    markupLinks_ = document_.links;
    pictures_.clear();
    hoverLink_ = pressedLink_ = -1;
    SyncLinks();
}

void TRdHtmLabel::FontChanged() {
    TRdLabel::FontChanged();
    pictures_.clear();
}

// Every link of the markup gets its item, made in the label's font the
// first time its name turns up; the item's own limits win over the markup's.
void TRdHtmLabel::SyncLinks() {
    const QSignalBlocker blocker(linkItems_);
    linkOf_.assign(document_.links.size(), nullptr);
    std::vector<QString> captions(document_.links.size());
    for (const THtmItem& item : document_.items)
        if (item.style.link >= 0) captions[size_t(item.style.link)] += item.text + item.alt;
    for (size_t i = 0; i < document_.links.size(); ++i) {
        const THtmLinkRef& markup = markupLinks_[i];
        TRdHtmLabelLink* link = linkItems_->Find(markup.href);
        if (!link) {
            link = linkItems_->Add(markup.href);
            link->TakeFont(*Font());
        }
        link->SetCaption(captions[i]);
        if (!markup.title.isEmpty()) link->SetHint(markup.title);
        THtmLinkRef& used = document_.links[i];
        used.maxLine = link->MaxLine() > 0 ? link->MaxLine() : markup.maxLine;
        used.lineSpace = link->LineSpace() != 0 ? link->LineSpace() : markup.lineSpace;
        linkOf_[i] = link;
    }
}

TRdHtmLabelLink* TRdHtmLabel::LinkItem(int link) const {
    return link >= 0 && link < int(linkOf_.size()) ? linkOf_[size_t(link)] : nullptr;
}

TRdHtmLabelLink* TRdHtmLabel::HoverLink() const {
    return LinkItem(hoverLink_);
}

QImage TRdHtmLabel::Picture(const QString& source) const {
    if (const auto found = pictures_.constFind(source); found != pictures_.constEnd())
        return *found;
    QImage image;
    if (source.startsWith(u"IDX:", Qt::CaseInsensitive)) {
        const int index = HtmNumber(QStringView(source).mid(4), -1, -1, INT_MAX);
        if (index >= 0 && index < images_.size()) image = images_[index];
    } else if (source.startsWith(u"SSYS:", Qt::CaseInsensitive)) {
        image = SkinPicture(source.mid(5));
    } else if (source.startsWith(u"LSYS:", Qt::CaseInsensitive)) {
        image = QIcon::fromTheme(source.mid(5)).pixmap(kThemeIconSide).toImage();
    } else if (!source.isEmpty()) {
        image = SkinPicture(source);
    }
    pictures_.insert(source, image);
    return image;
}

THtmLayoutOptions TRdHtmLabel::LayoutOptions(int width, int height) const {
    THtmLayoutOptions options;
    options.font = Font()->ToQFont();
    options.width = width;
    options.height = height;
    options.lineSpacing = lineSpacing_;
    options.wordWrap = WordWrap();
    options.pictureSize = [this](const QString& source) { return Picture(source).size(); };
    options.linkFont = [this](int link) {
        const TRdHtmLabelLink* item = LinkItem(link);
        return item ? item->Font()->ToQFont() : Font()->ToQFont();
    };
    return options;
}

THtmLayout TRdHtmLabel::CurrentLayout() const {
    const QRect area = TextRect();
    return LayoutHtm(document_, LayoutOptions(qMax(area.width(), 1), qMax(area.height(), 1)));
}

QSize TRdHtmLabel::MeasureText(int width, int height) const {
    const THtmLayout layout = LayoutHtm(document_, LayoutOptions(width, height));
    // Nothing to show still takes the height of one line.
    if (layout.lines == 0) return QSize(0, QFontMetrics(Font()->ToQFont()).height());
    return layout.size;
}

THtmPaintContext TRdHtmLabel::PaintContext() const {
    THtmPaintContext context;
    context.textColor = TextColor();
    context.hoverLink = hoverLink_;
    context.linkLook = [this](int link, bool hover) {
        const TRdHtmLabelLink* item = LinkItem(link);
        if (!item) return THtmLinkLook{Font()->ToQFont(), TextColor(), QColor()};
        const TRdFont* font = hover ? item->FontHover() : item->Font();
        return THtmLinkLook{font->ToQFont(), font->ToQColor(), SkinQColor(item->ColorBg())};
    };
    context.drawPicture = [this](QPainter& painter, const QString& source, const QRect& rect) {
        painter.drawImage(rect, Picture(source));
    };
    return context;
}

void TRdHtmLabel::PaintPageBackground(QPainter& painter) {
    const THtmBackground& background = document_.background;
    const QImage picture = background.picture.isEmpty() ? QImage() : Picture(background.picture);
    if (!picture.isNull()) {
        painter.drawImage(rect(), picture);
        return;
    }
    FillSkinRect(
        painter, rect(), background.color, background.colorTo,
        background.vertical ? TGradientDirection::gdVertical : TGradientDirection::gdHorizontal);
}

void TRdHtmLabel::PaintText(QPainter& painter) {
    PaintPageBackground(painter);
    const QRect area = TextRect();
    const THtmLayoutOptions options = LayoutOptions(qMax(area.width(), 1), qMax(area.height(), 1));
    const THtmLayout layout = LayoutHtm(document_, options);
    for (size_t i = 0; i < linkOf_.size(); ++i)
        linkOf_[i]->SetFoundTextEllipsis(i < layout.linkCut.size() && layout.linkCut[i]);
    int top = area.top();
    if (Layout() == tlCenter)
        top += (area.height() - layout.size.height()) / 2;
    else if (Layout() == tlBottom)
        top = area.bottom() + 1 - layout.size.height();
    PaintHtm(painter, document_, layout, QPoint(area.left(), top), options, PaintContext());
}

void TRdHtmLabel::SetHoverLink(int link) {
    if (hoverLink_ == link) return;
    hoverLink_ = link;
    if (link >= 0)
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
    update();
}

void TRdHtmLabel::mouseMoveEvent(QMouseEvent* event) {
    const THtmLayout layout = CurrentLayout();
    QPoint point = event->position().toPoint() - TextRect().topLeft();
    if (Layout() == tlCenter)
        point.ry() -= (TextRect().height() - layout.size.height()) / 2;
    else if (Layout() == tlBottom)
        point.ry() -= TextRect().height() - layout.size.height();
    SetHoverLink(layout.LinkAt(point));
    TRdLabel::mouseMoveEvent(event);
}

void TRdHtmLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressedLink_ = hoverLink_;
    TRdLabel::mousePressEvent(event);
}

void TRdHtmLabel::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = pressedLink_;
    pressedLink_ = -1;
    TRdLabel::mouseReleaseEvent(event);
    TRdHtmLabelLink* link = LinkItem(pressed);
    if (event->button() == Qt::LeftButton && link && pressed == hoverLink_ && OnLinkClick)
        OnLinkClick(*this, *link);
}

bool TRdHtmLabel::event(QEvent* event) {
    if (event->type() == QEvent::Leave) SetHoverLink(-1);
    const TRdHtmLabelLink* link = HoverLink();
    if (event->type() == QEvent::ToolTip && link && ShowHint()) {
        QString hint = link->Hint();
        if (hint.isEmpty() && link->AutoShowHint() && link->FoundTextEllipsis())
            hint = link->Caption();
        if (!hint.isEmpty()) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), hint, this);
            return true;
        }
    }
    return TRdLabel::event(event);
}

}  // namespace qpt
