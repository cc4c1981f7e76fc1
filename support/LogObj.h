#pragma once

#include <QString>
#include <cstdint>
#include <mutex>

namespace qpt {

// One open log file: appends UTF-16 lines and rotates the file by size into
// numbered ".bak" copies. Lines are only ever appended, so a process killed
// while writing can cut its own last line and nothing before it; rotation
// renames the whole file away, so old lines are whole in the log or in
// ".bak1". Only a regular file is written (a link is followed to its
// target): a log that cannot be opened, or is a pipe or a device, loses its
// lines quietly.
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
    void Open();
    void Close();
    void Rotate();
    void WriteUtf16(const QString& text);

    std::mutex lock_;
    QString moduleName_;
    QString fileName_;
    QString target_;  // fileName_ with links followed
    int fd_ = -1;
    int32_t position_ = 0;
    int32_t maxSize_ = 0xA00000;
    uint8_t backupCount_ = 1;
    bool timeStamp_ = true;
};

}  // namespace qpt
