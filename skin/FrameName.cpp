#include "skin/FrameName.h"

namespace qpt {

QString FrameName(const QString& pattern, int frame) {
    for (qsizetype at = pattern.indexOf('%'); at >= 0; at = pattern.indexOf('%', at + 1)) {
        qsizetype end = at + 1;
        const bool zero = end < pattern.size() && pattern[end] == '0';
        while (end < pattern.size() && pattern[end].isDigit())
            ++end;
        if (end >= pattern.size() || pattern[end] != 'd') continue;
        const int width = qBound(0, pattern.mid(at + 1, end - at - 1).toInt(), 16);
        const QString number = QString::number(frame).rightJustified(width, zero ? '0' : ' ');
        return pattern.left(at) + number + pattern.mid(end + 1);
    }
    return pattern;
}

}  // namespace qpt
