#pragma once

#include <QString>
#include <functional>

class QObject;

namespace qpt {

// Gives the new text for a key, with the text the component shows now as the
// fallback.
using TextLookup = std::function<QString(const QString& key, const QString& current)>;

// Sets captions, hints and item texts of every named descendant of root,
// depth-first in creation order, by the component's name and kind: keys are
// Name + ".Caption", Name + ".Hint", Name + ".Items[i].Caption" and
// Name + ".Columns[i].Caption". The program's skinned controls are known by
// class name and carry their texts in the properties "Caption", "Hint",
// "ShowHint" and "Items"; stock widgets by the role they play.
void ApplyComponentTexts(QObject* root, const TextLookup& lookup);

}  // namespace qpt
