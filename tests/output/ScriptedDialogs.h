#pragma once

#include <QStringList>
#include <deque>
#include <functional>
#include <vector>

#include "output/OutputDialogs.h"

namespace qpt::testing {

// Answers the output forms' dialogs from a script while it lives, and keeps
// what each dialog was opened with. A dialog without a scripted answer is
// cancelled (the message box answers No or Ok).
class ScriptedDialogs final : public TOutputDialogs {
public:
    ScriptedDialogs() { SetOutputDialogs(this); }
    ~ScriptedDialogs() override { SetOutputDialogs(nullptr); }
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;

    std::deque<TSaveDialogAnswer> saveAnswers;
    std::deque<QString> folderAnswers;
    std::deque<TMessageAnswer> messageAnswers;
    // Runs inside every dialog, while it would be up.
    std::function<void()> whileOpen;

    std::vector<TSaveDialogRequest> saveRequests;
    QStringList folderTitles;
    QStringList messages;
    QStringList messageTitles;

    TSaveDialogAnswer RunSaveDialog(QWidget*, const TSaveDialogRequest& request) override {
        saveRequests.push_back(request);
        if (whileOpen) whileOpen();
        TSaveDialogAnswer answer{false, {}, request.FilterIndex};
        return Take(saveAnswers, answer);
    }
    QString BrowseForFolder(QWidget*, const QString& title) override {
        folderTitles << title;
        if (whileOpen) whileOpen();
        return Take(folderAnswers, QString());
    }
    TMessageAnswer MessageBox(QWidget*, const QString& text, const QString& title,
                              TMessageButtons buttons) override {
        messages << text;
        messageTitles << title;
        if (whileOpen) whileOpen();
        const TMessageAnswer closed =
            buttons == TMessageButtons::YesNo ? TMessageAnswer::No : TMessageAnswer::Ok;
        return Take(messageAnswers, closed);
    }

private:
    template <typename T>
    static T Take(std::deque<T>& answers, T otherwise) {
        if (answers.empty()) return otherwise;
        T answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

}  // namespace qpt::testing
