#pragma once

#include <QString>

namespace qpt {

// A package path with its twin: "x.rcc" and "x.dll" name one package, which
// may be shipped under either extension.
struct TRccPath {
    QString path;  // as given, with "/" delimiters
    QString alt;   // the same with the other extension (".rcc" unless it was ".rcc")
    QString stem;  // the path without its extension: a loose package folder
    QString name;  // file name without folder and extension, lower case

    static TRccPath Normalize(const QString& path);
    // The twin that exists, the given path first; the given path when neither does.
    QString Existing() const;
    bool Exists() const;
};

// Equal ignoring case once the extension is removed; an empty path is no package.
bool SamePackage(const QString& a, const QString& b);

}  // namespace qpt
