#include "imaging/IELayerStreamFormat.h"

#include <cmath>

#include "imaging/IEBitmap.h"

namespace qpt {

namespace {
[[noreturn]] void Corrupted() {
    throw EIEException(kLayerStreamCorrupted);
}
}  // namespace

void IECheckStream(const QDataStream& in) {
    if (in.status() != QDataStream::Ok) Corrupted();
}

double IEReadDouble(QDataStream& in, double low, double high) {
    double v = 0;
    in >> v;
    IECheckStream(in);
    if (!std::isfinite(v) || v < low || v > high) Corrupted();
    return v;
}

int32_t IEReadInt(QDataStream& in, int32_t low, int32_t high) {
    qint32 v = 0;
    in >> v;
    IECheckStream(in);
    if (v < low || v > high) Corrupted();
    return v;
}

uint8_t IEReadByte(QDataStream& in, uint8_t high) {
    quint8 v = 0;
    in >> v;
    IECheckStream(in);
    if (v > high) Corrupted();
    return v;
}

bool IEReadBool(QDataStream& in) {
    return IEReadByte(in, 1) != 0;
}

TColor IEReadColor(QDataStream& in) {
    quint32 v = 0;
    in >> v;
    IECheckStream(in);
    return v;
}

QString IEReadString(QDataStream& in) {
    QString s;
    in >> s;
    IECheckStream(in);
    return s;
}

}  // namespace qpt
