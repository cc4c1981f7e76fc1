#pragma once

#include <curl/curl.h>

namespace qpt {

// The transfer library's calls. The library and the two dozen it needs in
// turn are loaded when the first picture is shared: linked with the
// program, they were mapped and relocated at every start, before the
// picture could show.
struct TCurlCalls {
    decltype(&curl_easy_init) easy_init;
    decltype(&curl_easy_cleanup) easy_cleanup;
    decltype(&curl_easy_setopt) easy_setopt;
    decltype(&curl_easy_perform) easy_perform;
    decltype(&curl_easy_getinfo) easy_getinfo;
    decltype(&curl_easy_strerror) easy_strerror;
    decltype(&curl_slist_append) slist_append;
    decltype(&curl_slist_free_all) slist_free_all;
};

// Loads the library once, on whichever thread asks first, and sets it up;
// nullptr when it is missing or lacks a call.
const TCurlCalls* CurlCalls();

}  // namespace qpt
