#include "skin/GraphicCache.h"

#include "skin/RdGraphic.h"

namespace qpt {

TGraphicCache::TGraphicCache(Factory factory, PictureReader pictures,
                             DescriptionReader descriptions)
    : factory_(std::move(factory)),
      pictures_(std::move(pictures)),
      descriptions_(std::move(descriptions)) {}

TGraphicCache::~TGraphicCache() = default;

TGraphicCache::Kind TGraphicCache::KindOf(const QString& name) {
    return name.startsWith(u'[') && name.endsWith(u']') ? Kind::Description : Kind::Picture;
}

// Filling runs without the cache's lock held: a description may resolve other
// names through this cache while it loads, and must not wait on itself.
// Nothing to read empties the object, so a name missing from a new skin does
// not keep the old one's content.
void TGraphicCache::Fill(const QString& name, Kind kind, TRdGraphic& graphic) const {
    if (kind == Kind::Description) {
        const QStringList lines = descriptions_(name);
        if (lines.isEmpty())
            graphic.Assign(nullptr);
        else
            graphic.LoadFromText(lines);
    } else {
        const QByteArray bytes = pictures_(name);
        if (bytes.isEmpty())
            graphic.Assign(nullptr);
        else
            graphic.LoadFromBytes(bytes);
    }
}

TRdGraphic* TGraphicCache::Get(const QString& name) {
    TRdGraphic* graphic = nullptr;
    const Kind kind = KindOf(name);
    {
        std::lock_guard lock(lock_);
        if (const int* at = index_.Find(name)) return entries_[*at].graphic.get();
        std::unique_ptr<TRdGraphic> made = factory_(kind);
        if (!made) return nullptr;
        graphic = made.get();
        index_.Add(name, int(entries_.size()));
        entries_.push_back(Entry{name, kind, std::move(made)});
    }
    Fill(name, kind, *graphic);
    return graphic;
}

void TGraphicCache::Reload() {
    std::vector<std::pair<QString, TRdGraphic*>> pictures;
    std::vector<std::pair<QString, TRdGraphic*>> descriptions;
    {
        std::lock_guard lock(lock_);
        for (const Entry& entry : entries_)
            (entry.kind == Kind::Picture ? pictures : descriptions)
                .emplace_back(entry.name, entry.graphic.get());
    }
    for (const auto& [name, graphic] : pictures)
        Fill(name, Kind::Picture, *graphic);
    for (const auto& [name, graphic] : descriptions)
        Fill(name, Kind::Description, *graphic);
}

void TGraphicCache::Clear() {
    std::vector<Entry> dropped;
    {
        std::lock_guard lock(lock_);
        index_.Clear();
        dropped.swap(entries_);
    }
    // Descriptions point at pictures: let them go first.
    for (Entry& entry : dropped)
        if (entry.kind == Kind::Description) entry.graphic.reset();
}

int TGraphicCache::Count() const {
    std::lock_guard lock(lock_);
    return int(entries_.size());
}

}  // namespace qpt
