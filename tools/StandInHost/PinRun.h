#pragma once

#include <QImage>
#include <QObject>
#include <QProcess>
#include <QRect>
#include <QString>

namespace qpt::standin {

// One pinned picture: the hand-over written as the host writes it, QptPin
// started on it, and word of how it ended.
class PinRun : public QObject {
    Q_OBJECT
public:
    // `program` is QptPin; the one beside the host when empty.
    explicit PinRun(const QString& program, QObject* parent = nullptr);
    // A picture still pinned goes with the host.
    ~PinRun() override;

    // Empty when QptPin runs; otherwise what went wrong.
    QString Start(const QImage& picture, const QRect& rect);
    bool IsRunning() const { return process_.state() != QProcess::NotRunning; }
    // Ends QptPin on the host's behalf, so that its end is not taken for a crash.
    void Close();

signals:
    // `how` is the line the host prints about the end.
    void Ended(int code, const QString& how);

private:
    void Finished(int code, QProcess::ExitStatus status);

    QString program_;
    QProcess process_;
    bool closedByHost_ = false;
};

}  // namespace qpt::standin
