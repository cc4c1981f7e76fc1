#pragma once

#include <QString>

namespace qpt {

// The one way out of a session that the forms take: the usage code of the
// action, when it has one, is reported first, then the process ends at once
// with code 0. Nothing is closed, freed or flushed, so whatever must outlive
// the process (a file, the clipboard, the notice to the host) is finished
// before the call. Tests observe it through the process exit observer.
[[noreturn]] void EndSession(const QString& usageCode = QString());

// A close request on the pinned window: the message loop ends with code 0,
// so that the process leaves through the ordinary return of the loop.
void CloseSession();

}  // namespace qpt
