#pragma once

#include <QString>
#include <memory>

namespace qpt {

class TRdSkinStyle;

// Loads the public package and the named skin ("classic", "classic2") from
// a folder of built packages, as the program does from its own folder.
// Null, with the reason in `error`, when a package is not there.
std::unique_ptr<TRdSkinStyle> LoadGallerySkin(const QString& folder, const QString& skin,
                                              QString& error);

}  // namespace qpt
