#include "skin/PngImageData.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include "skin/Crc64.h"
#include "support/DebugOutput.h"

namespace qpt::PngShare {

namespace {

struct ShareList {
    std::mutex lock;
    std::vector<TPngImageData*> entries;  // sorted by key
};

ShareList& List() {
    static ShareList* list = new ShareList;  // outlives every static picture
    return *list;
}

std::vector<TPngImageData*>::iterator Find(ShareList& list, uint64_t key) {
    return std::lower_bound(list.entries.begin(), list.entries.end(), key,
                            [](const TPngImageData* entry, uint64_t k) { return entry->Key < k; });
}

void Erase(ShareList& list, TPngImageData* data) {
    auto at = Find(list, data->Key);
    while (at != list.entries.end() && (*at)->Key == data->Key && *at != data)
        ++at;
    if (at != list.entries.end() && *at == data) list.entries.erase(at);
}

}  // namespace

uint64_t KeyOf(const QImage& pixels) {
    const int32_t header[3] = {pixels.width(), pixels.height(), int32_t(pixels.format())};
    uint64_t key = Crc64(header, sizeof header);
    const size_t rowBytes = size_t(pixels.width()) * 4;
    for (int y = 0; y < pixels.height(); ++y)
        key = Crc64(pixels.constScanLine(y), rowBytes, key);
    return key;
}

TPngImageData* Enter(QImage pixels) {
    const uint64_t key = KeyOf(pixels);
    ShareList& list = List();
    std::lock_guard guard(list.lock);
    auto at = Find(list, key);
    if (at != list.entries.end() && (*at)->Key == key && (*at)->Pixels == pixels) {
        (*at)->RefCount.fetch_add(1);
        return *at;
    }
    auto* data = new TPngImageData;
    data->Key = key;
    data->RefCount = 1;
    data->Pixels = std::move(pixels);
    list.entries.insert(at, data);
    return data;
}

void AddRef(TPngImageData* data) {
    std::lock_guard guard(List().lock);
    data->RefCount.fetch_add(1);
}

QImage Leave(TPngImageData* data) {
    ShareList& list = List();
    std::lock_guard guard(list.lock);
    const int32_t count = data->RefCount.load();
    if (count <= 0) {
        DebugOutput(QStringLiteral("PNG, ShareImageData.RefCount <= 0"));
        return data->Pixels.copy();
    }
    if (count > 1) {
        data->RefCount.fetch_sub(1);
        return data->Pixels.copy();
    }
    Erase(list, data);
    QImage pixels = std::move(data->Pixels);
    delete data;
    return pixels;
}

void Release(TPngImageData* data) {
    ShareList& list = List();
    std::lock_guard guard(list.lock);
    if (data->RefCount.fetch_sub(1) > 1) return;
    Erase(list, data);
    delete data;
}

size_t EntryCount() {
    std::lock_guard guard(List().lock);
    return List().entries.size();
}

}  // namespace qpt::PngShare
