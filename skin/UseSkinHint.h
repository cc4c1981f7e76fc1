#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>

namespace qpt {

class TRdSkinHint;

// Placed on a form, makes the hints of the form's controls skinned: the tool
// tip Qt would show is shown by the form's TRdSkinHint instead (Hint), or by
// the one given to a control with SetControlHint. One per form: a second one
// on the same form stays idle. A hint that is not Active leaves the control
// to the platform's plain tool tip.
class TUseSkinHint : public QObject {
    Q_OBJECT

public:
    explicit TUseSkinHint(QWidget* form);

    QWidget* Form() const { return form_; }
    // The form's own skinned hint.
    TRdSkinHint* Hint() const { return hint_; }
    // A hint of its own for one control and what lies on it; none goes back
    // to the form's.
    void SetControlHint(QWidget* control, TRdSkinHint* hint);
    // The hint that serves a control of the form.
    TRdSkinHint* HintFor(QWidget* control) const;
    // The first one placed on the form, if any.
    static TUseSkinHint* Of(const QWidget* form);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ShowHint(QWidget* control, const QPoint& globalPos);
    void HideHintOf(QWidget* control);

    QPointer<QWidget> form_;
    TRdSkinHint* hint_;
    QHash<QWidget*, QPointer<TRdSkinHint>> controlHints_;
};

}  // namespace qpt
