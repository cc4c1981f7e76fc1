#pragma once

namespace qpt {

// What the copy and save flows ask of the toolbar they start from. The
// toolbar answers; the flows reach the other forms through the session.
class TOutputBar {
public:
    virtual ~TOutputBar() = default;

    // When the style bar is up: it goes, the tool buttons lose their
    // selection and the tool toggles are cleared. The armed tool stays.
    virtual void CloseStyleBar() = 0;
    // Button states of the save and copy buttons (0 normal, 3 selected).
    virtual void SetSaveButtonState(int state) = 0;
    virtual void SetCopyButtonState(int state) = 0;
};

}  // namespace qpt
