#include "output/SaveFlow.h"

#include <QFileInfo>
#include <QWidget>

#include "app/session/SessionEnd.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "imaging/IEInteractionTypes.h"
#include "imaging/view/IEImageView.h"
#include "output/FlattenPicture.h"
#include "output/FormSavePath.h"
#include "output/FormStyle.h"
#include "output/OutputBar.h"
#include "output/RecoveryCopy.h"
#include "output/SaveFolders.h"
#include "output/SaveNewBitmap.h"
#include "support/DebugOutput.h"
#include "support/HostWindow.h"
#include "support/MainIni.h"
#include "support/ProductStat.h"
#include "support/QptMessages.h"

namespace qpt {

namespace {

constexpr char kTitle[] = "Zelk Screenshot";

// What the path panel says: its folder text as shown, and the tick.
struct TPanelChoice {
    QString Folder;
    bool Always = false;
};

TPanelChoice PanelChoice() {
    const auto* panel = qobject_cast<const TFormSavePath*>(FormSavePath);
    if (!panel) return {};
    return {panel->SavePathText(), panel->AlwaysSave()};
}

void FlattenSessionPicture() {
    if (Image_Front) FlattenPicture(*Image_Front);
}

// A file of that name is there already; a folder is not a file.
bool FileExists(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

}  // namespace

QString GeneratedFileName(const QDateTime& localTime) {
    return QStringLiteral("ScreenShot_") + localTime.toString(QStringLiteral("yyyyMMddHHmmss"));
}

int FilterIndexFor(const QString& defaultExt, int current) {
    const QString ext = defaultExt.toLower();
    if (ext == QLatin1StringView(".bmp")) return 1;
    if (ext == QLatin1StringView(".jpeg")) return 2;
    if (ext == QLatin1StringView(".png")) return 3;
    return current;
}

TSaveFlow::TSaveFlow(TOutputBar& bar) : bar_(bar) {
    Dlg_Save.DefaultExt = QStringLiteral(".jpeg");
    Dlg_Save.FileName = QStringLiteral("ScreenShot");
    Dlg_Save.FilterIndex = 2;
    Dlg_Save.Filter = QStringLiteral(
        "BMP(*.bmp)|*.bmp|JPEG(*.Jpeg;*.jpg)|*.jpeg;*.jpg|PNG(*.png)|*.png|GIF(*.gif)|*.gif|"
        "TIFF(*.tif;*.tiff)|*.tif;*.tiff");
}

void TSaveFlow::Rd_SaveClick() {
    if (SaveInProgress == 1) return;
    SaveInProgress = 1;
    if (FolderDialogOpen == 1) {
        // The gate stays shut: while the folder browser is up nothing else
        // may start a save, a copy or the end of the session.
        if (FormShowing(FormSavePath)) FormSavePath->raise();
        return;
    }
    Dlg_Save.FilterIndex = FilterIndexFor(DefaultImageExt, Dlg_Save.FilterIndex);
    Dlg_Save.FileName = GeneratedFileName(Now());
    if (FormShowing(FormSmallTools)) bar_.CloseStyleBar();
    bar_.SetSaveButtonState(3);
    bar_.SetCopyButtonState(0);
    // Dialogs must be able to rise above the bar and the picture.
    SetStayOnTop(FormTools, false);
    if (FormShowing(FormPinned)) SetStayOnTop(FormPinned, false);
    if (UseSavePanel == 1)
        BranchWithPanel();
    else
        BranchWithoutPanel();
}

void TSaveFlow::BranchWithPanel() {
    const TPanelChoice panel = PanelChoice();
    ForceFolderTree(panel.Folder.trimmed());
    if (panel.Always && QFileInfo(panel.Folder).isDir()) {
        if (Dlg_Save.FileName.isEmpty()) Dlg_Save.FileName = GeneratedFileName(Now());
        FlattenSessionPicture();
        // Joined as it stands: a folder chosen in the browser has no
        // trailing delimiter, and the name then runs on from it.
        const QString path = panel.Folder + Dlg_Save.FileName + DefaultImageExt;
        WritePicture(path);
        LastSavedFile = path;
        Finish();
    }
    DebugOutput("Dlg_Save. Filename : " + Dlg_Save.FileName);
    Dlg_Save.InitialDir = panel.Folder.trimmed();
    const TSaveDialogAnswer answer = OutputDialogs().RunSaveDialog(FormTools, Dlg_Save);
    if (!answer.Accepted) return Return();
    Dlg_Save.FilterIndex = answer.FilterIndex;
    if (answer.FileName.isEmpty()) FocusIfPossible(FormTools);
    if (FileExists(answer.FileName) && !MayReplace(answer.FileName)) {
        FocusIfPossible(FormTools);
        SetStayOnTop(FormTools, true);
        bar_.SetSaveButtonState(0);
        SaveInProgress = 0;
        return;
    }
    FlattenSessionPicture();
    WritePicture(answer.FileName);
    LastSavedFile = answer.FileName;
    Finish();
}

void TSaveFlow::BranchWithoutPanel() {
    Dlg_Save.InitialDir = ShellFolderPath(QStringLiteral("Personal"));
    const TSaveDialogAnswer answer = OutputDialogs().RunSaveDialog(FormTools, Dlg_Save);
    if (!answer.Accepted) return Return();
    Dlg_Save.FilterIndex = answer.FilterIndex;
    if (answer.FileName.isEmpty()) FocusIfPossible(FormTools);
    WritePicture(answer.FileName);
    Finish();
}

bool TSaveFlow::MayReplace(const QString& fileName) {
    // The question takes the activation; the tool must not stay armed
    // behind it.
    ToolArmed = 0;
    if (FormSmallTools) FormSmallTools->hide();
    if (Image_Front) Image_Front->SetCursor(crSizeAll);
    const QString text = FormatText(QptMessages().Text(QStringLiteral("M_Screen_ImgExitHint")),
                                    QFileInfo(fileName).fileName());
    return OutputDialogs().MessageBox(FormTools, text, QLatin1StringView(kTitle),
                                      TMessageButtons::YesNo) == TMessageAnswer::Yes;
}

void TSaveFlow::Return() {
    FocusIfPossible(FormTools);
    SetStayOnTop(FormTools, true);
    if (FormShowing(FormPinned)) SetStayOnTop(FormPinned, true);
    bar_.SetSaveButtonState(0);
    SaveInProgress = 0;
}

void TSaveFlow::WritePicture(const QString& path) {
    if (!Image_Front) return;
    if (!SaveNewBitmap(*Image_Front, path)) KeepInRecovery(*Image_Front, path);
}

void TSaveFlow::Finish() {
    SendUsageCode(QStringLiteral("a312"));
    WriteMainIni(QStringLiteral("TempPath"), QStringLiteral("ImgPath"), LastSavedFile);
    PostHostNotice(HostWindow, 2, 1);
    SaveInProgress = 0;
    EndSession();
}

}  // namespace qpt
