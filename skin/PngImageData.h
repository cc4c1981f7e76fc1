#pragma once

#include <QImage>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace qpt {

// Decoded pixels shared by every TPngImage copied from one another. Skins use
// the same picture in many controls, so equal pictures are held once, found
// by a CRC-64 of their layout and pixels.
struct TPngImageData {
    uint64_t Key = 0;
    std::atomic<int32_t> RefCount{0};
    QImage Pixels;
};

// The process-wide list of shared pixels, guarded by one lock.
namespace PngShare {

// Enters `pixels` with one reference. When an entry with the same key is
// there already, `pixels` are dropped and that entry is used instead.
TPngImageData* Enter(QImage pixels);
void AddRef(TPngImageData* data);
// Leaves sharing before a write: the last holder takes the buffers back and
// the entry goes; any other holder gets a private deep copy.
QImage Leave(TPngImageData* data);
// Drops one reference; the last one deletes the entry.
void Release(TPngImageData* data);
size_t EntryCount();

uint64_t KeyOf(const QImage& pixels);

}  // namespace PngShare

}  // namespace qpt
