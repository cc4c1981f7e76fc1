#include "support/LogObj.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStringEncoder>
#include <algorithm>

namespace qpt {

namespace {

QString ExecutablePath() {
    return QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
}

QString BackupName(const QString& fileName, int number) {
    return fileName + QStringLiteral(".bak") + QString::number(number);
}

// Makes the file (and its folder) so that the stream below can open an
// existing file without truncating anything.
void EnsureFile(const QString& fileName) {
    if (QFileInfo::exists(fileName)) return;
    QDir().mkpath(QFileInfo(fileName).absolutePath());
    QFile file(fileName);
    if (file.open(QIODevice::WriteOnly)) file.close();
}

}  // namespace

TLogObj::TLogObj(const QString& path) : moduleName_(ExecutablePath()) {
    fileName_ = path;
    if (fileName_.isEmpty()) {
        const QFileInfo module(moduleName_);
        fileName_ = module.absolutePath() + '/' + module.completeBaseName() + ".log";
    }
    EnsureFile(fileName_);
    stream_.setFileName(fileName_);
    // ReadWrite rather than WriteOnly: the latter would truncate the log.
    if (!stream_.open(QIODevice::ReadWrite)) return;
    const qint64 size = stream_.size();
    stream_.seek(size);
    position_ = static_cast<int32_t>(std::min<qint64>(size, INT32_MAX));
}

TLogObj::~TLogObj() {
    if (!stream_.isOpen()) return;
    stream_.close();
    // A log that never received a line leaves nothing behind.
    if (position_ == 0) QFile::remove(fileName_);
}

bool TLogObj::DetailEnabled() const {
    return QFileInfo::exists(QFileInfo(fileName_).absolutePath() + "/detaillog.ldt");
}

void TLogObj::WriteLine(const QString& text, bool detail) {
    std::lock_guard guard(lock_);
    if (!stream_.isOpen()) return;
    if (detail && !DetailEnabled()) return;
    if (position_ >= maxSize_) Rotate();
    if (position_ == 0) {
        if (stream_.write("\xFF\xFE", 2) != 2) return;
        position_ = 2;
    }
    QString line;
    if (timeStamp_)
        line = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz  "));
    line += text;
    line += QStringLiteral("\r\n");
    WriteUtf16(line);
}

void TLogObj::WriteUtf16(const QString& text) {
    QStringEncoder encoder(QStringConverter::Utf16LE);
    const QByteArray bytes = encoder.encode(text);
    const qint64 written = stream_.write(bytes);
    if (written > 0) position_ += static_cast<int32_t>(written);
    stream_.flush();
}

// The oldest copy drops out, the others move up one number, and the current
// content becomes ".bak1". With no copies to keep, the content is dropped.
void TLogObj::Rotate() {
    stream_.flush();
    if (backupCount_ > 0) {
        QFile::remove(BackupName(fileName_, backupCount_));
        for (int i = backupCount_ - 1; i >= 1; --i)
            QFile::rename(BackupName(fileName_, i), BackupName(fileName_, i + 1));
        // A stale ".bak1" (a failed rename) would make the copy fail.
        QFile::remove(BackupName(fileName_, 1));
        QFile::copy(fileName_, BackupName(fileName_, 1));
    }
    stream_.resize(0);
    stream_.seek(0);
    position_ = 0;
}

}  // namespace qpt
