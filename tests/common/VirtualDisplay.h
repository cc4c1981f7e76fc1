#pragma once

#include <sys/types.h>

#include <QList>
#include <QRect>
#include <QString>

namespace qpt::testing {

// A private X server (Xvfb) for tests that need a real display. It picks a
// free display number itself and is stopped when the object goes.
class VirtualDisplay {
public:
    explicit VirtualDisplay(int width = 1920, int height = 1080);
    // One screen that spans the monitors, which clients see side by side as
    // the server's monitors; the first is the primary one. Coordinates start
    // at 0,0, as an X screen's do.
    explicit VirtualDisplay(const QList<QRect>& monitors);
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    bool isRunning() const { return !name_.isEmpty(); }
    QString name() const { return name_; }  // such as ":93"
    // False when the monitors asked for could not be set up.
    bool monitorsSet() const { return monitorsSet_; }

private:
    void Start(int width, int height);
    void Stop();
    bool SetMonitors(const QList<QRect>& monitors);

    pid_t pid_ = -1;
    QString name_;
    bool monitorsSet_ = true;
};

}  // namespace qpt::testing
