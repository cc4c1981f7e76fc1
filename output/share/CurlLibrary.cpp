#include "output/share/CurlLibrary.h"

#include <dlfcn.h>

#include <optional>

namespace qpt {

namespace {

template <typename T>
bool Find(void* library, const char* name, T& call) {
    call = reinterpret_cast<T>(::dlsym(library, name));
    return call != nullptr;
}

std::optional<TCurlCalls> Load() {
    // The name the library has carried since its interface last broke.
    void* library = ::dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
    if (!library) return std::nullopt;
    TCurlCalls c{};
    decltype(&curl_global_init) globalInit = nullptr;
    const bool complete = Find(library, "curl_global_init", globalInit) &&
                          Find(library, "curl_easy_init", c.easy_init) &&
                          Find(library, "curl_easy_cleanup", c.easy_cleanup) &&
                          Find(library, "curl_easy_setopt", c.easy_setopt) &&
                          Find(library, "curl_easy_perform", c.easy_perform) &&
                          Find(library, "curl_easy_getinfo", c.easy_getinfo) &&
                          Find(library, "curl_easy_strerror", c.easy_strerror) &&
                          Find(library, "curl_slist_append", c.slist_append) &&
                          Find(library, "curl_slist_free_all", c.slist_free_all);
    // The library stays loaded for the rest of the process, as a linked one
    // would.
    if (!complete || globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK) return std::nullopt;
    return c;
}

}  // namespace

const TCurlCalls* CurlCalls() {
    static const std::optional<TCurlCalls> calls = Load();
    return calls ? &*calls : nullptr;
}

}  // namespace qpt
