#include "support/LogObj.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringEncoder>
#include <algorithm>
#include <cerrno>

#include "support/SafeFileIo.h"

namespace qpt {

namespace {

QString ExecutablePath() {
    return QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
}

QString BackupName(const QString& fileName, int number) {
    return fileName + QStringLiteral(".bak") + QString::number(number);
}

bool WriteAll(int fd, const QByteArray& bytes) {
    const char* data = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, data, size_t(left));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        left -= n;
    }
    return true;
}

}  // namespace

TLogObj::TLogObj(const QString& path) : moduleName_(ExecutablePath()) {
    fileName_ = path;
    if (fileName_.isEmpty()) {
        const QFileInfo module(moduleName_);
        fileName_ = module.absolutePath() + '/' + module.completeBaseName() + ".log";
    }
    target_ = ResolveLinkTarget(fileName_);
    if (target_.isEmpty()) return;
    QDir().mkpath(QFileInfo(target_).absolutePath());
    Open();
}

TLogObj::~TLogObj() {
    if (fd_ < 0) return;
    Close();
    // A log that never received a line leaves nothing behind.
    if (position_ == 0) QFile::remove(target_);
}

// Opening never waits: a named pipe is opened non-blocking and then refused
// with anything else that is not a regular file.
void TLogObj::Open() {
    const QByteArray native = QFile::encodeName(target_);
    struct stat st {};
    if (::stat(native.constData(), &st) == 0 && !S_ISREG(st.st_mode)) return;
    fd_ = ::open(native.constData(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666);
    if (fd_ < 0) return;
    if (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode)) {
        Close();
        return;
    }
    position_ = static_cast<int32_t>(std::min<qint64>(st.st_size, INT32_MAX));
}

void TLogObj::Close() {
    ::close(fd_);
    fd_ = -1;
}

bool TLogObj::DetailEnabled() const {
    return QFileInfo::exists(QFileInfo(fileName_).absolutePath() + "/detaillog.ldt");
}

void TLogObj::WriteLine(const QString& text, bool detail) {
    std::lock_guard guard(lock_);
    if (fd_ < 0) return;
    if (detail && !DetailEnabled()) return;
    if (position_ >= maxSize_) Rotate();
    if (fd_ < 0) return;
    if (position_ == 0) {
        if (!WriteAll(fd_, QByteArray("\xFF\xFE", 2))) return;
        position_ = 2;
    }
    QString line;
    if (timeStamp_)
        line = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz  "));
    line += text;
    line += QStringLiteral("\r\n");
    WriteUtf16(line);
}

// One write call per line, so that another process appending to the same
// log never splits it.
void TLogObj::WriteUtf16(const QString& text) {
    QStringEncoder encoder(QStringConverter::Utf16LE);
    const QByteArray bytes = encoder.encode(text);
    if (WriteAll(fd_, bytes)) position_ += static_cast<int32_t>(bytes.size());
}

// The oldest copy drops out, the others move up one number, and the log
// itself is renamed to ".bak1": a rename either happens or not, so old lines
// are never lost half-way. With no copies to keep, the content is dropped.
void TLogObj::Rotate() {
    Close();
    if (backupCount_ > 0) {
        QFile::remove(BackupName(target_, backupCount_));
        for (int i = backupCount_ - 1; i >= 1; --i)
            ::rename(QFile::encodeName(BackupName(target_, i)).constData(),
                     QFile::encodeName(BackupName(target_, i + 1)).constData());
        ::rename(QFile::encodeName(target_).constData(),
                 QFile::encodeName(BackupName(target_, 1)).constData());
    }
    QFile::remove(target_);
    Open();
}

}  // namespace qpt
