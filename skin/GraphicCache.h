#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "skin/BaseHash.h"

namespace qpt {

class TRdGraphic;

// One graphic object per picture name for the whole process. Names in square
// brackets are descriptions (sections of class image), all others picture
// files of the packages. An object, once handed out, lives as long as the
// cache and keeps its identity: a new skin refills it in place, so whatever
// points at it shows the new skin after a repaint.
class TGraphicCache {
public:
    enum class Kind { Picture, Description };
    // Makes the empty object for a name; none means the name gets no object.
    using Factory = std::function<std::unique_ptr<TRdGraphic>(Kind)>;
    // The bytes of a picture file; empty when it is missing.
    using PictureReader = std::function<QByteArray(const QString& name)>;
    // The lines of a description; empty when no section has that name.
    using DescriptionReader = std::function<QStringList(const QString& name)>;

    TGraphicCache(Factory factory, PictureReader pictures, DescriptionReader descriptions);
    ~TGraphicCache();

    static Kind KindOf(const QString& name);

    // The cached object, made and filled on the first request; a missing
    // picture stays an empty one and is not read again until Reload.
    TRdGraphic* Get(const QString& name);
    // Refills every cached object in place: pictures first, so that the
    // descriptions drawing through them see the new pixels.
    void Reload();
    // Destroys every object: only when nobody can draw any more.
    void Clear();
    int Count() const;

private:
    struct Entry {
        QString name;
        Kind kind;
        std::unique_ptr<TRdGraphic> graphic;
    };

    void Fill(const QString& name, Kind kind, TRdGraphic& graphic) const;

    Factory factory_;
    PictureReader pictures_;
    DescriptionReader descriptions_;
    mutable std::mutex lock_;
    TStringHash index_{1024};  // name (case sensitive) -> position in entries_
    std::vector<Entry> entries_;
};

}  // namespace qpt
