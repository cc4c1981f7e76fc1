#pragma once

#include <QObject>
#include <QString>

#include "skin/RdFont.h"
#include "support/color/ColorNames.h"

namespace qpt {

// The look and behaviour of one link of a TRdHtmLabel, found by Name, which
// is the link's HREF. Caption is the link's text as last read from the
// markup; FoundTextEllipsis tells whether the last drawing had to cut it.
class TRdHtmLabelLink : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool FoundTextEllipsis READ FoundTextEllipsis)
    Q_PROPERTY(quint32 ColorBg READ ColorBg WRITE SetColorBg)
    Q_PROPERTY(qpt::TRdFont* Font READ Font)
    Q_PROPERTY(qpt::TRdFont* FontHover READ FontHover)
    Q_PROPERTY(QString Name READ Name WRITE SetName)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(QString Hint READ Hint WRITE SetHint)
    Q_PROPERTY(int MaxLine READ MaxLine WRITE SetMaxLine)
    Q_PROPERTY(int LineSpace READ LineSpace WRITE SetLineSpace)
    Q_PROPERTY(bool AutoShowHint READ AutoShowHint WRITE SetAutoShowHint)

public:
    // Colour values: a link blue and a lighter blue under the mouse.
    static constexpr quint32 kLinkColor = 0x00CC6600;
    static constexpr quint32 kHoverColor = 0x00FF9933;

    explicit TRdHtmLabelLink(QObject* parent = nullptr);

    bool FoundTextEllipsis() const { return foundTextEllipsis_; }
    void SetFoundTextEllipsis(bool value) { foundTextEllipsis_ = value; }
    quint32 ColorBg() const { return colorBg_; }
    void SetColorBg(quint32 value) { Change(colorBg_, value); }
    TRdFont* Font() const { return font_; }
    TRdFont* FontHover() const { return fontHover_; }
    QString Name() const { return name_; }
    void SetName(const QString& value) { Change(name_, value); }
    QString Caption() const { return caption_; }
    void SetCaption(const QString& value) { caption_ = value; }
    QString Hint() const { return hint_; }
    void SetHint(const QString& value) { hint_ = value; }
    // 0: as many lines as the text needs; otherwise the rest is cut with "...".
    int MaxLine() const { return maxLine_; }
    void SetMaxLine(int value) { Change(maxLine_, qMax(value, 0)); }
    // Extra pixels below the lines that hold this link.
    int LineSpace() const { return lineSpace_; }
    void SetLineSpace(int value) { Change(lineSpace_, value); }
    // A cut link shows its whole Caption as its hint when it has none.
    bool AutoShowHint() const { return autoShowHint_; }
    void SetAutoShowHint(bool value) { autoShowHint_ = value; }

    // Both fonts take the label's font in the link colours.
    void TakeFont(const TRdFont& labelFont);

signals:
    // Something that changes the drawing or the layout.
    void Changed();

private:
    template <typename T>
    void Change(T& field, const T& value) {
        if (field == value) return;
        field = value;
        emit Changed();
    }

    TRdFont* font_;
    TRdFont* fontHover_;
    QString name_;
    QString caption_;
    QString hint_;
    quint32 colorBg_ = clNone;
    int maxLine_ = 0;
    int lineSpace_ = 0;
    bool autoShowHint_ = true;
    bool foundTextEllipsis_ = false;
};

}  // namespace qpt
