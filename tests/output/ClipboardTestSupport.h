#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "tests/common/DisplayTest.h"
#include "tests/common/PasteClient.h"

namespace qpt::testing {

// A display of its own for each test, a second client on it, and the
// program's side of a copy played by a process that ends right after.
class ClipboardTest : public DisplayTest {
protected:
    void SetUp() override;

    // The copy driver's exit code: 0 when the holder owned the clipboard.
    int CopyPicture(int width, int height, int seed);
    int CopyText(const QString& text);
    // What xclip pastes for the target, as a user's paste would.
    QByteArray Xclip(const char* target);
    // The program's log as text, empty when there is none.
    QString LogText() const;

    std::unique_ptr<PasteClient> client_;
};

// A real clipboard manager: the one in the desktop settings daemon of
// tools/install-deps, on a session bus of its own. It and everything it
// started form one process group, which ends with the object.
class ClipboardManagerDaemon {
public:
    ClipboardManagerDaemon();
    ~ClipboardManagerDaemon();
    ClipboardManagerDaemon(const ClipboardManagerDaemon&) = delete;
    ClipboardManagerDaemon& operator=(const ClipboardManagerDaemon&) = delete;

private:
    pid_t pid_ = -1;
};

// How many clipboard holders of this build serve the display.
int HolderProcesses(const QString& display);

}  // namespace qpt::testing
