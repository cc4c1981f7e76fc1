#include "app/FormSequence.h"

#include "annotate/FormSmallTools.h"
#include "annotate/FormTools.h"
#include "app/FormPinned.h"
#include "app/HandOver.h"
#include "app/session/FirstPaint.h"
#include "app/session/SessionMessages.h"
#include "imaging/IEFileBuffer.h"
#include "output/FormMsg.h"
#include "output/FormSavePath.h"
#include "skin/RdSkinMenu.h"
#include "support/Paths.h"
#include "support/ProcessExit.h"

namespace qpt {

namespace {

void WireToolbar(TPinnedBars& bars, TFormTools* tools) {
    bars.ToolsVisible = [tools] { return tools->isVisible(); };
    bars.UpdateBarLayout = [tools](const QRect& pinned) { tools->UpdateBarLayout(pinned); };
    bars.ShowTools = [tools] { tools->ShowBar(); };
    bars.HideTools = [tools] { tools->hide(); };
    bars.ResetToolButtons = [tools] { PostSessionMessage(tools, kMsgResetToolButtons, 1, 0); };
    bars.InitPicSave = [tools] { tools->InitPicSave(); };
}

void WireSavePath(TPinnedBars& bars, TFormSavePath* panel) {
    bars.SavePathVisible = [panel] { return panel->isVisible(); };
    bars.HideSavePath = [panel] { panel->hide(); };
    bars.RaiseSavePath = [panel] { panel->raise(); };
}

void WireSmallTools(TPinnedBars& bars, TFormSmallTools* bar) {
    bars.SmallToolsVisible = [bar] { return bar->isVisible(); };
    bars.HideSmallTools = [bar] { bar->hide(); };
    // Back on top of the other stay-on-top windows, where it stands.
    bars.RaiseSmallTools = [bar] { bar->raise(); };
}

void WireMsg(TPinnedBars& bars, TFormMsg* msg) {
    bars.MsgVisible = [msg] { return msg->isVisible(); };
}

}  // namespace

TFormPinned* CreateSessionForms(const QStringList& arguments, const THandOver& handOver) {
    // The forms live as long as the process; it never ends through them. The
    // others belong to the pinned window, so that they go with it.
    auto* pinned = new TFormPinned(arguments);
    pinned->FormCreate(handOver);
    auto* tools = new TFormTools(pinned);
    tools->FormCreate();
    WireToolbar(pinned->Bars, tools);
    auto* savePath = new TFormSavePath(pinned);
    savePath->FormCreate();
    WireSavePath(pinned->Bars, savePath);
    savePath->OnBackgroundPress = [tools] { tools->Menu_Share->CloseMenu(); };
    auto* smallTools = new TFormSmallTools(pinned);
    smallTools->FormCreate();
    WireSmallTools(pinned->Bars, smallTools);
    auto* msg = new TFormMsg(pinned);
    msg->FormCreate();
    WireMsg(pinned->Bars, msg);
    return pinned;
}

bool CreateForms(const QStringList& arguments) {
    const THandOver handOver = ReadHandOver();
    if (!HandOverPictureExists(handOver)) ProcessExit(0);
    // Picture stores and undo steps go to the same private folder.
    IESetTempFolder(GetTempFolder());
    AwaitFirstPaint();
    CreateSessionForms(arguments, handOver)->show();
    return true;
}

}  // namespace qpt
