#include "skin/BaseHash.h"

namespace qpt {

quint32 StringHashOf(const QString& key) {
    quint32 hash = 0;
    for (const QChar unit : key)
        hash = ((hash << 2) | (hash >> 30)) ^ unit.unicode();
    return hash;
}

}  // namespace qpt
