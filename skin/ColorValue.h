#pragma once

#include <QString>
#include <optional>

namespace qpt {

// Byte order of bare colour values in a skin file: "RGB" files write red
// first, "BGR" files write the stored 0x00BBGGRR layout.
enum class ColorOrder { RGB, BGR };

// A colour value of a skin ini line that is not a link: "#rrggbb", "$bbggrr",
// "r,g,b", or a bare number read by the order. Eight hex digits carry alpha in
// the top byte. Nothing for text that is none of these.
std::optional<quint32> ParseColorValue(const QString& text, ColorOrder order);

// The name inside "[name]" (the closing bracket may be missing); nothing when
// the text is no link.
std::optional<QString> ColorLinkTarget(const QString& text);

}  // namespace qpt
