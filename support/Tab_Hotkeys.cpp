#include "support/Tab_Hotkeys.h"

namespace qpt {
namespace {
constexpr char kDefaultKeys[TTab_Hotkeys::kCount] = {'A', 'S', 'W', 'D'};

bool ValidSlot(int slot) {
    return slot >= 0 && slot < TTab_Hotkeys::kCount;
}
}  // namespace

void TTab_Hotkeys::ResetDefaults() {
    for (int slot = 0; slot < kCount; ++slot) {
        Codes[slot] = DefaultCode(slot);
        Texts[slot] = DefaultText(slot);
    }
}

quint16 TTab_Hotkeys::DefaultCode(int slot) {
    return ValidSlot(slot) ? quint16(kAltModifier | quint16(kDefaultKeys[slot])) : 0;
}

QString TTab_Hotkeys::DefaultText(int slot) {
    return ValidSlot(slot) ? QStringLiteral("Alt + ") + QChar(kDefaultKeys[slot]) : QString();
}

void TTab_Hotkeys::Apply(int slot, int storedCode, const std::function<QString()>& readText) {
    if (!ValidSlot(slot)) return;
    if (storedCode == -1) {
        Codes[slot] = DefaultCode(slot);
        Texts[slot] = DefaultText(slot);
    } else if (storedCode == 0) {
        Codes[slot] = 0;
        Texts[slot].clear();
    } else {
        Codes[slot] = quint16(storedCode);
        Texts[slot] = readText();
    }
}

}  // namespace qpt
