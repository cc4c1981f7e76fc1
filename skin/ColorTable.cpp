#include "skin/ColorTable.h"

#include <algorithm>

#include "skin/ColorId.h"
#include "skin/RdLog.h"
#include "support/color/ColorNames.h"

namespace qpt {

namespace {

bool SameWord(const QString& a, QLatin1StringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// A colour name that is really a number: decimal, "$hex" or "0xhex".
std::optional<quint32> NumberName(const QString& name) {
    bool ok = false;
    quint32 value = 0;
    if (name.startsWith(u'$'))
        value = QStringView(name).mid(1).toUInt(&ok, 16);
    else if (name.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        value = QStringView(name).mid(2).toUInt(&ok, 16);
    else
        value = quint32(name.toInt(&ok, 10));
    return ok ? std::optional(value) : std::nullopt;
}

// The standard names with their ids, worked out once: every reload starts
// from them.
struct StandardEntry {
    quint32 id;
    ColorItem item;
};

const std::vector<StandardEntry>& StandardEntries() {
    static const std::vector<StandardEntry> entries = [] {
        std::vector<StandardEntry> list;
        for (const StandardColor& standard : StandardColors()) {
            const QString name = QString::fromUtf16(standard.name);
            list.push_back({ColorId(name),
                            ColorItem{name, ColorItem::kStandard, standard.value, standard.value}});
        }
        return list;
    }();
    return entries;
}

}  // namespace

void TColorTable::MergeVclColor() {
    std::lock_guard lock(hashLock_);
    std::vector<ColorItem> pending;
    hash_.ForEach([&](quint32, const ColorItem& item) {
        if (item.Index == ColorItem::kPending) pending.push_back(item);
    });
    hash_.Clear();
    int number = 0;
    for (ColorItem& item : pending) {
        item.Color = kUndefinedColor;
        RdLog(QStringLiteral("MergeVclColor, non-color[%1]: %2").arg(number++).arg(item.Name));
        const quint32 id = item.Id;
        hash_.Put(id, std::move(item));
    }
    for (const StandardEntry& standard : StandardEntries()) {
        hash_.Put(standard.id, standard.item);
        hash_.Put(standard.item.Id, standard.item);
    }
}

void TColorTable::Build(std::span<const ColorSection> sections) {
    std::scoped_lock lock(namesLock_, hashLock_);
    names_.Clear();
    std::vector<Link> links;
    for (const ColorSection& section : sections)
        ParseSection(section, links);
    ResolveLinks(links);
}

void TColorTable::ParseSection(const ColorSection& section, std::vector<Link>& links) {
    ColorOrder order = section.order;
    QStringList lines;
    for (const QString& line : section.lines) {
        QString name;
        TNameValueList::NameOf(line, &name);
        if (SameWord(name, QLatin1String("type")))
            order = SameWord(line.mid(name.size() + 1), QLatin1String("BGR")) ? ColorOrder::BGR
                                                                              : ColorOrder::RGB;
        else if (!SameWord(name, QLatin1String("class")))
            lines.append(line);
    }
    for (const QString& line : lines) {
        const qsizetype eq = line.indexOf(u'=');
        if (eq < 0) continue;
        const QString name = section.prefix + line.left(eq);
        const QString value = line.mid(eq + 1);
        if (const auto target = ColorLinkTarget(value))
            links.push_back({name, ColorId(*target)});
        else if (const auto color = ParseColorValue(value, order))
            Enter(name, *color);
    }
}

void TColorTable::ResolveLinks(std::vector<Link>& links) {
    bool resolved = true;
    while (resolved && !links.empty()) {
        resolved = false;
        for (auto i = links.size(); i-- > 0;) {
            const ColorItem* target = hash_.Find(links[i].target);
            if (!target || target->Index == ColorItem::kPending) continue;
            const quint32 color = target->Color;
            Enter(links[i].name, color);
            links.erase(links.begin() + qsizetype(i));
            resolved = true;
        }
    }
}

void TColorTable::Enter(const QString& name, quint32 color) {
    names_.SetValue(name, QString::number(color));
    const quint32 id = ColorId(name);
    hash_.Put(id, ColorItem{name, names_.IndexOfName(name), color, id});
}

quint32 TColorTable::LookUp(quint32 id) const {
    const ColorItem* item = hash_.Find(id);
    if (!item || item->Index == ColorItem::kPending) {
        RdLog(QStringLiteral("warning non-color: [%1]").arg(id, 0, 16));
        return kUndefinedColor;
    }
    // A name may be linked to a system colour: paint its current value.
    return ResolveSystemColor(item->Color);
}

bool TColorTable::IdentToColor(const QString& name, quint32& value) {
    const auto number = NumberName(name);
    const quint32 id = number ? *number : ColorId(name);
    std::lock_guard lock(hashLock_);
    if (const ColorItem* item = hash_.Find(id)) {
        value = item->Id;
        return true;
    }
    if (!number) {
        hash_.Put(id, ColorItem{name, ColorItem::kPending, kUndefinedColor, id});
        RdLog(QStringLiteral("warning non-color: %1 [%2]").arg(name).arg(id, 0, 16));
    }
    value = id;
    return true;
}

bool TColorTable::ColorToIdent(quint32 value, QString& name) const {
    std::lock_guard lock(hashLock_);
    const ColorItem* item = hash_.Find(value);
    if (!item) return false;
    name = item->Name;
    return true;
}

quint32 TColorTable::ColorToRGB(quint32 value) const {
    if ((value >> 24) < 0xFF) return value;
    if (IsSystemColor(value)) return ResolveSystemColor(value);
    std::lock_guard lock(hashLock_);
    return LookUp(value);
}

QStringList TColorTable::GetColorValues() const {
    QStringList names;
    {
        std::lock_guard lock(namesLock_);
        for (int i = 0; i < names_.Count(); ++i)
            names.append(names_.Names(i));
    }
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
    for (const StandardColor& standard : StandardColors())
        names.append(QString::fromUtf16(standard.name));
    return names;
}

int TColorTable::NameCount() const {
    std::lock_guard lock(namesLock_);
    return names_.Count();
}

TColorTable& SkinColors() {
    static TColorTable table;
    return table;
}

void MergeVclColor() {
    SkinColors().MergeVclColor();
}

bool IdentToColor(const QString& name, quint32& value) {
    return SkinColors().IdentToColor(name, value);
}

bool ColorToIdent(quint32 value, QString& name) {
    return SkinColors().ColorToIdent(value, name);
}

quint32 ColorToRGB(quint32 value) {
    return SkinColors().ColorToRGB(value);
}

}  // namespace qpt
