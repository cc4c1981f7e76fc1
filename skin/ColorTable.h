#pragma once

#include <QStringList>
#include <mutex>
#include <span>

#include "skin/BaseHash.h"
#include "skin/ColorValue.h"
#include "support/NameValueList.h"

namespace qpt {

struct ColorItem {
    static constexpr qint32 kStandard = -1;
    static constexpr qint32 kPending = -2;  // asked for, no value yet

    QString Name;
    qint32 Index = kPending;  // position in the name list when defined
    quint32 Color = 0;        // byte 0 red ... byte 3 alpha (0 = opaque)
    quint32 Id = 0;
};

// The lines of one skin section, entered as prefix + key.
struct ColorSection {
    QString prefix;
    QStringList lines;
    ColorOrder order = ColorOrder::RGB;
};

// Named skin colours, so that one integer colour property can stand for a
// fixed colour, a system colour or a name whose value the current skin gives.
class TColorTable {
public:
    // A strong red, so that a colour no skin defines shows on the screen.
    static constexpr quint32 kUndefinedColor = 230;

    TColorTable() { MergeVclColor(); }

    // Back to the standard colours, keeping the names still waiting for a value.
    void MergeVclColor();
    // Enters every section, then resolves the "[name]" links among them.
    void Build(std::span<const ColorSection> sections);

    // Always true: an unknown name yields its id, which gets a value as soon
    // as a skin defines the name.
    bool IdentToColor(const QString& name, quint32& value);
    bool ColorToIdent(quint32 value, QString& name) const;
    // The colour to paint: values below the id range stand as they are.
    quint32 ColorToRGB(quint32 value) const;
    // The defined names, then the standard names.
    QStringList GetColorValues() const;
    int NameCount() const;

private:
    struct Link {
        QString name;
        quint32 target;
    };

    void ParseSection(const ColorSection& section, std::vector<Link>& links);
    void ResolveLinks(std::vector<Link>& links);
    void Enter(const QString& name, quint32 color);  // both locks held
    quint32 LookUp(quint32 id) const;                // hash lock held

    mutable std::mutex namesLock_;
    mutable std::mutex hashLock_;
    TNameValueList names_;
    TPointerHash<ColorItem> hash_{512};
};

// The process-wide table.
TColorTable& SkinColors();
void MergeVclColor();
bool IdentToColor(const QString& name, quint32& value);
bool ColorToIdent(quint32 value, QString& name);
quint32 ColorToRGB(quint32 value);

}  // namespace qpt
