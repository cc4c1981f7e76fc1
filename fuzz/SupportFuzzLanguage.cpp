// Language files come from translators and users: any bytes must load
// without harm and answer lookups.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

#include "support/Language.h"
#include "support/QptMessages.h"

namespace {

const QTemporaryDir& Folder() {
    static const QTemporaryDir dir;
    return dir;
}

void WriteLanguageFile(const QString& name, const uint8_t* data, size_t size) {
    QFile file(Folder().path() + '/' + name + ".lng");
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return;
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // The same bytes serve as English and as the chosen language, so that
    // both levels of the fallback see them.
    WriteLanguageFile(QStringLiteral("English"), data, size);
    WriteLanguageFile(QStringLiteral("Fuzz"), data, size);
    qpt::TLanguage language(QStringLiteral("QPT"), Folder().path());
    language.SetLanguage(QStringLiteral("Fuzz"));
    language.AddSection(QStringLiteral("QPT_Main"));
    language.AddSection(QStringLiteral("QPT_Main"));
    const QString head = QString::fromUtf8(reinterpret_cast<const char*>(data), size).left(16);
    language.AddSection(head);
    qpt::TQptMessages messages;
    messages.Fetch(language);
    (void)language.GetText(head, QStringLiteral("d"));
    (void)language.GetIniText(QStringLiteral("QPT_FormTools"), head, QStringLiteral("d"));
    (void)language.ReadCurrent(head, head, QStringLiteral("d"));
    (void)qpt::FormatText(messages.Text(QStringLiteral("M_Screen_ExitTipCap")), head);
    return 0;
}
