#pragma once

#include <QRect>
#include <functional>

namespace qpt {

// What the pinned window asks of the floating bars and the small forms. A
// call that is not set stands for a form that does not exist, which the
// window tests before every use; the bars fill these in as they are made.
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
    static bool Ask(const std::function<bool()>& question) { return question && question(); }
    static void Call(const std::function<void()>& action) {
        if (action) action();
    }
};

}  // namespace qpt
