#pragma once

#include <QWidget>

namespace qpt {

class TRdSkinHint;

// The window of a skinned hint: a frameless tool tip that never takes the
// focus or the mouse, sized to its text and painted by its hint's values.
class TRdSkinHintWindow : public QWidget {
    Q_OBJECT

public:
    explicit TRdSkinHintWindow(TRdSkinHint* hint);

    // A hint text splits at its first "##" into the title and the text; a
    // text without one has no title.
    struct TParts {
        QString Title;
        QString Text;
    };
    static TParts SplitHint(const QString& text);

    void SetHintText(const QString& text);
    QString Title() const { return parts_.Title; }
    QString Text() const { return parts_.Text; }

    // The size the text needs: both parts wrapped at MaxWidth, TextX and
    // TextY around them, no taller than MaxHeight (when set).
    QSize CalcHintSize() const;
    // Where the parts are drawn, for the current text and the given size.
    QRect TitleRect() const;
    QRect TextRect() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Inner width a part may wrap at; 0 for no limit.
    int WrapWidth() const;
    QSize PartSize(const QString& part, const QFont& font) const;
    int TextFlags() const;

    TRdSkinHint* hint_;
    TParts parts_;
};

}  // namespace qpt
