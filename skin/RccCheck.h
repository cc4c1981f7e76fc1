#pragma once

#include <QByteArray>

namespace qpt {

// No skin package comes near these; a bigger one is no package of ours.
inline constexpr qint64 kMaxRccFileSize = 64 << 20;
inline constexpr qint64 kMaxRccEntrySize = 64 << 20;

// Whether the bytes are a resource package that can be registered without
// harm. The resource system trusts every offset in a package, so a damaged
// one would make it read outside the file. Here the header, every node of
// the tree (each reached once, children after their parent), every name and
// every entry's data must lie within the bytes, compressed entries must
// announce a size within kMaxRccEntrySize, and only known flags may be set.
bool IsSoundRccPackage(const QByteArray& bytes);

}  // namespace qpt
