#include "tests/skin/SkinPackageFiles.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

namespace qpt::testing {
namespace {

QStringList readLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    QStringList lines;
    QTextStream in(&file);
    while (!in.atEnd())
        lines.append(in.readLine());
    return lines;
}

std::optional<QSize> parseSize(const QString& text) {
    static const QRegularExpression pattern("^(\\d+)x(\\d+)$");
    const auto match = pattern.match(text);
    if (!match.hasMatch()) return std::nullopt;
    return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

std::optional<unsigned> parseHex(const QString& digits) {
    static const QRegularExpression pattern("^([0-9A-Fa-f]{6}|[0-9A-Fa-f]{8})$");
    if (!pattern.match(digits).hasMatch()) return std::nullopt;
    const unsigned value = digits.toUInt(nullptr, 16);
    // Six digits carry no alpha: opaque.
    return digits.size() == 6 ? 0xFF000000u | value : value;
}

}  // namespace

SkinContents ReadSkinContents(const QString& path) {
    SkinContents contents;
    const QStringList lines = readLines(path);
    if (lines.isEmpty()) contents.problems.append("cannot read " + path);
    for (const QString& raw : lines) {
        const QStringList words = raw.simplified().split(' ', Qt::SkipEmptyParts);
        if (words.isEmpty() || words[0].startsWith('#')) continue;
        const auto size = words.size() >= 4 ? parseSize(words[2]) : std::nullopt;
        if (words[0] == "picture" && size)
            contents.pictures.append({words[1], *size});
        else if (words[0] == "colour" && words.size() == 2)
            contents.colours.append(words[1]);
        else if (words[0] == "class" && words.size() == 3)
            contents.classes.append({words[1], words[2]});
        else
            contents.problems.append(raw);
    }
    return contents;
}

std::optional<QString> IniSection::value(const QString& key) const {
    for (const auto& [name, text] : values)
        if (name.compare(key, Qt::CaseInsensitive) == 0) return text;
    return std::nullopt;
}

IniFile ReadIniFile(const QString& path) {
    IniFile ini;
    const QStringList lines = readLines(path);
    if (lines.isEmpty()) ini.problems.append("cannot read " + path);
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(';')) continue;
        if (line.startsWith('[') && line.endsWith(']')) {
            const QString name = line.mid(1, line.size() - 2);
            for (const IniSection& seen : ini.sections)
                if (seen.name.compare(name, Qt::CaseInsensitive) == 0)
                    ini.problems.append("repeated section " + line);
            ini.sections.append({name, {}});
        } else if (!ini.sections.isEmpty() && line.indexOf('=') > 0) {
            const qsizetype eq = line.indexOf('=');
            ini.sections.last().values.append(
                {line.left(eq).trimmed(), line.mid(eq + 1).trimmed()});
        } else {
            ini.problems.append(line);
        }
    }
    return ini;
}

std::optional<ColourValue> ParseColourValue(const QString& text) {
    if (text.startsWith('[') && text.endsWith(']') && text.size() > 2)
        return ColourLink{text.mid(1, text.size() - 2)};
    if (text.startsWith('#') || text.startsWith('$')) {
        if (const auto value = parseHex(text.mid(1))) return *value;
        return std::nullopt;
    }
    const QStringList parts = text.split(',');
    if (parts.size() == 3) {
        unsigned value = 0xFF000000u;
        for (int i = 0; i < 3; ++i) {
            bool ok = false;
            const unsigned part = parts[i].trimmed().toUInt(&ok);
            if (!ok || part > 255) return std::nullopt;
            value |= part << (16 - 8 * i);
        }
        return value;
    }
    if (const auto value = parseHex(text)) return *value;
    return std::nullopt;
}

}  // namespace qpt::testing
