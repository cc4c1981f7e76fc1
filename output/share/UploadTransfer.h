#pragma once

#include <QIODevice>
#include <cstdint>
#include <functional>
#include <string>

namespace qpt {

struct TTransferOptions {
    std::string url;
    // Empty: the system's certificate store; otherwise the only CA trusted.
    std::string caFile;
    std::string contentType = "image/png";
    int connectTimeoutMs = 20000;
    // The longest time without a byte moving either way, once connected.
    int readTimeoutMs = 20000;
};

// What the transfer asks of the thread that runs it.
struct TTransferHooks {
    // Each time bytes moved either way, with the total moved so far. It may
    // block: time spent inside does not count against the read time-out.
    std::function<void(std::int64_t work)> onWork;
    // Asked often; true aborts the transfer at once.
    std::function<bool()> cancelled;
};

struct TTransferResult {
    // An answer came in whole; its status is not judged here.
    bool completed = false;
    long status = 0;
    std::string answer;
    // Why the transfer did not complete, for a debug line.
    std::string error;
};

// The longest answer read; a longer one fails the transfer.
inline constexpr std::size_t kMaxAnswerBytes = 1 << 20;

// POSTs everything `source` holds as the raw request body, over TLS 1.2 or
// newer with the peer's certificate and name verified. Runs on the calling
// thread until the answer is in, an error, a time-out or a cancel.
TTransferResult PostBody(const TTransferOptions& options, QIODevice& source, TTransferHooks& hooks);

}  // namespace qpt
