#pragma once

#include <QObject>

namespace qpt {

// Base of the small skin sub-objects whose owner redraws or reshapes when any
// field moves: one signal, raised only by a real change so that a skin line
// that repeats the current value costs no repaint.
class TChangeNotifier : public QObject {
    Q_OBJECT

public:
    explicit TChangeNotifier(QObject* parent = nullptr) : QObject(parent) {}

signals:
    void Changed();

protected:
    template <typename T>
    void Change(T& field, T value) {
        if (field == value) return;
        field = value;
        emit Changed();
    }
};

}  // namespace qpt
