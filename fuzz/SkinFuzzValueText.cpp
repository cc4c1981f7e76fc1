// Any bytes as the right side of a skin line: the text form must read to a
// value that writes back to text reading to the same value, and setting it on
// published properties of every type must be quietly refused or applied.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "skin/DesignRectProperty.h"
#include "skin/RdFont.h"
#include "skin/SkinReader.h"
#include "skin/SkinValue.h"

using namespace qpt;

namespace {

void CheckRoundTrip(const QString& text) {
    const std::optional<TSkinValue> value = TSkinValue::FromText(text);
    if (!value) return;
    const QString written = value->ToText();
    const std::optional<TSkinValue> again = TSkinValue::FromText(written);
    if (!again || !(*again == *value)) std::abort();
}

// Colour properties are left out: every new colour name is kept for good, so
// endless random names would only measure the fuzzer's memory.
void SetEverywhere(const QString& text) {
    TRdFont font;
    TDesignRectProperty rect;
    for (const char* path :
         {"Height", "Name", "Style", "Antialiased", "Alpha", "AllSkin.IgnoreValues",
          "AllSkin.Draw.DrawAlpha", "FontHeight", "No.Such.Path"})
        TSkinReader::SetPropertyText(&font, QLatin1String(path), text);
    TSkinReader::SetPropertyText(&rect, QStringLiteral("StretchMode"), text);
    TSkinReader::SetPropertyText(&rect, QStringLiteral("Left"), text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    CheckRoundTrip(QString::fromUtf8(bytes));
    CheckRoundTrip(QString::fromLatin1(bytes));
    SetEverywhere(QString::fromUtf8(bytes));
    return 0;
}
