#include "support/Language.h"

#include <QFileInfo>
#include <QWidget>

#include "support/ComponentTexts.h"
#include "support/ExtIniFile.h"
#include "support/Paths.h"

namespace qpt {

namespace {

// A pipe or a device in the language folder counts as missing, so that the
// fallback to English still applies.
bool IsLanguageFile(const QString& path) {
    return !path.isEmpty() && QFileInfo(path).isFile();
}

}  // namespace

TLanguage::TLanguage(const QString& prefix, const QString& languagePath)
    : prefix_(prefix),
      languagePath_(languagePath.isEmpty() ? ProgramFolder() + "Language" : languagePath),
      currentIni_(std::make_unique<TExtIniFile>()) {
    const QString english = FileOf(QStringLiteral("English"));
    if (IsLanguageFile(english)) englishIni_ = std::make_unique<TExtIniFile>(english);
}

TLanguage::~TLanguage() = default;

QString TLanguage::CurrentLanguageName() {
    const TExtIniFile ini(SettingsFolder() + "Main.ini");
    return ini.ReadString(QStringLiteral("Main"), QStringLiteral("Language"),
                          QStringLiteral("English"));
}

// A name that reaches outside the language folder counts as missing.
QString TLanguage::FileOf(const QString& name) const {
    if (name.isEmpty() || name.contains('/')) return {};
    return languagePath_ + '/' + name + ".lng";
}

void TLanguage::SetLanguage(const QString& name) {
    QString chosen = name;
    if (!IsLanguageFile(FileOf(chosen))) chosen = QStringLiteral("English");
    const QString file = FileOf(chosen);
    if (!IsLanguageFile(file)) return;
    languageName_ = chosen;
    displayName_.clear();
    currentIni_ = std::make_unique<TExtIniFile>(file);
    displayName_ = currentIni_->ReadString(QStringLiteral("Main"), QStringLiteral("DisplayName"),
                                           languageName_);
    strings_.clear();
    loadedSections_ = prefix_ + "_M";
    AppendStrings(currentIni_->ReadSectionValues(loadedSections_));
}

void TLanguage::AddSection(const QString& name) {
    const QString section = name + "_M";
    if (loadedSections_.toUpper().contains(section.toUpper())) return;
    AppendStrings(currentIni_->ReadSectionValues(section));
    loadedSections_ = section + '|' + loadedSections_;
}

// Lines without "=" carry no key; a repeated key keeps its first value.
void TLanguage::AppendStrings(const QStringList& lines) {
    for (const QString& line : lines) {
        const qsizetype eq = line.indexOf('=');
        if (eq < 0) continue;
        const QString key = line.left(eq).toUpper();
        if (!strings_.contains(key)) strings_.insert(key, line.mid(eq + 1));
    }
}

QString TLanguage::GetText(const QString& key, const QString& defaultText) const {
    return strings_.value(key.toUpper(), defaultText);
}

QString TLanguage::GetIniText(const QString& section, const QString& key,
                              const QString& defaultText) const {
    QString text = currentIni_->ReadString(section, key, {});
    if (text.isEmpty() && englishIni_) text = englishIni_->ReadString(section, key, {});
    return text.isEmpty() ? defaultText : text;
}

QString TLanguage::ReadCurrent(const QString& section, const QString& key,
                               const QString& defaultText) const {
    return currentIni_->ReadString(section, key, defaultText);
}

void TLanguage::TranslateForm(QWidget* form) const {
    if (!form || form->objectName().isEmpty()) return;
    const QString section = prefix_ + '_' + form->objectName();
    ApplyComponentTexts(form, [&](const QString& key, const QString& current) {
        return ShownText(GetIniText(section, key, current));
    });
}

QString ShownText(const QString& text) {
    QString shown = text;
    return shown.replace(QLatin1StringView("%%"), QLatin1StringView("%"));
}

namespace {
std::unique_ptr<TLanguage>& Instance() {
    static std::unique_ptr<TLanguage> instance;
    return instance;
}
}  // namespace

void CreateLanguage(const QString& prefix, const QString& languagePath) {
    Instance() = std::make_unique<TLanguage>(prefix, languagePath);
    Instance()->SetLanguage(TLanguage::CurrentLanguageName());
}

TLanguage* Language() {
    return Instance().get();
}

}  // namespace qpt
