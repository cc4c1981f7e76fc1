#pragma once

#include <QStringList>
#include <mutex>

#include "skin/GraphicCache.h"
#include "skin/Resource.h"
#include "skin/StyleClasses.h"
#include "support/SafeIniFile.h"

namespace qpt {

// The one shared state behind TResource's class methods. Made on first use
// and never destroyed: graphics handed out may be painted until the process
// ends, and must not outlive the tables they draw from.
struct TResourceState {
    TResourceState();

    QString publicRccPath;
    QString skinRccPath;
    QString skinRccName;
    QString skinBasePath;
    bool looseFilesEnabled = false;
    QStringList registeredRccFiles;  // public packages, kept sorted

    TSafeIniFile mainIni;
    TSafeIniFile colorIni;
    TStyleClasses styleClasses;
    std::mutex rdgLock;
    TNameValueList rdgValues;  // "[section]" -> its flattened lines
    TGraphicCache graphicCache;

    TResource::ResourceHook hook;
    std::function<void()> paletteChanged;
};

TResourceState& ResourceState();

}  // namespace qpt
