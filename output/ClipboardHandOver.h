#pragma once

#include <QString>

#include "imaging/IEBitmap.h"

namespace qpt {

// On X11 the clipboard lives in the process that owns the selection, and
// this process ends right after a copy. So what is copied goes to a holder
// program beside this one, which keeps it on the clipboard afterwards.

// The holder in the program folder.
QString ClipboardHolderPath();

// Starts a holder with the picture and waits until it owns the clipboard:
// true then, and this process may end. False when the holder could not get
// the clipboard within its tries (about two seconds) or could not start.
// The holder encodes the picture's PNG itself, after this call returned.
bool HandPictureToClipboard(const TIEBitmap& picture,
                            const QString& holder = ClipboardHolderPath());

// The same for text, offered as UTF-8.
bool HandTextToClipboard(const QString& text, const QString& holder = ClipboardHolderPath());

}  // namespace qpt
