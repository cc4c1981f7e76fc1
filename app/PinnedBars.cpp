#include "app/PinnedBars.h"

namespace qpt {

QStringList TPinnedBars::MissingHooks() const {
    const std::pair<const char*, bool> hooks[] = {
        {"ToolsVisible", bool(ToolsVisible)},
        {"UpdateBarLayout", bool(UpdateBarLayout)},
        {"ShowTools", bool(ShowTools)},
        {"HideTools", bool(HideTools)},
        {"InitPicSave", bool(InitPicSave)},
        {"ResetToolButtons", bool(ResetToolButtons)},
        {"SmallToolsVisible", bool(SmallToolsVisible)},
        {"HideSmallTools", bool(HideSmallTools)},
        {"RaiseSmallTools", bool(RaiseSmallTools)},
        {"SavePathVisible", bool(SavePathVisible)},
        {"HideSavePath", bool(HideSavePath)},
        {"RaiseSavePath", bool(RaiseSavePath)},
        {"MsgVisible", bool(MsgVisible)},
    };
    QStringList missing;
    for (const auto& [name, set] : hooks)
        if (!set) missing << QLatin1StringView(name);
    return missing;
}

}  // namespace qpt
