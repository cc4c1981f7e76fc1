#pragma once

#include <QStringList>

namespace qpt {

// Creates the session's long-lived forms in their fixed order, each finishing
// its creation before the next begins. Ends the process when the hand-over
// picture is missing. Returns false when no window was made, so that there is
// no message loop to run.
bool CreateForms(const QStringList& arguments);

}  // namespace qpt
