#include "skin/RccCheck.h"

#include <zlib.h>

#include <cstring>
#include <vector>

namespace qpt {

namespace {

enum : quint16 { kZlib = 0x01, kDirectory = 0x02, kZstd = 0x04 };

// Big-endian reads that the caller has checked with Has().
class TRccBytes {
public:
    explicit TRccBytes(const QByteArray& bytes)
        : p_(reinterpret_cast<const uchar*>(bytes.constData())), size_(bytes.size()) {}
    qint64 Size() const { return size_; }
    bool Has(qint64 at, qint64 length) const {
        return at >= 0 && length >= 0 && at <= size_ && length <= size_ - at;
    }
    const uchar* At(qint64 at) const { return p_ + at; }
    quint16 U16(qint64 at) const { return quint16(p_[at] << 8 | p_[at + 1]); }
    quint32 U32(qint64 at) const { return quint32(U16(at)) << 16 | U16(at + 2); }

private:
    const uchar* p_;
    qint64 size_;
};

struct TRccLayout {
    qint64 Tree = 0, Data = 0, Names = 0;
    qint64 NodeSize = 0;  // the last-modified time follows from the second version on
    qint64 Nodes = 0;     // how many nodes fit between the tree and the end
};

bool ReadHeader(const TRccBytes& b, TRccLayout& l) {
    if (!b.Has(0, 20) || std::memcmp(b.At(0), "qres", 4) != 0) return false;
    const quint32 version = b.U32(4);
    if (version < 1 || version > 3) return false;
    if (version >= 3 && (!b.Has(20, 4) || (b.U32(20) & ~quint32(kZlib | kZstd)) != 0)) return false;
    l.Tree = b.U32(8), l.Data = b.U32(12), l.Names = b.U32(16);
    l.NodeSize = version >= 2 ? 22 : 14;
    if (l.Tree >= b.Size() || l.Data >= b.Size() || l.Names >= b.Size()) return false;
    l.Nodes = (b.Size() - l.Tree) / l.NodeSize;
    return l.Nodes > 0;
}

// A name: its length in UTF-16 units, its hash, then the units. Below the
// root a name must also be one step of a path, so that no two paths name
// one entry and no listing comes back to where it started: not empty, not
// "." or "..", no "/".
bool NameFits(const TRccBytes& b, const TRccLayout& l, quint32 offset, bool root) {
    const qint64 at = l.Names + offset;
    if (!b.Has(at, 6)) return false;
    const qint64 length = b.U16(at);
    if (!b.Has(at + 6, length * 2)) return false;
    if (root) return true;
    bool dots = length <= 2;
    for (qint64 i = 0; i < length; ++i) {
        const quint16 unit = b.U16(at + 6 + 2 * i);
        if (unit == u'/') return false;
        dots = dots && unit == u'.';
    }
    return length > 0 && !dots;
}

// Inflates without keeping anything, to learn that the stream ends and gives
// no more than it announced: the reader would double its buffer without end
// for a stream that goes on.
bool ZlibEntryFits(const uchar* data, qint64 length) {
    if (length < 4) return false;
    const qint64 announced =
        qint64(quint32(data[0] << 24 | data[1] << 16 | data[2] << 8 | data[3]));
    if (announced > kMaxRccEntrySize) return false;
    z_stream z{};
    if (inflateInit(&z) != Z_OK) return false;
    std::vector<Bytef> scratch(65536);
    z.next_in = const_cast<Bytef*>(data + 4);
    z.avail_in = uInt(length - 4);
    qint64 produced = 0;
    int status = Z_OK;
    while (status == Z_OK && produced <= announced) {
        z.next_out = scratch.data();
        z.avail_out = uInt(scratch.size());
        status = inflate(&z, Z_NO_FLUSH);
        produced += qint64(scratch.size() - z.avail_out);
    }
    inflateEnd(&z);
    return status == Z_STREAM_END && produced <= announced;
}

// The content size in a zstd frame header; -1 when it has none. The reader
// allocates exactly that much and decodes no further.
qint64 ZstdAnnouncedSize(const uchar* data, qint64 length) {
    if (length < 6 || std::memcmp(data, "\x28\xB5\x2F\xFD", 4) != 0) return -1;
    const uchar descriptor = data[4];
    const bool singleSegment = descriptor & 0x20;
    const int sizeField = descriptor >> 6;
    const int fieldBytes = sizeField == 0 ? (singleSegment ? 1 : 0) : 1 << sizeField;
    const int dictionaryBytes[] = {0, 1, 2, 4};
    const qint64 at = 5 + (singleSegment ? 0 : 1) + dictionaryBytes[descriptor & 3];
    if (fieldBytes == 0 || at + fieldBytes > length) return -1;
    quint64 size = 0;
    for (int i = fieldBytes - 1; i >= 0; --i)
        size = size << 8 | data[at + i];
    if (fieldBytes == 2) size += 256;
    return size > quint64(kMaxRccEntrySize) ? kMaxRccEntrySize + 1 : qint64(size);
}

// An entry's data: its length, then its bytes.
bool DataFits(const TRccBytes& b, const TRccLayout& l, quint32 offset, quint16 flags) {
    const qint64 at = l.Data + offset;
    if (!b.Has(at, 4)) return false;
    const qint64 length = b.U32(at);
    if (!b.Has(at + 4, length)) return false;
    if (flags & kZlib) return ZlibEntryFits(b.At(at + 4), length);
    if (flags & kZstd) {
        const qint64 size = ZstdAnnouncedSize(b.At(at + 4), length);
        return size >= 0 && size <= kMaxRccEntrySize;
    }
    return true;
}

// Children must follow their parent and be nobody else's, which also rules
// out loops; `pending` collects them for the walk.
bool ChildrenFit(const TRccBytes& b, const TRccLayout& l, qint64 node, qint64 at,
                 std::vector<bool>& seen, std::vector<qint64>& pending) {
    const qint64 count = b.U32(at + 6), first = b.U32(at + 10);
    if (count == 0) return true;
    if (first <= node || first > l.Nodes || count > l.Nodes - first) return false;
    for (qint64 child = first; child < first + count; ++child) {
        if (seen[size_t(child)]) return false;
        seen[size_t(child)] = true;
        pending.push_back(child);
    }
    return true;
}

bool TreeFits(const TRccBytes& b, const TRccLayout& l) {
    std::vector<bool> seen(size_t(l.Nodes));
    std::vector<qint64> pending{0};
    seen[0] = true;
    while (!pending.empty()) {
        const qint64 node = pending.back();
        pending.pop_back();
        const qint64 at = l.Tree + node * l.NodeSize;
        const quint16 flags = b.U16(at + 4);
        if ((flags & ~(kZlib | kDirectory | kZstd)) != 0 || !NameFits(b, l, b.U32(at), node == 0))
            return false;
        const bool fits = (flags & kDirectory) ? ChildrenFit(b, l, node, at, seen, pending)
                                               : node != 0 && DataFits(b, l, b.U32(at + 10), flags);
        if (!fits) return false;
    }
    return true;
}

}  // namespace

bool IsSoundRccPackage(const QByteArray& bytes) {
    const TRccBytes b(bytes);
    TRccLayout layout;
    return b.Size() <= kMaxRccFileSize && ReadHeader(b, layout) && TreeFits(b, layout);
}

}  // namespace qpt
