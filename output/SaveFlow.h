#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

#include "output/OutputDialogs.h"

namespace qpt {

class TOutputBar;

// "ScreenShot_" and the local time as YYYYMMDDHHMMSS, without extension.
QString GeneratedFileName(const QDateTime& localTime);

// The save dialog's filter for the default extension (".bmp" 1, ".jpeg" 2,
// ".png" 3, in any case); any other extension keeps the current one.
int FilterIndexFor(const QString& defaultExt, int current);

// The save of the pinned picture. Silently into the always-save folder of
// the path panel, or through the save dialog; then the picture is
// flattened and written, the host is told, and the process ends. A
// cancelled dialog or a refused replacement returns to the session with the
// annotations still separate, since nothing is flattened before the last
// question. A file that could not be written does not stop the way out:
// the picture is kept in the settings folder's "recovery" folder first.
class TSaveFlow {
public:
    explicit TSaveFlow(TOutputBar& bar);

    // The save button, its word, and Ctrl+S.
    void Rd_SaveClick();

    // The save dialog as it stands between saves: the filter chosen last
    // stays chosen.
    TSaveDialogRequest Dlg_Save;
    // The local time the file name is made from.
    std::function<QDateTime()> Now = [] { return QDateTime::currentDateTime(); };

private:
    void BranchWithPanel();
    void BranchWithoutPanel();
    // False when the user would rather not replace the file.
    bool MayReplace(const QString& fileName);
    // Back to the session: the forms above the others again, the gate open.
    void Return();
    void WritePicture(const QString& path);
    [[noreturn]] void Finish();

    TOutputBar& bar_;
};

}  // namespace qpt
