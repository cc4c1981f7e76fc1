#pragma once

#include <QString>

#include "output/ClipboardHandOver.h"

namespace qpt {

// The copy of the pinned picture (the copy button, its word, Ctrl+C). The
// annotations are burnt into the picture, which goes to the clipboard
// holder; once the holder owns the clipboard the toolbar goes, the tip
// tells where the picture went (unless the user has turned it off), the
// host is told, and the process ends. A holder that never gets the
// clipboard leaves the session open, the picture flattened, the toolbar
// where it was: another copy tries again.
void CopyToClipboard(const QString& holder = ClipboardHolderPath());

}  // namespace qpt
