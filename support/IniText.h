#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace qpt {

class TNameValueList;

// The text of an ini file: its encoding is told by the byte-order mark
// (UTF-8, UTF-16 LE or BE); without one the bytes are UTF-8.
QString DecodeIniText(const QByteArray& bytes);

// Every save is UTF-16 LE with a byte-order mark, whatever was read.
QByteArray EncodeIniText(const QStringList& lines);

// Trims control characters and blanks at both ends.
QString TrimIniLine(const QString& line);

// Parses the lines of `text` into `sections` (cleared first): each section
// name carries its own list of name=value lines, with the case sensitivity
// of `sections`. Lines before the first section are dropped.
void ParseIniText(const QString& text, TNameValueList& sections);

}  // namespace qpt
