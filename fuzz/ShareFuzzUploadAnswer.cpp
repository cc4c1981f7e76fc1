// The image host's answer comes from the network: any bytes must give a link
// or nothing, never a crash, and a link must be a plain web address that the
// share pages can carry as it stands.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string_view>

#include "output/share/ShareKind.h"
#include "output/share/UploadAnswer.h"

namespace {

void Check(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view answer(reinterpret_cast<const char*>(data), size);
    const QString link = qpt::ReadUploadLink(answer);
    if (link.isEmpty()) return 0;
    Check(link.startsWith(QLatin1String("http"), Qt::CaseInsensitive));
    for (QChar c : link)
        Check(!c.isSpace());
    // A link read back from a clean answer of its own is the same link.
    const nlohmann::json clean = {{"data", {{"link", link.toStdString()}}}};
    Check(qpt::ReadUploadLink(clean.dump()) == link);
    Check(qpt::BuildShareAddress(qpt::skImageHost, link) == link);
    Check(qpt::BuildShareAddress(qpt::skFacebook, link).endsWith(link));
    return 0;
}
