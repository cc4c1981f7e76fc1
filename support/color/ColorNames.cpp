#include "support/color/ColorNames.h"

#include <QGuiApplication>
#include <QPalette>
#include <array>

namespace qpt {

namespace {

constexpr TColor Sys(TColor index) {
    return clSystemColor | index;
}

constexpr std::array<StandardColor, 52> kStandard{{
    {u"clBlack", 0x000000},
    {u"clMaroon", 0x000080},
    {u"clGreen", 0x008000},
    {u"clOlive", 0x008080},
    {u"clNavy", 0x800000},
    {u"clPurple", 0x800080},
    {u"clTeal", 0x808000},
    {u"clGray", 0x808080},
    {u"clSilver", 0xC0C0C0},
    {u"clRed", 0x0000FF},
    {u"clLime", 0x00FF00},
    {u"clYellow", 0x00FFFF},
    {u"clBlue", 0xFF0000},
    {u"clFuchsia", 0xFF00FF},
    {u"clAqua", 0xFFFF00},
    {u"clWhite", 0xFFFFFF},
    {u"clMoneyGreen", 0xC0DCC0},
    {u"clSkyBlue", 0xF0CAA6},
    {u"clCream", 0xF0FBFF},
    {u"clMedGray", 0xA4A0A0},
    {u"clActiveBorder", Sys(10)},
    {u"clActiveCaption", Sys(2)},
    {u"clAppWorkSpace", Sys(12)},
    {u"clBackground", Sys(1)},
    {u"clBtnFace", Sys(15)},
    {u"clBtnHighlight", Sys(20)},
    {u"clBtnShadow", Sys(16)},
    {u"clBtnText", Sys(18)},
    {u"clCaptionText", Sys(9)},
    {u"clDefault", clDefault},
    {u"clGradientActiveCaption", Sys(27)},
    {u"clGradientInactiveCaption", Sys(28)},
    {u"clGrayText", Sys(17)},
    {u"clHighlight", Sys(13)},
    {u"clHighlightText", Sys(14)},
    {u"clHotLight", Sys(26)},
    {u"clInactiveBorder", Sys(11)},
    {u"clInactiveCaption", Sys(3)},
    {u"clInactiveCaptionText", Sys(19)},
    {u"clInfoBk", Sys(24)},
    {u"clInfoText", Sys(23)},
    {u"clMenu", Sys(4)},
    {u"clMenuBar", Sys(30)},
    {u"clMenuHighlight", Sys(29)},
    {u"clMenuText", Sys(7)},
    {u"clNone", clNone},
    {u"clScrollBar", Sys(0)},
    {u"cl3DDkShadow", Sys(21)},
    {u"cl3DLight", Sys(22)},
    {u"clWindow", Sys(5)},
    {u"clWindowFrame", Sys(6)},
    {u"clWindowText", Sys(8)},
}};

struct SystemEntry {
    TColor fallback;  // used without an application palette
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

constexpr auto kNoRole = QPalette::NoRole;
constexpr auto kActive = QPalette::Active;
constexpr auto kInactive = QPalette::Inactive;

const std::array<SystemEntry, 31> kSystem{{
    {0xC8C8C8, kActive, QPalette::Mid},                // scroll bar
    {0x000000, kActive, kNoRole},                      // desktop
    {0xD1B499, kActive, QPalette::Highlight},          // active caption
    {0xDBCDBF, kInactive, QPalette::Highlight},        // inactive caption
    {0xF0F0F0, kActive, QPalette::Window},             // menu
    {0xFFFFFF, kActive, QPalette::Base},               // window
    {0x646464, kActive, QPalette::Shadow},             // window frame
    {0x000000, kActive, QPalette::WindowText},         // menu text
    {0x000000, kActive, QPalette::Text},               // window text
    {0x000000, kActive, QPalette::HighlightedText},    // caption text
    {0xB4B4B4, kActive, QPalette::Mid},                // active border
    {0xFCF7F4, kInactive, QPalette::Mid},              // inactive border
    {0xABABAB, kActive, QPalette::Dark},               // application work space
    {0xD77800, kActive, QPalette::Highlight},          // highlight
    {0xFFFFFF, kActive, QPalette::HighlightedText},    // highlighted text
    {0xF0F0F0, kActive, QPalette::Button},             // button face
    {0xA0A0A0, kActive, QPalette::Dark},               // button shadow
    {0x6D6D6D, QPalette::Disabled, QPalette::Text},    // grey text
    {0x000000, kActive, QPalette::ButtonText},         // button text
    {0x000000, kInactive, QPalette::HighlightedText},  // inactive caption text
    {0xFFFFFF, kActive, QPalette::Light},              // button highlight
    {0x696969, kActive, QPalette::Shadow},             // 3D dark shadow
    {0xE3E3E3, kActive, QPalette::Midlight},           // 3D light
    {0x000000, kActive, QPalette::ToolTipText},        // info text
    {0xE1FFFF, kActive, QPalette::ToolTipBase},        // info background
    {0xB5B5B5, kActive, kNoRole},                      // unused slot
    {0xCC6600, kActive, QPalette::Link},               // hot light
    {0xEAD1B9, kActive, QPalette::Highlight},          // gradient of active caption
    {0xF2E4D7, kInactive, QPalette::Highlight},        // gradient of inactive caption
    {0xFF9933, kActive, QPalette::Highlight},          // menu highlight
    {0xF0F0F0, kActive, QPalette::Window},             // menu bar
}};

}  // namespace

std::span<const StandardColor> StandardColors() {
    return kStandard;
}

TColor SystemColor(int index) {
    if (index < 0 || index >= int(kSystem.size())) return 0;
    const SystemEntry& entry = kSystem[index];
    if (entry.role == kNoRole || !qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return entry.fallback;
    const QColor c = QGuiApplication::palette().color(entry.group, entry.role);
    return TColor(c.red()) | TColor(c.green()) << 8 | TColor(c.blue()) << 16;
}

TColor ResolveSystemColor(TColor value) {
    return IsSystemColor(value) ? SystemColor(int(value & 0xFF)) : value;
}

}  // namespace qpt
