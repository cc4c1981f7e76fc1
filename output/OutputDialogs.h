#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace qpt {

// What the save dialog is opened with. The filter is written as pairs of a
// description and its patterns, all joined by '|'
// ("BMP(*.bmp)|*.bmp|PNG(*.png)|*.png"); FilterIndex counts from 1.
struct TSaveDialogRequest {
    QString Filter;
    int FilterIndex = 1;
    QString InitialDir;
    // The name offered, usually without extension.
    QString FileName;
    // Added when the user types a name without extension (".jpeg").
    QString DefaultExt;
};

struct TSaveDialogAnswer {
    bool Accepted = false;
    // The whole path the user chose.
    QString FileName;
    // The filter that was selected when the dialog closed.
    int FilterIndex = 1;
};

enum class TMessageButtons { Ok, YesNo };
enum class TMessageAnswer { Ok, Yes, No };

// The three dialogs of the output forms: the save dialog, the folder
// browser and the message box. They are reached through this one interface
// so that tests can answer them; the program uses the platform's own.
class TOutputDialogs {
public:
    virtual ~TOutputDialogs() = default;

    // Never asks itself whether to replace a file: the caller does.
    virtual TSaveDialogAnswer RunSaveDialog(QWidget* owner, const TSaveDialogRequest& request) = 0;
    // The chosen folder, empty when cancelled.
    virtual QString BrowseForFolder(QWidget* owner, const QString& title) = 0;
    // Closing the box any other way than by a button answers No (or Ok).
    virtual TMessageAnswer MessageBox(QWidget* owner, const QString& text, const QString& title,
                                      TMessageButtons buttons) = 0;
};

// The dialogs in use: the platform's, unless a test has set its own.
TOutputDialogs& OutputDialogs();
// Null puts the platform's dialogs back. The caller keeps ownership.
void SetOutputDialogs(TOutputDialogs* dialogs);

// The filter as the platform dialog takes it: one entry per pair, the
// patterns separated by blanks in parentheses after the description
// ("JPEG(*.Jpeg;*.jpg)|*.jpeg;*.jpg" gives "JPEG (*.jpeg *.jpg)"). A pair
// without patterns is left out.
QStringList PlatformNameFilters(const QString& filter);

}  // namespace qpt
