#include "support/MemIniFile.h"

#include <QIODevice>
#include <QRegularExpression>
#include <cerrno>

#include "support/IniFileIo.h"
#include "support/IniText.h"

namespace qpt {
namespace {

bool ParseInteger(const QString& text, int* value) {
    QString s = TrimIniLine(text);
    const bool negative = s.startsWith(u'-');
    if (negative || s.startsWith(u'+')) s.remove(0, 1);
    int base = 10;
    if (s.startsWith(u'$')) {
        s.remove(0, 1);
        base = 16;
    } else if (s.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
        s.remove(0, 2);
        base = 16;
    }
    if (s.isEmpty() || !(s[0].isDigit() || (base == 16 && s[0].isLetter()))) return false;
    bool ok = false;
    const qulonglong magnitude = s.toULongLong(&ok, base);
    // Hexadecimal spans all 32 bits (so "$FFFFFFFF" is -1), decimal the int range.
    const qulonglong limit =
        base == 16 ? 0xFFFFFFFFull : (negative ? 0x80000000ull : 0x7FFFFFFFull);
    if (!ok || magnitude > limit) return false;
    const auto bits = quint32(magnitude);
    *value = negative ? int(0u - bits) : int(bits);
    return true;
}

QString FormatDateTime(const QDateTime& value) {
    if (!value.isValid()) return {};
    const QDate d = value.date();
    const QTime t = value.time();
    return QString::asprintf("%02d/%02d/%04d %02d:%02d:%02d:%03d", d.month(), d.day(), d.year(),
                             t.hour(), t.minute(), t.second(), t.msec());
}

// Month first, then day; the time, its seconds and its milliseconds may be left out.
QDateTime ParseDateTime(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral(
        R"(^(\d{1,2})/(\d{1,2})/(\d{4})(?: +(\d{1,2}):(\d{1,2})(?::(\d{1,2})(?::(\d{1,3}))?)?)?$)"));
    const auto m = pattern.match(TrimIniLine(text));
    if (!m.hasMatch()) return {};
    const auto number = [&m](int group) { return m.captured(group).toInt(); };
    const QDate date(number(3), number(1), number(2));
    const QTime time(number(4), number(5), number(6), number(7));
    if (!date.isValid() || !time.isValid()) return {};
    return QDateTime(date, time);
}

}  // namespace

TMemIniFile::TMemIniFile(bool caseSensitive) : sections_(caseSensitive) {
    sections_.SetOnChange([this] { SectionsChanged(); });
}

TMemIniFile::~TMemIniFile() {
    sections_.SetOnChange(nullptr);
}

bool TMemIniFile::LoadFromFile(const QString& fileName) {
    QByteArray bytes;
    const int error = ReadIniBytes(fileName, &bytes);
    LoadFromStream(bytes);
    if (error != 0) lastError_ = error;
    return lastError_ == 0;
}

void TMemIniFile::LoadFromStream(const QByteArray& bytes) {
    bool faithful = true;
    ParseIniText(DecodeIniText(bytes, &faithful), sections_);
    lastError_ = faithful ? 0 : EILSEQ;
}

bool TMemIniFile::LoadFromStream(QIODevice& device) {
    if (!device.isOpen() && !device.open(QIODevice::ReadOnly)) {
        LoadFromStream(QByteArray());
        lastError_ = 1;
        return false;
    }
    LoadFromStream(device.readAll());
    return lastError_ == 0;
}

QString TMemIniFile::ReadString(const QString& section, const QString& key,
                                const QString& defaultValue) const {
    const TNameValueList* lines = FindSection(section);
    const int index = lines ? lines->IndexOfName(key) : -1;
    return index < 0 ? defaultValue : lines->ValueFromIndex(index);
}

void TMemIniFile::WriteString(const QString& section, const QString& key, const QString& value) {
    TNameValueList* lines = FindSection(section);
    PutValue(lines ? *lines : *SectionAt(AddSection(section)), key, value, false);
}

int TMemIniFile::ReadInteger(const QString& section, const QString& key, int defaultValue) const {
    int value = defaultValue;
    return ParseInteger(ReadString(section, key, QString()), &value) ? value : defaultValue;
}

void TMemIniFile::WriteInteger(const QString& section, const QString& key, int value) {
    WriteString(section, key, QString::number(value));
}

bool TMemIniFile::ReadBool(const QString& section, const QString& key, bool defaultValue) const {
    return ReadInteger(section, key, defaultValue ? 1 : 0) != 0;
}

void TMemIniFile::WriteBool(const QString& section, const QString& key, bool value) {
    WriteString(section, key, value ? QStringLiteral("1") : QStringLiteral("0"));
}

QDateTime TMemIniFile::ReadDateTime(const QString& section, const QString& key,
                                    const QDateTime& defaultValue) const {
    const QDateTime value = ParseDateTime(ReadString(section, key, QString()));
    return value.isValid() ? value : defaultValue;
}

void TMemIniFile::WriteDateTime(const QString& section, const QString& key,
                                const QDateTime& value) {
    WriteString(section, key, FormatDateTime(value));
}

void TMemIniFile::DeleteKey(const QString& section, const QString& key) {
    if (TNameValueList* lines = FindSection(section)) RemoveValue(*lines, key);
}

void TMemIniFile::EraseSection(const QString& section) {
    const int index = sections_.IndexOf(section);
    if (index >= 0) sections_.Delete(index);
}

QStringList TMemIniFile::ReadSection(const QString& section) const {
    QStringList names;
    if (const TNameValueList* lines = FindSection(section)) {
        for (int i = 0; i < lines->Count(); ++i)
            if (lines->Get(i).contains(u'=')) names.append(lines->Names(i));
    }
    return names;
}

QStringList TMemIniFile::ReadSections() const {
    return sections_.Strings();
}

QStringList TMemIniFile::ReadSectionValues(const QString& section) const {
    const TNameValueList* lines = FindSection(section);
    return lines ? lines->Strings() : QStringList();
}

bool TMemIniFile::SectionExists(const QString& section) const {
    return FindSection(section) != nullptr;
}

bool TMemIniFile::ValueExists(const QString& section, const QString& key) const {
    const TNameValueList* lines = FindSection(section);
    return lines && lines->IndexOfName(key) >= 0;
}

QStringList TMemIniFile::GetStrings() const {
    QStringList out;
    for (int i = 0; i < sections_.Count(); ++i) {
        out.append(u'[' + sections_.Get(i) + u']');
        out.append(sections_.Objects(i)->Strings());
        out.append(QString());
    }
    return out;
}

TNameValueList* TMemIniFile::FindSection(const QString& section) const {
    const int index = SectionIndex(section);
    return index < 0 ? nullptr : SectionAt(index);
}

int TMemIniFile::AddSection(const QString& section) {
    return sections_.Add(section, std::make_unique<TNameValueList>(CaseSensitive()));
}

void TMemIniFile::PutValue(TNameValueList& lines, const QString& key, const QString& value,
                           bool append) {
    const QString line = key + u'=' + value;
    const int index = append ? -1 : lines.IndexOfName(key);
    if (index < 0)
        lines.Add(line);
    else
        lines.Put(index, line);
}

bool TMemIniFile::RemoveValue(TNameValueList& lines, const QString& key) {
    const int index = lines.IndexOfName(key);
    if (index >= 0) lines.Delete(index);
    return index >= 0;
}

}  // namespace qpt
