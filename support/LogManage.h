#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <mutex>

namespace qpt {

class TLogObj;

// Owns the log object of the process. By default the file is opened for each
// line and closed again, so that nothing stays open between lines.
class TLogManage {
public:
    explicit TLogManage(const QString& logPath = {});
    ~TLogManage();
    TLogManage(const TLogManage&) = delete;
    TLogManage& operator=(const TLogManage&) = delete;

    // A different file (compared without regard to case) drops the open
    // log object; the next line opens the new one.
    void SetLogPath(const QString& path);
    QString LogPath() const;

    void SetBackupCount(uint8_t count);
    void SetCloseAfterWrite(bool on);
    void SetTimeStamp(bool on);
    void SetMaxSize(int32_t bytes);

    void WriteLog(const QString& text, bool detail);

private:
    mutable std::mutex lock_;
    std::unique_ptr<TLogObj> logObj_;
    uint8_t backupCount_ = 1;
    bool closeAfterWrite_ = true;
    QString logPath_;
    bool timeStamp_ = true;
    int32_t maxSize_ = 0xA00000;
};

// The process-wide manager. Creating it again only moves it to the new path.
void CreateLogManage(const QString& path);
// Null until CreateLogManage has run.
TLogManage* LogManage();

// One line into the process log; without a manager the line is dropped.
void WriteLog(const QString& text, bool detail = false);

}  // namespace qpt
