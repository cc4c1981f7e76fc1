#include "tests/output/ClipboardTestSupport.h"

#include <QProcess>

#include "support/Paths.h"
#include "tests/common/ScratchHome.h"

namespace qpt::testing {

QByteArray RunProgram(const QString& program, const QStringList& arguments, int* exitCode,
                      int timeoutMs) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(timeoutMs) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        if (exitCode) *exitCode = -1;
        return {};
    }
    if (exitCode) *exitCode = process.exitCode();
    return process.readAllStandardOutput();
}

void ClipboardTest::SetUp() {
    DisplayTest::SetUp();
    if (IsSkipped()) return;
    client_ = std::make_unique<PasteClient>(display_.name());
    ASSERT_TRUE(client_->IsConnected());
}

int ClipboardTest::CopyPicture(int width, int height, int seed) {
    int code = -1;
    RunProgram(QStringLiteral(QPT_COPY_DRIVER),
               {"picture", QString::number(width), QString::number(height), QString::number(seed)},
               &code);
    return code;
}

int ClipboardTest::CopyText(const QString& text) {
    int code = -1;
    RunProgram(QStringLiteral(QPT_COPY_DRIVER), {"text", text}, &code);
    return code;
}

QByteArray ClipboardTest::Xclip(const char* target) {
    return RunProgram("xclip", {"-o", "-selection", "clipboard", "-t", target});
}

QString ClipboardTest::LogText() const {
    const QByteArray bytes = ReadFile(SettingsFolder() + "log/QptHost.log");
    if (bytes.size() < 2) return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData() + 2),
                              (bytes.size() - 2) / 2);
}

}  // namespace qpt::testing
