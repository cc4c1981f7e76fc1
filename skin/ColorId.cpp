#include "skin/ColorId.h"

#include <QtEndian>
#include <array>

namespace qpt {

namespace {

constexpr std::array<quint32, 256> MakeCrcTable() {
    std::array<quint32, 256> table{};
    for (quint32 n = 0; n < 256; ++n) {
        quint32 c = n;
        for (int k = 0; k < 8; ++k)
            c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        table[n] = c;
    }
    return table;
}

constexpr std::array<quint32, 256> kCrcTable = MakeCrcTable();

}  // namespace

quint32 Crc32(QByteArrayView bytes) {
    quint32 crc = 0xFFFFFFFFu;
    for (const char byte : bytes)
        crc = kCrcTable[(crc ^ quint8(byte)) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

quint32 ColorId(const QString& name) {
    const QString lower = name.toLower();
    QByteArray bytes(lower.size() * 2, Qt::Uninitialized);
    qToLittleEndian<quint16>(lower.utf16(), lower.size(), bytes.data());
    return Crc32(bytes) | 0xFF000000u;
}

}  // namespace qpt
