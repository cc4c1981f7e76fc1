#pragma once

#include <QObject>

namespace qpt {

class TFormTools;

// The one hook that sees every key press of the process, even under a modal
// dialog, and hands it to the toolbar without taking it.
class TAppEventMsg : public QObject {
    Q_OBJECT
public:
    explicit TAppEventMsg(TFormTools& tools);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    TFormTools& tools_;
};

}  // namespace qpt
