#pragma once

#include <QByteArray>
#include <QString>
#include <ostream>

// Readable failure messages for Qt strings in GoogleTest assertions.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
inline void PrintTo(const QByteArray& b, std::ostream* os) {
    *os << "bytes[" << b.size() << "] \"" << b.toStdString() << '"';
}
