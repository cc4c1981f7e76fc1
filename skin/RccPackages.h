#pragma once

#include <QByteArray>
#include <QString>

namespace qpt {

// The package store. A package is a Qt binary resource file, registered under
// a root named after its file ("classic.rcc" under ":/classic/"), so all
// packages share one tree. A file that is missing, no regular file, or not
// a sound resource package (damaged, cut, or too big) registers nothing and
// counts as missing.
bool RccRegister(const QString& path);
void RccUnregister(const QString& path);
bool RccIsRegistered(const QString& path);

// The bytes of an entry such as ":/public/main.ini"; empty when it is missing
// or the name lies outside the resource tree.
QByteArray RccData(const QString& resourceName);

// The names inside a folder of the tree (a name ending in "/"), each followed
// by "|": sub-folders into `folders`, the rest into `files`.
void RccEnum(const QString& folder, QString& folders, QString& files);

}  // namespace qpt
