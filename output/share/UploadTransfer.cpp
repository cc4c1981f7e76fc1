#include "output/share/UploadTransfer.h"

#include <algorithm>
#include <chrono>
#include <memory>

#include "output/share/CurlLibrary.h"

namespace qpt {

namespace {

using Clock = std::chrono::steady_clock;

// Each read of the body is one step of the progress, and each step pauses,
// so the chunks grow with the body: a large picture takes about as many
// steps as a middling one instead of pausing for many seconds.
constexpr qint64 kMinChunkBytes = 64 * 1024;
constexpr qint64 kMaxChunkBytes = 2 * 1024 * 1024;
constexpr qint64 kStepsPerBody = 32;

long ChunkBytes(qint64 bodySize) {
    return long(std::clamp(bodySize / kStepsPerBody, kMinChunkBytes, kMaxChunkBytes));
}

struct TTransferState {
    TTransferState(QIODevice& source, TTransferHooks& hooks, int readTimeoutMs)
        : source(source), hooks(hooks), readTimeoutMs(readTimeoutMs) {}

    QIODevice& source;
    TTransferHooks& hooks;
    int readTimeoutMs;
    std::string answer;
    std::int64_t work = 0;
    bool tooLong = false;
    bool timedOut = false;
    bool started = false;  // a byte has moved, so the read time-out runs
    Clock::time_point lastActivity = Clock::now();
    curl_off_t lastUp = 0;
    curl_off_t lastDown = 0;
};

bool Cancelled(const TTransferState& state) {
    return state.hooks.cancelled && state.hooks.cancelled();
}

void Worked(TTransferState& state, std::size_t bytes) {
    state.work += std::int64_t(bytes);
    state.started = true;
    if (state.hooks.onWork) state.hooks.onWork(state.work);
    state.lastActivity = Clock::now();
}

std::size_t ReadBody(char* buffer, std::size_t size, std::size_t count, void* user) {
    auto& state = *static_cast<TTransferState*>(user);
    if (Cancelled(state)) return CURL_READFUNC_ABORT;
    const qint64 read = state.source.read(buffer, qint64(size * count));
    if (read < 0) return CURL_READFUNC_ABORT;
    if (read > 0) Worked(state, std::size_t(read));
    return Cancelled(state) ? CURL_READFUNC_ABORT : std::size_t(read);
}

std::size_t WriteAnswer(char* data, std::size_t size, std::size_t count, void* user) {
    auto& state = *static_cast<TTransferState*>(user);
    const std::size_t bytes = size * count;
    if (Cancelled(state)) return 0;
    if (state.answer.size() + bytes > kMaxAnswerBytes) {
        state.tooLong = true;
        return 0;
    }
    state.answer.append(data, bytes);
    Worked(state, bytes);
    return Cancelled(state) ? 0 : bytes;
}

int CheckProgress(void* user, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
    auto& state = *static_cast<TTransferState*>(user);
    if (Cancelled(state)) return 1;
    const Clock::time_point now = Clock::now();
    if (up != state.lastUp || down != state.lastDown) {
        state.lastUp = up;
        state.lastDown = down;
        state.started = true;
        state.lastActivity = now;
    }
    if (state.started &&
        now - state.lastActivity > std::chrono::milliseconds(state.readTimeoutMs)) {
        state.timedOut = true;
        return 1;
    }
    return 0;
}

// Asked only once PostBody has found the library.
const TCurlCalls& Curl() {
    return *CurlCalls();
}

void SetTls(CURL* curl, const TTransferOptions& options) {
    Curl().easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "https");
    Curl().easy_setopt(curl, CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    Curl().easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, 1L);
    Curl().easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, 2L);
    if (!options.caFile.empty()) {
        Curl().easy_setopt(curl, CURLOPT_CAINFO, options.caFile.c_str());
        // The built-in folder of system CAs would be trusted beside the file.
        Curl().easy_setopt(curl, CURLOPT_CAPATH, nullptr);
    }
}

void SetRequest(CURL* curl, const TTransferOptions& options, TTransferState& state,
                curl_slist* headers) {
    Curl().easy_setopt(curl, CURLOPT_URL, options.url.c_str());
    Curl().easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    Curl().easy_setopt(curl, CURLOPT_POST, 1L);
    Curl().easy_setopt(curl, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(state.source.size()));
    Curl().easy_setopt(curl, CURLOPT_HTTPHEADER, headers);
    Curl().easy_setopt(curl, CURLOPT_USERAGENT, "QptPin");
    Curl().easy_setopt(curl, CURLOPT_UPLOAD_BUFFERSIZE, ChunkBytes(state.source.size()));
    Curl().easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, long(options.connectTimeoutMs));
    Curl().easy_setopt(curl, CURLOPT_READFUNCTION, ReadBody);
    Curl().easy_setopt(curl, CURLOPT_READDATA, &state);
    Curl().easy_setopt(curl, CURLOPT_WRITEFUNCTION, WriteAnswer);
    Curl().easy_setopt(curl, CURLOPT_WRITEDATA, &state);
    Curl().easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, CheckProgress);
    Curl().easy_setopt(curl, CURLOPT_XFERINFODATA, &state);
    Curl().easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
}

std::string FailureText(CURLcode code, const TTransferState& state, const char* detail) {
    if (state.timedOut) return "read time-out";
    if (state.tooLong) return "answer too long";
    if (Cancelled(state)) return "cancelled";
    return *detail ? std::string(detail) : std::string(Curl().easy_strerror(code));
}

}  // namespace

TTransferResult PostBody(const TTransferOptions& options, QIODevice& source,
                         TTransferHooks& hooks) {
    TTransferResult result;
    if (!CurlCalls()) {
        result.error = "the transfer library libcurl.so.4 cannot be loaded";
        return result;
    }
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(Curl().easy_init(),
                                                             Curl().easy_cleanup);
    if (!curl) {
        result.error = "no transfer handle";
        return result;
    }
    const std::string contentType = "Content-Type: " + options.contentType;
    curl_slist* headers = Curl().slist_append(nullptr, contentType.c_str());
    // Without this, a large body would wait for a "100 Continue" first.
    headers = Curl().slist_append(headers, "Expect:");
    std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headerList(headers,
                                                                           Curl().slist_free_all);
    TTransferState state(source, hooks, options.readTimeoutMs);
    char detail[CURL_ERROR_SIZE] = {};
    Curl().easy_setopt(curl.get(), CURLOPT_ERRORBUFFER, detail);
    SetTls(curl.get(), options);
    SetRequest(curl.get(), options, state, headerList.get());
    const CURLcode code = Curl().easy_perform(curl.get());
    if (code != CURLE_OK) {
        result.error = FailureText(code, state, detail);
        return result;
    }
    Curl().easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &result.status);
    result.completed = true;
    result.answer = std::move(state.answer);
    return result;
}

}  // namespace qpt
