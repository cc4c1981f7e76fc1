#include "output/OutputDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QRegularExpression>

namespace qpt {

namespace {

class TPlatformDialogs final : public TOutputDialogs {
public:
    TSaveDialogAnswer RunSaveDialog(QWidget* owner, const TSaveDialogRequest& request) override;
    QString BrowseForFolder(QWidget* owner, const QString& title) override;
    TMessageAnswer MessageBox(QWidget* owner, const QString& text, const QString& title,
                              TMessageButtons buttons) override;
};

TSaveDialogAnswer TPlatformDialogs::RunSaveDialog(QWidget* owner,
                                                  const TSaveDialogRequest& request) {
    QFileDialog dialog(owner);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The save flow asks its own question, with its own words, about a file
    // that is already there.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    const QStringList filters = PlatformNameFilters(request.Filter);
    dialog.setNameFilters(filters);
    if (request.FilterIndex >= 1 && request.FilterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.FilterIndex - 1]);
    QString suffix = request.DefaultExt;
    if (suffix.startsWith('.')) suffix.remove(0, 1);
    dialog.setDefaultSuffix(suffix);
    if (!request.InitialDir.isEmpty()) dialog.setDirectory(request.InitialDir);
    dialog.selectFile(request.FileName);

    TSaveDialogAnswer answer;
    answer.FilterIndex = request.FilterIndex;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return answer;
    answer.Accepted = true;
    answer.FileName = dialog.selectedFiles().constFirst();
    // A handful of filters: the position always fits the answer's int.
    const qsizetype selected = filters.indexOf(dialog.selectedNameFilter());
    if (selected >= 0) answer.FilterIndex = static_cast<int>(selected) + 1;
    return answer;
}

QString TPlatformDialogs::BrowseForFolder(QWidget* owner, const QString& title) {
    if (!owner) owner = QApplication::activeWindow();
    return QFileDialog::getExistingDirectory(owner, title, QString(), QFileDialog::ShowDirsOnly);
}

TMessageAnswer TPlatformDialogs::MessageBox(QWidget* owner, const QString& text,
                                            const QString& title, TMessageButtons buttons) {
    const bool yesNo = buttons == TMessageButtons::YesNo;
    QMessageBox box(QMessageBox::NoIcon, title, text,
                    yesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, owner);
    if (yesNo) box.setEscapeButton(QMessageBox::No);
    const int result = box.exec();
    if (!yesNo) return TMessageAnswer::Ok;
    return result == QMessageBox::Yes ? TMessageAnswer::Yes : TMessageAnswer::No;
}

TOutputDialogs* installedDialogs = nullptr;

}  // namespace

TOutputDialogs& OutputDialogs() {
    static TPlatformDialogs platform;
    return installedDialogs ? *installedDialogs : platform;
}

void SetOutputDialogs(TOutputDialogs* dialogs) {
    installedDialogs = dialogs;
}

QStringList PlatformNameFilters(const QString& filter) {
    // The description may carry its own copy of the patterns, which the
    // platform dialog would show twice.
    static const QRegularExpression ownPatterns(R"(\s*\([^()]*\)\s*$)");
    const QStringList parts = filter.split('|');
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QStringList patterns = parts[i + 1].split(';', Qt::SkipEmptyParts);
        if (patterns.isEmpty()) continue;
        QString description = parts[i];
        description.remove(ownPatterns);
        result << description.trimmed() + " (" + patterns.join(' ').trimmed() + ')';
    }
    return result;
}

}  // namespace qpt
