#pragma once

#include <QString>
#include <array>
#include <functional>

namespace qpt {

// The host's four capture hot keys, read for completeness (the host registers
// them). A code is a shortcut as the framework gives it: modifier bits plus
// the key code, e.g. Alt+A is 0x8041.
class TTab_Hotkeys {
public:
    enum Slot { kArea, kFullScreen, kWindow, kLong, kCount };
    static constexpr quint16 kAltModifier = 0x8000;

    TTab_Hotkeys() { ResetDefaults(); }

    void ResetDefaults();
    static quint16 DefaultCode(int slot);
    static QString DefaultText(int slot);

    // Takes one hot key from its stored code: -1 means the default, 0 means
    // switched off; any other value is the code (cut to 16 bits) with the
    // text that `readText` yields. The text is read only in that last case.
    void Apply(int slot, int storedCode, const std::function<QString()>& readText);

    bool Changed = false;
    std::array<quint16, kCount> Codes{};  // area, full screen, window, long
    std::array<QString, kCount> Texts;
};

}  // namespace qpt
