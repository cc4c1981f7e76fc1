#include "support/LogManage.h"

#include "support/LogObj.h"

namespace qpt {

TLogManage::TLogManage(const QString& logPath) : logPath_(logPath) {}

TLogManage::~TLogManage() = default;

void TLogManage::SetLogPath(const QString& path) {
    std::lock_guard guard(lock_);
    logPath_ = path;
    if (logObj_ && logObj_->FileName().compare(path, Qt::CaseInsensitive) != 0) logObj_.reset();
}

QString TLogManage::LogPath() const {
    std::lock_guard guard(lock_);
    return logPath_;
}

void TLogManage::SetBackupCount(uint8_t count) {
    std::lock_guard guard(lock_);
    backupCount_ = count;
}

void TLogManage::SetCloseAfterWrite(bool on) {
    std::lock_guard guard(lock_);
    closeAfterWrite_ = on;
}

void TLogManage::SetTimeStamp(bool on) {
    std::lock_guard guard(lock_);
    timeStamp_ = on;
}

void TLogManage::SetMaxSize(int32_t bytes) {
    std::lock_guard guard(lock_);
    maxSize_ = bytes;
}

void TLogManage::WriteLog(const QString& text, bool detail) {
    std::lock_guard guard(lock_);
    if (!logObj_) {
        logObj_ = std::make_unique<TLogObj>(logPath_);
        logObj_->SetBackupCount(backupCount_);
        logObj_->SetTimeStamp(timeStamp_);
        logObj_->SetMaxSize(maxSize_);
    }
    logObj_->WriteLine(text, detail);
    if (closeAfterWrite_) logObj_.reset();
}

namespace {
std::unique_ptr<TLogManage>& Instance() {
    static std::unique_ptr<TLogManage> instance;
    return instance;
}
}  // namespace

void CreateLogManage(const QString& path) {
    auto& instance = Instance();
    if (instance)
        instance->SetLogPath(path);
    else
        instance = std::make_unique<TLogManage>(path);
}

TLogManage* LogManage() {
    return Instance().get();
}

void WriteLog(const QString& text, bool detail) {
    if (TLogManage* manage = LogManage()) manage->WriteLog(text, detail);
}

}  // namespace qpt
