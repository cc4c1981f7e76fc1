#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace qpt {

class TLanguage;

// The program's own messages, not bound to any component. Each key starts
// with its built-in English text, so a program without language files still
// speaks English; Fetch replaces them with the texts of the current language.
class TQptMessages {
public:
    TQptMessages();

    // Takes each key from the language's merged message table, keeping the
    // English text for keys the table lacks.
    void Fetch(const TLanguage& language);

    // The text of a key such as "M_Screen_Copy"; empty for an unknown key.
    QString Text(const QString& key) const;

    // All keys in fetch order.
    static QStringList Keys();

private:
    QHash<QString, QString> texts_;
};

// The process-wide texts, filled once at start-up.
TQptMessages& QptMessages();
void FetchMessageTexts(const TLanguage& language);

// Puts the argument in place of the first "%s"; a text whose translator
// dropped the placeholder is used as it stands.
QString FormatText(const QString& text, const QString& argument);

}  // namespace qpt
