#pragma once

#include <QString>

namespace qpt {

class TIEImageView;

// The folder where a picture that could not be saved is kept: "recovery"
// in the settings folder, with its trailing '/'; empty without a settings
// folder.
QString RecoveryFolder();

// Keeps the flattened picture of the view as a PNG file in the recovery
// folder, named after the file that could not be written (a number is
// added rather than replacing an older copy), and logs the failure with
// the path of the copy. Returns that path, empty when the copy could not
// be written either.
QString KeepInRecovery(TIEImageView& view, const QString& failedPath);

}  // namespace qpt
