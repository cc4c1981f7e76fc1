#include "output/share/UploadImage.h"

#include <signal.h>

#include <QCoreApplication>
#include <QFile>
#include <chrono>
#include <thread>

#include "output/share/CurlLibrary.h"
#include "output/share/UploadAnswer.h"
#include "output/share/UploadTransfer.h"
#include "support/DebugOutput.h"

namespace qpt {

std::shared_ptr<TUploadImage> TUploadImage::Create() {
    return std::shared_ptr<TUploadImage>(new TUploadImage);
}

void TUploadImage::Start() {
    // The transfer library is loaded and set up here, on the main thread: its
    // global set-up must not race another thread, nor the process's end when
    // a user cancels at once.
    CurlCalls();
    std::thread([self = shared_from_this()] { self->Execute(); }).detach();
}

void TUploadImage::Cancel() {
    {
        const std::lock_guard lock(mutex_);
        cancelled_ = true;
    }
    wake_.notify_all();
    // Handlers run on the main thread only, as does Cancel: dropping them
    // here also lets go of whatever they hold.
    OnProgress = nullptr;
    OnTerminate = nullptr;
}

bool TUploadImage::WaitForEnd(int ms) {
    std::unique_lock lock(mutex_);
    return wake_.wait_for(lock, std::chrono::milliseconds(ms), [this] { return ended_; });
}

void TUploadImage::Execute() {
    // A host that hangs up while the picture goes out fails the upload; it
    // must not end the process.
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, nullptr);
    DebugOutput(QStringLiteral("TUploadImage.Upload1"));
    try {
        Upload();
    } catch (const std::exception& e) {
        link_.clear();
        DebugOutput(QStringLiteral("e.Message=") + QString::fromLocal8Bit(e.what()));
    }
    Ended();
}

void TUploadImage::Upload() {
    QFile file(FilePath);
    if (!file.open(QIODevice::ReadOnly)) {
        DebugOutput(QStringLiteral("e.Message=") + file.errorString());
        return;
    }
    TTransferOptions options;
    options.url = UploadAddress(Settings).toStdString();
    options.caFile = QFile::encodeName(Settings.caFile).toStdString();
    options.connectTimeoutMs = options.readTimeoutMs = Settings.timeoutMs;
    TTransferHooks hooks;
    const std::int64_t size = file.size();
    hooks.onWork = [this, size](std::int64_t work) { WorkStep(work, size); };
    hooks.cancelled = [this] { return cancelled_.load(); };
    const TTransferResult result = PostBody(options, file, hooks);
    if (!result.completed) {
        DebugOutput(QStringLiteral("e.Message=") + QString::fromStdString(result.error));
        return;
    }
    link_ = ReadUploadLink(result.answer);
    if (link_.isEmpty())
        DebugOutput(
            QStringLiteral("e.Message=no link in the answer, status %1").arg(result.status));
}

void TUploadImage::WorkStep(std::int64_t work, std::int64_t size) {
    progress_ = size > 0 ? int((work * 100 + size / 2) / size) : 100;
    RunOnMainThread(true, &TUploadImage::OnProgress);
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, std::chrono::milliseconds(kStepPauseMs),
                   [this] { return cancelled_.load(); });
}

void TUploadImage::Ended() {
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    wake_.notify_all();
    RunOnMainThread(false, &TUploadImage::OnTerminate);
}

void TUploadImage::RunOnMainThread(bool wait, Handler TUploadImage::*handler) {
    QCoreApplication* app = QCoreApplication::instance();
    if (!app || cancelled_) return;
    auto call = [self = shared_from_this(), handler] {
        if (self->cancelled_) return;
        // A copy: the handler may close its form, which cancels and so drops
        // the handler while it still runs.
        const Handler run = (*self).*handler;
        if (run) run(*self);
    };
    QMetaObject::invokeMethod(app, call,
                              wait ? Qt::BlockingQueuedConnection : Qt::QueuedConnection);
}

}  // namespace qpt
