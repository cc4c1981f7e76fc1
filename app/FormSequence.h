#pragma once

#include <QStringList>

#include "app/HandOver.h"

namespace qpt {

class TFormPinned;

// Creates the session's long-lived forms in their fixed order, each finishing
// its creation before the next begins, and ties the pinned window's calls to
// the forms that answer them. The pinned window is not shown yet.
TFormPinned* CreateSessionForms(const QStringList& arguments,
                                const THandOver& handOver = ReadHandOver());

// Creates the forms and shows the pinned window. Ends the process when the
// hand-over picture is missing. Returns false when no window was made, so
// that there is no message loop to run.
bool CreateForms(const QStringList& arguments);

}  // namespace qpt
