#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "annotate/FormTools.h"
#include "app/FormPinned.h"
#include "app/FormSequence.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionState.h"
#include "output/FormSavePath.h"
#include "support/ProcessExit.h"
#include "tests/app/InProcessPin.h"
#include "tests/common/ScratchHome.h"

namespace qpt::testing {

// Thrown where the session would have ended the process.
struct SessionEnded {
    int code;
};

// All forms of a session in process, on the offscreen platform, with the
// picture pinned and the toolbar shown as after the first click. The end of
// the process is observed instead of taken.
class WholeSession : public ::testing::Test {
protected:
    void SetUp() override {
        MakeTestApplication();
        ToolArmed = 0;
        FolderDialogOpen = 0;
        SaveInProgress = 0;
        ClearToolToggles();
        SetProcessExitObserver([](int code) { throw SessionEnded{code}; });
        WriteHandOver(picture_, QRect(100, 100, picture_.width(), picture_.height()));
        pinned_.reset(CreateSessionForms({"QptPin", "/QPTMain"}));
        pinned_->show();
        pinned_->Bars.UpdateBarLayout(pinned_->geometry());
        pinned_->Bars.ShowTools();
    }
    void TearDown() override {
        pinned_.reset();
        SetProcessExitObserver(nullptr);
    }

    TFormTools& Tools() { return *qobject_cast<TFormTools*>(FormTools); }
    TFormSavePath& Panel() { return *qobject_cast<TFormSavePath*>(FormSavePath); }

    ScratchHome home_;
    QImage picture_ = PlainPicture(QSize(200, 100));
    std::unique_ptr<TFormPinned> pinned_;
};

}  // namespace qpt::testing
