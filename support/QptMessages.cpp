#include "support/QptMessages.h"

#include <array>

#include "support/Language.h"

namespace qpt {

namespace {

struct TMessageRow {
    const char* key;
    const char* english;
};

// In the order they are fetched. Some keys belong to the host's vocabulary
// and are shown nowhere here; the keys stand exactly as the language files
// spell them, blank and misspelling included.
constexpr std::array<TMessageRow, 53> kMessageRows = {{
    {"M_Main_Capture", "Capture"},
    {"M_Main_CaptureHint", "Press %s to start to capture"},
    {"M_Main_WinScreen", "Capture the active window"},
    {"M_Main_FullScreen", "Capture full screen"},
    {"M_Main_RecordScreen", "Record screen"},
    {"M_Main_Menu", "Menu"},
    {"M_Main_MiniNew", "Minimize to system tray"},
    {"M_MenuOption_Set", "Settings..."},
    {"M_MenuOption_Feedback", "Feedback"},
    {"M_MenuOption_Faq", "FAQs"},
    {"M_MenuOption_OnPage", "Online Page"},
    {"M_MenuOption_UserM", "User Manual"},
    {"M_MenuOption_About", "About"},
    {"M_Share_Fackbook", "Facebook"},
    {"M_Share_Twitter", "Twitter"},
    {"M_Share_Pinterest", "Pinterest"},
    {"M_Share_Imgur", "Imgur"},
    {"M_Tray_Open", "Open"},
    {"M_Tray_Set", "Settings"},
    {"M_Tray_Exit", "Exit"},
    {"M_Tray_CaptureHint", "Press %s or click the icon here to start to capture"},
    {"M_Tray_ShortNoneHint ", "Click the icon here to start to capture"},
    {"M_Screen_Rect", "Rectangle"},
    {"M_Screen_Oval", "Oval"},
    {"M_Screen_Text", "Text"},
    {"M_Screen_Brush", "Paintbrush"},
    {"M_Screen_ReturnNew", "Restore (Ctrl+Z)"},
    {"M_Screen_Exit", "Exit screenshot"},
    {"M_Screen_Pin", "Pin to desktop"},
    {"M_Screen_Share", "Share to..."},
    {"M_Screen_Copy", "Copy to clipboard"},
    {"M_Screen_Save", "Save"},
    {"M_Screen_Always", "Always save screenshots to:"},
    {"M_Screen_Browse", "Browse..."},
    {"M_Screen_TipInfo",
     "The screenshot has been saved to clipboard. You can use Ctrl + V to paste."},
    {"M_Screen_Size", "Size:"},
    {"M_PathWrongDesc", "Screenshots cannot be saved to this disk. Please select another one."},
    {"M_Close", "Close"},
    {"M_TipShow", "Don't show this message again"},
    {"M_OK", "OK"},
    {"M_BaHint_Copy", "Screenshot has been saved to the clipboard."},
    {"M_BaHint_Save", "Screenshot has been saved to:"},
    {"M_ShareWinTitle", "Uploading image..."},
    {"M_Pin_ZoomIn", "Zoom In"},
    {"M_Pin_ZoomOut", "Zoom Out"},
    {"M_Screen_ImgExitHint", "%s already exists. Do you want to replace it?"},
    {"M_Screen_SearchTitle", "Searching image..."},
    {"M_Screen_ExitTipCap", "Press %s again to exit this screenshot."},
    {"M_Screen_Line", "Line"},
    {"M_Screen_Arrow", "Arrow"},
    {"M_Screen_Pixelation", "Pixelation"},
    {"M_Screen_GoogleSearch", "Search similar images on Google"},
    {"M_Screen_PixelSize", "Pixel size:"},
}};

}  // namespace

TQptMessages::TQptMessages() {
    for (const TMessageRow& row : kMessageRows)
        texts_.insert(QLatin1StringView(row.key), QString::fromUtf8(row.english));
}

void TQptMessages::Fetch(const TLanguage& language) {
    for (const TMessageRow& row : kMessageRows) {
        const QString key = QLatin1StringView(row.key);
        texts_.insert(key, ShownText(language.GetText(key, QString::fromUtf8(row.english))));
    }
}

QString TQptMessages::Text(const QString& key) const {
    return texts_.value(key);
}

QStringList TQptMessages::Keys() {
    QStringList keys;
    for (const TMessageRow& row : kMessageRows)
        keys << QLatin1StringView(row.key);
    return keys;
}

TQptMessages& QptMessages() {
    static TQptMessages instance;
    return instance;
}

void FetchMessageTexts(const TLanguage& language) {
    QptMessages().Fetch(language);
}

QString FormatText(const QString& text, const QString& argument) {
    const qsizetype at = text.indexOf(QLatin1StringView("%s"));
    if (at < 0) return text;
    return text.left(at) + argument + text.mid(at + 2);
}

}  // namespace qpt
