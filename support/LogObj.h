#pragma once

#include <QFile>
#include <QString>
#include <cstdint>
#include <mutex>

namespace qpt {

// One open log file: appends UTF-16 lines and rotates the file by size into
// numbered ".bak" copies. A log that cannot be opened loses its lines quietly.
class TLogObj {
public:
    // An empty path logs beside the running executable, named after it.
    explicit TLogObj(const QString& path);
    ~TLogObj();
    TLogObj(const TLogObj&) = delete;
    TLogObj& operator=(const TLogObj&) = delete;

    void SetMaxSize(int32_t bytes) { maxSize_ = bytes; }
    void SetBackupCount(uint8_t count) { backupCount_ = count; }
    void SetTimeStamp(bool on) { timeStamp_ = on; }

    // A detail line is kept only while "detaillog.ldt" exists in the log's
    // folder, so support can switch them on without touching any setting.
    void WriteLine(const QString& text, bool detail);

    const QString& FileName() const { return fileName_; }
    int32_t Position() const { return position_; }

private:
    bool DetailEnabled() const;
    void Rotate();
    void WriteUtf16(const QString& text);

    std::mutex lock_;
    QString moduleName_;
    QString fileName_;
    QFile stream_;
    int32_t position_ = 0;
    int32_t maxSize_ = 0xA00000;
    uint8_t backupCount_ = 1;
    bool timeStamp_ = true;
};

}  // namespace qpt
