#include "imaging/IEUndoStore.h"

namespace qpt {

void TIEUndoStore::Add(TIEUndoObject object, TIEUndoStoreInfo info, int limit) {
    while (Count() > 0 && Count() >= limit)
        Delete(0);
    Push(std::move(object), std::move(info));
}

void TIEUndoStore::Push(TIEUndoObject object, TIEUndoStoreInfo info) {
    objects_.push_back(std::move(object));
    infos_.push_back(std::move(info));
}

TIEUndoObject TIEUndoStore::Take(int index) {
    TIEUndoObject object = std::move(objects_[size_t(index)]);
    objects_.erase(objects_.begin() + index);
    infos_.erase(infos_.begin() + index);
    return object;
}

void TIEUndoStore::Clear() {
    objects_.clear();
    infos_.clear();
}

}  // namespace qpt
