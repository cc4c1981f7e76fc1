#pragma once

#include <QDataStream>
#include <QString>

#include "imaging/IELayerTypes.h"

namespace qpt {

inline constexpr const char* kLayerStreamCorrupted = "Layer stream has been corrupted";
inline constexpr const char* kLayerStreamTooNew =
    "Unsupported layer stream version. Update software to newer version";

// Raises the corruption error when the stream ran short or failed.
void IECheckStream(const QDataStream& in);
// Reads a double and raises unless it is finite and within [low, high], so
// that no later rounding to an integer can overflow.
double IEReadDouble(QDataStream& in, double low, double high);
int32_t IEReadInt(QDataStream& in, int32_t low, int32_t high);
uint8_t IEReadByte(QDataStream& in, uint8_t high);
bool IEReadBool(QDataStream& in);
TColor IEReadColor(QDataStream& in);
QString IEReadString(QDataStream& in);

// Positions and sizes further out than this are no picture's.
inline constexpr double kMaxCoordinate = 1e7;

}  // namespace qpt
