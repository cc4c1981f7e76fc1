#include "support/ExtIniFile.h"

namespace qpt {

TExtIniFile::TExtIniFile(const QString& fileName) : fileName_(fileName) {
    if (!fileName_.isEmpty()) LoadFromFile(fileName_);
}

}  // namespace qpt
