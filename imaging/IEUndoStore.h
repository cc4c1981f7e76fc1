#pragma once

#include <QIODevice>
#include <QString>
#include <memory>
#include <vector>

#include "imaging/IEBitmap.h"

namespace qpt {

enum TIEUndoSource : uint8_t {
    ieuUnknown = 0,
    ieuImage = 1,
    ieuSelection = 2,
    ieuObject = 3,
    ieuLayer = 4,
    ieuFullLayer = 5,
    ieuObjectsAndLayers = 6,
};

struct TIEUndoStoreInfo {
    QString Caption;
    TIEUndoSource Source = ieuUnknown;
    int Aux = 0;  // the selection state
    int LayerIndex = -1;
    int LayerCurrent = -1;
};

// What one step holds: a picture for image steps, a stream for the others.
struct TIEUndoObject {
    std::unique_ptr<TIEBitmap> Bitmap;
    std::unique_ptr<QIODevice> Stream;
    bool IsEmpty() const { return !Bitmap && !Stream; }
};

// A stack of steps, index 0 the oldest; the store owns the objects.
class TIEUndoStore {
public:
    int Count() const { return int(infos_.size()); }
    const TIEUndoStoreInfo& Info(int index) const { return infos_[size_t(index)]; }
    TIEUndoObject& Object(int index) { return objects_[size_t(index)]; }

    // Drops the oldest entries until there is room under limit, then adds.
    void Add(TIEUndoObject object, TIEUndoStoreInfo info, int limit);
    void Push(TIEUndoObject object, TIEUndoStoreInfo info);
    // Removes an entry, handing its object to the caller.
    TIEUndoObject Take(int index);
    void Delete(int index) { Take(index); }
    void Clear();

private:
    std::vector<TIEUndoObject> objects_;
    std::vector<TIEUndoStoreInfo> infos_;
};

}  // namespace qpt
