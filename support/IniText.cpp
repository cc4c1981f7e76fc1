#include "support/IniText.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringView>

#include "support/NameValueList.h"

namespace qpt {
namespace {

using Encoding = QStringConverter::Encoding;

bool ByMark(const QByteArray& bytes, Encoding* encoding, qsizetype* markSize) {
    static const struct {
        const char* Mark;
        qsizetype Size;
        Encoding Found;
    } kMarks[] = {{"\xEF\xBB\xBF", 3, QStringConverter::Utf8},
                  {"\xFF\xFE", 2, QStringConverter::Utf16LE},
                  {"\xFE\xFF", 2, QStringConverter::Utf16BE}};
    for (const auto& m : kMarks) {
        if (!bytes.startsWith(QByteArrayView(m.Mark, m.Size))) continue;
        *encoding = m.Found;
        *markSize = m.Size;
        return true;
    }
    return false;
}

// Text in the Latin script written as UTF-16 has a zero in nearly every
// other byte, and (almost) none in the bytes between. Zeros that follow no
// such pattern are no text of any encoding; the zero characters they become
// mark the decoding as unfaithful.
bool LooksLikeUtf16(const QByteArray& bytes, Encoding* encoding) {
    qsizetype zeros[2] = {0, 0};
    for (qsizetype i = 0; i < bytes.size(); ++i)
        if (bytes[i] == '\0') ++zeros[i & 1];
    const bool littleEndian = zeros[1] >= zeros[0];
    const qsizetype high = zeros[littleEndian ? 1 : 0], low = zeros[littleEndian ? 0 : 1];
    if (bytes.size() % 2 != 0 || high * 4 < bytes.size() / 2 || low * 4 >= high) return false;
    *encoding = littleEndian ? QStringConverter::Utf16LE : QStringConverter::Utf16BE;
    return true;
}

// The UTF-16 decoder passes surrogates through unchecked.
bool HasLoneSurrogate(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isLowSurrogate()) return true;
        if (!text[i].isHighSurrogate()) continue;
        if (i + 1 == text.size() || !text[i + 1].isLowSurrogate()) return true;
        ++i;
    }
    return false;
}

QString Decode(QByteArrayView bytes, Encoding encoding, bool* clean) {
    // Stateless, so that a sequence cut at the end counts as an error too;
    // a mark after the one taken off is content.
    QStringDecoder decoder(
        encoding, QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    const bool wide =
        encoding == QStringConverter::Utf16LE || encoding == QStringConverter::Utf16BE;
    *clean = !decoder.hasError() && !(wide && bytes.size() % 2 != 0) && !text.contains(QChar(0)) &&
             !HasLoneSurrogate(text);
    return text;
}

bool IsBlank(QChar c) {
    return c.unicode() <= u' ';
}

// One line of a section's content: name and value trimmed around the first
// '=', or the line as it stands when there is none.
QString SectionLine(const QString& line) {
    const qsizetype eq = line.indexOf(u'=');
    if (eq < 0) return line;
    return TrimIniLine(line.left(eq)) + u'=' + TrimIniLine(line.mid(eq + 1));
}

}  // namespace

QString DecodeIniText(const QByteArray& bytes, bool* faithful) {
    Encoding encoding = QStringConverter::Utf8;
    qsizetype markSize = 0;
    bool clean = true;
    QString text;
    if (ByMark(bytes, &encoding, &markSize) || LooksLikeUtf16(bytes, &encoding)) {
        text = Decode(QByteArrayView(bytes).sliced(markSize), encoding, &clean);
    } else {
        text = Decode(bytes, QStringConverter::Utf8, &clean);
        // Not UTF-8: the 8-bit text of an older writer, which Latin-1 reads
        // byte for byte, so nothing is lost.
        if (!clean) text = Decode(bytes, QStringConverter::Latin1, &clean);
    }
    if (faithful) *faithful = clean;
    return text;
}

QByteArray EncodeIniText(const QStringList& lines) {
    QString text;
    for (const QString& line : lines) {
        text += line;
        text += u'\n';
    }
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    QByteArray bytes = encoder.encode(text);
    if (bytes.isEmpty()) bytes = QByteArray("\xFF\xFE", 2);
    return bytes;
}

QString TrimIniLine(const QString& line) {
    qsizetype begin = 0, end = line.size();
    while (begin < end && IsBlank(line[begin]))
        ++begin;
    while (end > begin && IsBlank(line[end - 1]))
        --end;
    return line.mid(begin, end - begin);
}

void ParseIniText(const QString& text, TNameValueList& sections) {
    sections.Clear();
    TNameValueList* current = nullptr;
    qsizetype pos = 0;
    const qsizetype size = text.size();
    while (pos < size) {
        qsizetype end = pos;
        while (end < size && text[end] != u'\r' && text[end] != u'\n')
            ++end;
        const QString line = TrimIniLine(text.mid(pos, end - pos));
        pos = end + ((end + 1 < size && text[end] == u'\r' && text[end + 1] == u'\n') ? 2 : 1);
        if (line.isEmpty() || line.startsWith(u';')) continue;
        if (line.startsWith(u'[') && line.endsWith(u']') && line.size() >= 2) {
            auto lines = std::make_unique<TNameValueList>(sections.CaseSensitive());
            current = lines.get();
            sections.Add(TrimIniLine(line.mid(1, line.size() - 2)), std::move(lines));
        } else if (current) {
            current->Add(SectionLine(line));
        }
    }
}

}  // namespace qpt
