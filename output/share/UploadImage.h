#pragma once

#include <QString>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>

#include "output/share/UploadSettings.h"

namespace qpt {

// The upload of one picture on a worker thread of its own, so that the main
// loop stays free and the progress window's close button answers at once.
// Made suspended; Start runs the worker, which keeps the object alive until
// it ends, so the caller may drop its reference at any time.
//
// Handlers run on the main thread only. At each step of the work the worker
// waits until OnProgress has run there, then pauses a moment, so the bar
// moves visibly and the upload is paced. After Cancel no handler runs again
// and the worker gives up at its next step, so the process can end at once.
class TUploadImage : public std::enable_shared_from_this<TUploadImage> {
public:
    using Handler = std::function<void(TUploadImage& sender)>;

    // The pause after each step of the progress.
    static constexpr int kStepPauseMs = 100;

    static std::shared_ptr<TUploadImage> Create();

    QString FilePath;
    // The share kind, carried for the handlers; the upload itself is the same
    // for every kind.
    std::uint8_t Kind = 0;
    TUploadSettings Settings;

    // After each step of the work, with Progress already set.
    Handler OnProgress;
    // Once the worker has ended, with Link set.
    Handler OnTerminate;

    void Start();
    void Cancel();
    bool IsCancelled() const { return cancelled_; }

    // Percent of the file's size moved so far, answer included, so it may
    // pass 100.
    int Progress() const { return progress_; }
    // The link the image host returned; empty after any failure. Read it in
    // OnTerminate.
    QString Link() const { return link_; }

    // For tests: waits until the worker has ended, up to `ms`.
    bool WaitForEnd(int ms);

private:
    TUploadImage() = default;
    void Execute();
    void Upload();
    void WorkStep(std::int64_t work, std::int64_t size);
    void RunOnMainThread(bool wait, Handler TUploadImage::*handler);
    void Ended();

    std::atomic<bool> cancelled_{false};
    std::atomic<int> progress_{0};
    QString link_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool ended_ = false;
};

}  // namespace qpt
