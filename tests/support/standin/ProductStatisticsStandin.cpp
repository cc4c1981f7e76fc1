// Test double of the optional usage-statistics library. It exports the same
// entry points and appends one line per call to the file named by
// QPT_STAT_STANDIN_LOG, so that a test can read back what was reported.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::string ToUtf8(const char16_t* text) {
    std::string out;
    for (; text && *text; ++text) {
        const char16_t c = *text;
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | (c >> 12));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

void Append(const std::string& line) {
    const char* path = std::getenv("QPT_STAT_STANDIN_LOG");
    if (!path) return;
    if (std::FILE* f = std::fopen(path, "a")) {
        std::fprintf(f, "%s\n", line.c_str());
        std::fclose(f);
    }
}

}  // namespace

extern "C" {

void SetStatParam(const char16_t* product, const char16_t* version, const char16_t* language,
                  const char16_t* url) {
    Append("SetStatParam " + ToUtf8(product) + " " + ToUtf8(version) + " " + ToUtf8(language) +
           " " + ToUtf8(url));
}

int32_t DoStatistic(const char16_t* product, const char16_t* code, int32_t value, int32_t, int32_t,
                    int32_t) {
    Append("DoStatistic " + ToUtf8(product) + " " + ToUtf8(code) + " " + std::to_string(value));
    return 1;
}

// Looked up by the wrapper, never called by the program.
void SetStatParam2() {}
void SetCachePath() {}
void DoStatistic2() {}
void PostLocalCache() {}
void PostLocalCache2() {}
void ClearCacheByApp() {}
void HttpPostContent() {}
}
