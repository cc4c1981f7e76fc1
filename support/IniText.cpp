#include "support/IniText.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringView>

#include "support/NameValueList.h"

namespace qpt {
namespace {

QStringConverter::Encoding DetectEncoding(const QByteArray& bytes, qsizetype* bomSize) {
    if (bytes.startsWith("\xEF\xBB\xBF")) {
        *bomSize = 3;
        return QStringConverter::Utf8;
    }
    if (bytes.startsWith("\xFF\xFE")) {
        *bomSize = 2;
        return QStringConverter::Utf16LE;
    }
    if (bytes.startsWith("\xFE\xFF")) {
        *bomSize = 2;
        return QStringConverter::Utf16BE;
    }
    *bomSize = 0;
    return QStringConverter::Utf8;
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

QString DecodeIniText(const QByteArray& bytes) {
    qsizetype bomSize = 0;
    const auto encoding = DetectEncoding(bytes, &bomSize);
    // The mark has been taken off; a second one is content.
    QStringDecoder decoder(encoding, QStringConverter::Flag::ConvertInitialBom);
    return decoder.decode(QByteArrayView(bytes).sliced(bomSize));
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
