#include "output/share/CurlLibrary.h"

#include "support/loader/SharedLibrary.h"

#include <optional>

namespace qpt {

namespace {

std::optional<TCurlCalls> Load() {
    // The name the library has carried since its interface last broke.
    const TSharedLibrary library("libcurl.so.4");
    TCurlCalls c{};
    decltype(&curl_global_init) globalInit = nullptr;
    const bool complete = library.Find("curl_global_init", globalInit) &&
                          library.Find("curl_easy_init", c.easy_init) &&
                          library.Find("curl_easy_cleanup", c.easy_cleanup) &&
                          library.Find("curl_easy_setopt", c.easy_setopt) &&
                          library.Find("curl_easy_perform", c.easy_perform) &&
                          library.Find("curl_easy_getinfo", c.easy_getinfo) &&
                          library.Find("curl_easy_strerror", c.easy_strerror) &&
                          library.Find("curl_slist_append", c.slist_append) &&
                          library.Find("curl_slist_free_all", c.slist_free_all);
    if (!complete || globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK) return std::nullopt;
    return c;
}

}  // namespace

const TCurlCalls* CurlCalls() {
    static const std::optional<TCurlCalls> calls = Load();
    return calls ? &*calls : nullptr;
}

}  // namespace qpt
