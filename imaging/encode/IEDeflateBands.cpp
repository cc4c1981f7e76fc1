#include "imaging/encode/IEDeflateBands.h"

#include <zlib.h>

#include <algorithm>
#include <thread>

#include "imaging/IEVectorLoops.h"

namespace qpt {

namespace {

constexpr size_t kWindow = 32768;
constexpr size_t kOutStep = 256 * 1024;

struct TBand {
    int First = 0, End = 0;
    bool Last = false;
    std::vector<uint8_t> Bytes;
    size_t RowBytes = 0;
    uLong Adler = 1;
    bool Ok = false;
};

class TRawDeflate {
public:
    explicit TRawDeflate(int level) {
        ok_ = deflateInit2(&z_, level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) == Z_OK;
    }
    ~TRawDeflate() {
        if (ok_) deflateEnd(&z_);
    }
    TRawDeflate(const TRawDeflate&) = delete;
    TRawDeflate& operator=(const TRawDeflate&) = delete;

    bool Ok() const { return ok_; }
    void Prime(const uint8_t* data, size_t size) {
        if (ok_ && size > 0) ok_ = deflateSetDictionary(&z_, data, uInt(size)) == Z_OK;
    }
    // Compresses `size` bytes onto out[used...], growing out as needed.
    // Z_NO_FLUSH may leave work pending; Z_SYNC_FLUSH and Z_FINISH end on a
    // byte boundary.
    bool Put(const uint8_t* data, size_t size, int flush, std::vector<uint8_t>& out, size_t& used) {
        z_.next_in = const_cast<Bytef*>(data);
        z_.avail_in = uInt(size);
        for (;;) {
            if (out.size() - used < kOutStep / 4)
                out.resize(out.size() + kOutStep + out.size() / 2);
            z_.next_out = out.data() + used;
            z_.avail_out = uInt(out.size() - used);
            const int result = deflate(&z_, flush);
            used = out.size() - z_.avail_out;
            if (result == Z_STREAM_ERROR) return ok_ = false;
            if (flush == Z_FINISH ? result == Z_STREAM_END : z_.avail_out > 0 && !z_.avail_in)
                return ok_;
        }
    }

private:
    z_stream z_{};
    bool ok_ = false;
};

constexpr uint32_t kAdlerBase = 65521;
// The longest run whose weighted byte sum still fits in 32 bits.
constexpr size_t kAdlerBlock = 5552;

// zlib's checksum, as a weighted sum that vectorises: over a block of n
// bytes, a grows by their sum and b by n times the old a plus each byte
// times its distance from the block's end. zlib's own loop is serial and
// took a twelfth of the encoder's time.
QPT_CLONED_LOOP uLong Adler32(uLong adler, const uint8_t* data, size_t size) {
    uint32_t a = adler & 0xFFFF, b = adler >> 16;
    while (size > 0) {
        const size_t n = std::min(size, kAdlerBlock);
        uint32_t sum = 0, weighted = 0;
        for (size_t i = 0; i < n; ++i) {
            sum += data[i];
            weighted += uint32_t(n - i) * data[i];
        }
        b = uint32_t((b + uint64_t(n) * a + weighted) % kAdlerBase);
        a = (a + sum) % kAdlerBase;
        data += n, size -= n;
    }
    return uLong(b) << 16 | a;
}

// The dictionary: the last window of the data just before the band.
std::vector<uint8_t> Dictionary(TIERowProducer& rows, int first) {
    const size_t rowBytes = rows.RowBytes();
    const int count = int(std::min<size_t>(size_t(first), (kWindow + rowBytes - 1) / rowBytes));
    std::vector<uint8_t> data(size_t(count) * rowBytes);
    rows.Start(first - count);
    for (int i = 0; i < count; ++i)
        rows.Next(data.data() + size_t(i) * rowBytes);
    if (data.size() > kWindow) data.erase(data.begin(), data.end() - kWindow);
    return data;
}

// The zlib header announces the level class and carries its own check.
void PutHeader(int level, std::vector<uint8_t>& out) {
    const int levelClass = level < 2 ? 0 : level < 6 ? 1 : level == 6 ? 2 : 3;
    const unsigned header = 0x7800u | unsigned(levelClass) << 6;
    const unsigned check = (31 - header % 31) % 31;
    out.push_back(uint8_t(header >> 8));
    out.push_back(uint8_t((header | check) & 0xFF));
}

void Compress(TBand& band, int level, const TIERowProducerFactory& factory) {
    try {
        std::unique_ptr<TIERowProducer> rows = factory();
        TRawDeflate deflater(level);
        const std::vector<uint8_t> dictionary = Dictionary(*rows, band.First);
        deflater.Prime(dictionary.data(), dictionary.size());
        std::vector<uint8_t> row(rows->RowBytes());
        band.RowBytes = row.size();
        if (band.First == 0) PutHeader(level, band.Bytes);
        size_t used = band.Bytes.size();
        rows->Start(band.First);
        for (int y = band.First; y < band.End && deflater.Ok(); ++y) {
            rows->Next(row.data());
            band.Adler = Adler32(band.Adler, row.data(), row.size());
            const int flush = y + 1 < band.End ? Z_NO_FLUSH : band.Last ? Z_FINISH : Z_SYNC_FLUSH;
            deflater.Put(row.data(), row.size(), flush, band.Bytes, used);
        }
        band.Bytes.resize(used);
        band.Ok = deflater.Ok();
    } catch (const std::bad_alloc&) {
        band.Ok = false;
    }
}

void PutChecksum(const std::vector<TBand>& bands, std::vector<uint8_t>& out) {
    uLong adler = bands[0].Adler;
    for (size_t i = 1; i < bands.size(); ++i) {
        const auto length = z_off_t(bands[i].End - bands[i].First) * z_off_t(bands[i].RowBytes);
        adler = adler32_combine(adler, bands[i].Adler, length);
    }
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(uint8_t(adler >> shift));
}

void RunAll(std::vector<TBand>& bands, int level, const TIERowProducerFactory& factory) {
    std::vector<std::thread> threads;
    for (size_t i = 1; i < bands.size(); ++i) {
        try {
            threads.emplace_back(Compress, std::ref(bands[i]), level, std::cref(factory));
        } catch (const std::system_error&) {
            Compress(bands[i], level, factory);  // no thread to be had: do it here
        }
    }
    Compress(bands[0], level, factory);
    for (std::thread& t : threads)
        t.join();
}

}  // namespace

std::vector<std::vector<uint8_t>> IEDeflateInBands(int rows, int bands, int level,
                                                   const TIERowProducerFactory& producer) {
    if (rows < 1) return {};
    bands = std::clamp(bands, 1, rows);
    std::vector<TBand> parts(static_cast<size_t>(bands));
    for (int i = 0; i < bands; ++i) {
        parts[size_t(i)].First = int(int64_t(rows) * i / bands);
        parts[size_t(i)].End = int(int64_t(rows) * (i + 1) / bands);
    }
    parts.back().Last = true;
    RunAll(parts, level, producer);
    if (!std::all_of(parts.begin(), parts.end(), [](const TBand& b) { return b.Ok; })) return {};
    try {
        PutChecksum(parts, parts.back().Bytes);
    } catch (const std::bad_alloc&) {
        return {};
    }
    std::vector<std::vector<uint8_t>> out;
    for (TBand& band : parts)
        out.push_back(std::move(band.Bytes));
    return out;
}

}  // namespace qpt
