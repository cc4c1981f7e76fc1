#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace qpt {

// Delivers rows of equal size in order from any starting row. Each band of
// a banded compression has its own producer, used by one thread only.
class TIERowProducer {
public:
    virtual ~TIERowProducer() = default;
    virtual size_t RowBytes() const = 0;
    // The next call of Next delivers row y.
    virtual void Start(int y) = 0;
    // Writes RowBytes() bytes and moves to the following row.
    virtual void Next(uint8_t* out) = 0;
};

using TIERowProducerFactory = std::function<std::unique_ptr<TIERowProducer>()>;

// One zlib stream made of bands compressed on separate threads. Each band
// is a raw deflate run primed with the last 32 KiB of the data before it and
// ended on a byte boundary by a sync flush (the last band by the final
// block), so the bands join into one stream that any inflater reads, at a
// ratio within a fraction of a percent of a single pass. Joined in order,
// the bands' bytes are the whole zlib stream: the first begins with its
// header, the last ends with its checksum.
//
// `rows` rows go into `bands` parts (clamped to 1..rows); band 0 runs on the
// calling thread. Empty on failure (out of memory, a zlib error).
std::vector<std::vector<uint8_t>> IEDeflateInBands(int rows, int bands, int level,
                                                   const TIERowProducerFactory& producer);

}  // namespace qpt
