#pragma once

#include <sys/types.h>

#include <QString>

namespace qpt::testing {

// A private X server (Xvfb) for tests that need a real display. It picks a
// free display number itself and is stopped when the object goes.
class VirtualDisplay {
public:
    explicit VirtualDisplay(int width = 1920, int height = 1080);
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    bool isRunning() const { return !name_.isEmpty(); }
    QString name() const { return name_; }  // such as ":93"

private:
    pid_t pid_ = -1;
    QString name_;
};

}  // namespace qpt::testing
