#include "skin/NameValueLines.h"

#include "support/NameValueList.h"

namespace qpt::NameValueLines {

QString NameOf(const QString& line) {
    QString name;
    TNameValueList::NameOf(line, &name);
    return name.trimmed();
}

QString ValueOf(const QString& line) {
    const qsizetype eq = line.indexOf('=');
    return eq < 0 ? QString() : line.mid(eq + 1).trimmed();
}

int IndexOfName(const QStringList& lines, const QString& name) {
    for (int i = 0; i < lines.size(); ++i)
        if (NameOf(lines[i]).compare(name, Qt::CaseInsensitive) == 0) return i;
    return -1;
}

std::optional<QString> Find(const QStringList& lines, const QString& name) {
    const int index = IndexOfName(lines, name);
    if (index < 0) return std::nullopt;
    return ValueOf(lines[index]);
}

void Put(QStringList& lines, const QString& name, const QString& value) {
    const int index = IndexOfName(lines, name);
    if (value.isEmpty()) {
        if (index >= 0) lines.removeAt(index);
    } else if (index >= 0) {
        lines[index] = name + '=' + value;
    } else {
        lines.append(name + '=' + value);
    }
}

QList<int> Numbers(const QString& text, int count) {
    const QStringList parts = text.split(',');
    QList<int> numbers(count, 0);
    for (int i = 0; i < count && i < parts.size(); ++i)
        numbers[i] = parts[i].trimmed().toInt();
    return numbers;
}

}  // namespace qpt::NameValueLines
