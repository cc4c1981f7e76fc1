#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace qpt {

// Helpers for the "name=value" lines of a picture description, which is kept
// as plain text lines since it is compared and copied as such. Names follow
// the rule of TNameValueList (a line without '=' has none), trimmed, since
// a description may be written by hand; they compare without regard to case.
namespace NameValueLines {

QString NameOf(const QString& line);
QString ValueOf(const QString& line);
int IndexOfName(const QStringList& lines, const QString& name);
std::optional<QString> Find(const QStringList& lines, const QString& name);
// Replaces or adds the line; an empty value removes it.
void Put(QStringList& lines, const QString& name, const QString& value);
// Comma-separated integers; missing or unreadable parts are 0.
QList<int> Numbers(const QString& text, int count);

}  // namespace NameValueLines

}  // namespace qpt
