#include "output/share/ShareKind.h"

#include <array>

namespace qpt {

namespace {

struct TShareTarget {
    const char* usageCode;
    const char* titleKey;
    // Empty: the link is the address.
    const char* addressPrefix;
};

constexpr std::array<TShareTarget, 5> kTargets{{
    {"a307", "M_ShareWinTitle", "https://www.facebook.com/sharer.php?u="},
    {"a308", "M_ShareWinTitle", "https://twitter.com/home?source=ZelkScreenshot&status="},
    {"a309", "M_ShareWinTitle", "https://www.pinterest.com/pin/create/button/?url="},
    {"a310", "M_ShareWinTitle", ""},
    {"", "M_Screen_SearchTitle", "https://www.google.com/searchbyimage?image_url="},
}};

const TShareTarget* Target(int kind) {
    if (kind < 0 || kind >= int(kTargets.size())) return nullptr;
    return &kTargets[std::size_t(kind)];
}

}  // namespace

QString ShareUsageCode(int kind) {
    const TShareTarget* target = Target(kind);
    return target ? QString::fromLatin1(target->usageCode) : QString();
}

QString ShareTitleKey(int kind) {
    const TShareTarget* target = Target(kind);
    return target ? QString::fromLatin1(target->titleKey) : QString();
}

QString BuildShareAddress(int kind, const QString& link) {
    const TShareTarget* target = Target(kind);
    if (!target) return {};
    return QString::fromLatin1(target->addressPrefix) + link;
}

}  // namespace qpt
