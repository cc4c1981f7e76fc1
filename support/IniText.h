#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace qpt {

class TNameValueList;

// The text of an ini file. Its encoding is told by the byte-order mark
// (UTF-8, UTF-16 LE or BE); without one, as other programs write it, UTF-16
// shows by its zero bytes, valid UTF-8 is UTF-8 and anything else is 8-bit
// text, read as Latin-1. `faithful` (when given) is false when the bytes do
// not decode cleanly in the encoding found (broken sequences, a cut
// character, zero characters): such a text must never be written back.
QString DecodeIniText(const QByteArray& bytes, bool* faithful = nullptr);

// Every save is UTF-16 LE with a byte-order mark, whatever was read.
QByteArray EncodeIniText(const QStringList& lines);

// Trims control characters and blanks at both ends.
QString TrimIniLine(const QString& line);

// Parses the lines of `text` into `sections` (cleared first): each section
// name carries its own list of name=value lines, with the case sensitivity
// of `sections`. Lines before the first section are dropped.
void ParseIniText(const QString& text, TNameValueList& sections);

}  // namespace qpt
