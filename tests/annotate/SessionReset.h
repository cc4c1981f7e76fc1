#pragma once

#include "app/session/SessionState.h"

namespace qpt::testing {

// Puts the session's tool and style state back to the values a process
// starts with, so that each test begins as a fresh session.
inline void ResetSessionStyle() {
    CurrentTool = kToolNone;
    ToolArmed = 0;
    PenWidth = 4;
    ShapeColor = 255;
    TextColor = 255;
    TextFontName = QStringLiteral("Tahoma");
    TextFontSize = 12;
    PixelSize = 10;
    MosaicBrushSize = 20;
    ClearToolToggles();
    FolderDialogOpen = 0;
    SaveInProgress = 0;
}

}  // namespace qpt::testing
