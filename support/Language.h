#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <memory>

class QObject;
class QWidget;

namespace qpt {

class TExtIniFile;

// Texts of the user interface from ".lng" files, with English as the fallback
// at two levels: components fall back to "English.lng" and then to their
// design text, messages to the English text given by the caller.
class TLanguage {
public:
    // The language folder defaults to "Language" in the program folder.
    explicit TLanguage(const QString& prefix, const QString& languagePath = {});
    ~TLanguage();
    TLanguage(const TLanguage&) = delete;
    TLanguage& operator=(const TLanguage&) = delete;

    // "Language" of section "Main" in the settings file, "English" when unset.
    static QString CurrentLanguageName();

    // An unknown language becomes English; with no English file either,
    // everything stays as it was and every text keeps its default.
    void SetLanguage(const QString& name);
    // Merges section Name + "_M" of the current file into the message table,
    // once per name.
    void AddSection(const QString& name);
    // Sets the texts of the form's named widgets and actions from section
    // Prefix + "_" + the form's object name; a form without a name is left
    // alone.
    void TranslateForm(QWidget* form) const;

    // From the merged message table; a key present with an empty value gives
    // the empty text.
    QString GetText(const QString& key, const QString& defaultText) const;
    // Current file, then the English file, then the default; empty values
    // fall through.
    QString GetIniText(const QString& section, const QString& key,
                       const QString& defaultText) const;
    QString ReadCurrent(const QString& section, const QString& key,
                        const QString& defaultText) const;

    const QString& Prefix() const { return prefix_; }
    const QString& LanguagePath() const { return languagePath_; }
    const QString& LanguageName() const { return languageName_; }
    const QString& DisplayName() const { return displayName_; }
    const QString& LoadedSections() const { return loadedSections_; }

private:
    QString FileOf(const QString& name) const;
    void AppendStrings(const QStringList& lines);

    QString prefix_;
    QString languagePath_;
    QString languageName_;
    QString displayName_;
    std::unique_ptr<TExtIniFile> currentIni_;
    std::unique_ptr<TExtIniFile> englishIni_;
    // The merged message table: first occurrence of a key wins, keys compare
    // without regard to case.
    QHash<QString, QString> strings_;
    QString loadedSections_;
};

// A text as the user sees it: "%%" stands for one "%", as the format routine
// shows it. A "%s" stays for the caller to fill.
QString ShownText(const QString& text);

// The process-wide table: made with the prefix and set to the language of
// the settings file. The language folder defaults to the program's.
void CreateLanguage(const QString& prefix, const QString& languagePath = {});
// Null until CreateLanguage has run.
TLanguage* Language();

}  // namespace qpt
