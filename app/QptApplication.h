#pragma once

#include <QApplication>

namespace qpt {

// The application object. An exception that escapes an event handler would
// otherwise unwind through Qt; here it goes to the crash path instead.
class TQptApplication : public QApplication {
    Q_OBJECT
public:
    TQptApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace qpt
