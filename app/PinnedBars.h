#pragma once

#include <QRect>
#include <QStringList>
#include <functional>

namespace qpt {

// What the pinned window asks of the floating bars and the small forms. The
// window tests each call before use, so that it works before the other forms
// exist; once all of them are made, every call must be set
// (MissingHooks), since an empty one would silently swallow what the window
// asks for.
struct TPinnedBars {
    // TFormTools
    std::function<bool()> ToolsVisible;
    std::function<void(const QRect& pinned)> UpdateBarLayout;
    std::function<void()> ShowTools;
    std::function<void()> HideTools;
    std::function<void()> InitPicSave;
    // Posted: the bar resets its buttons after the caller has returned.
    std::function<void()> ResetToolButtons;
    // TFormSmallTools
    std::function<bool()> SmallToolsVisible;
    std::function<void()> HideSmallTools;
    std::function<void()> RaiseSmallTools;
    // TFormSavePath
    std::function<bool()> SavePathVisible;
    std::function<void()> HideSavePath;
    std::function<void()> RaiseSavePath;
    // TFormMsg
    std::function<bool()> MsgVisible;

    bool ToolsExist() const { return bool(ShowTools); }
    bool SavePathExists() const { return bool(HideSavePath); }
    // The names of the calls that are still empty, in the order above.
    QStringList MissingHooks() const;

    static bool Ask(const std::function<bool()>& question) { return question && question(); }
    static void Call(const std::function<void()>& action) {
        if (action) action();
    }
};

}  // namespace qpt
