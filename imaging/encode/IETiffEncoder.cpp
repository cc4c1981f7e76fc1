#include "imaging/encode/IETiffEncoder.h"

#include "imaging/encode/IECodecLibraries.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace qpt {

namespace {

// A growing, seekable file in memory for libtiff's client interface.
struct TMemoryFile {
    std::vector<uint8_t> Bytes;
    uint64_t Position = 0;
    bool Failed = false;
};

TMemoryFile& FileOf(thandle_t handle) {
    return *static_cast<TMemoryFile*>(handle);
}

tmsize_t OnRead(thandle_t handle, void* data, tmsize_t size) {
    TMemoryFile& f = FileOf(handle);
    if (size < 0 || f.Position >= f.Bytes.size()) return 0;
    const size_t n = std::min<size_t>(size_t(size), f.Bytes.size() - f.Position);
    std::memcpy(data, f.Bytes.data() + f.Position, n);
    f.Position += n;
    return tmsize_t(n);
}

tmsize_t OnWrite(thandle_t handle, void* data, tmsize_t size) {
    TMemoryFile& f = FileOf(handle);
    if (size < 0) return -1;
    try {
        if (f.Position + uint64_t(size) > f.Bytes.size()) f.Bytes.resize(f.Position + size_t(size));
    } catch (const std::bad_alloc&) {
        f.Failed = true;
        return -1;
    }
    std::memcpy(f.Bytes.data() + f.Position, data, size_t(size));
    f.Position += uint64_t(size);
    return size;
}

toff_t OnSeek(thandle_t handle, toff_t offset, int whence) {
    TMemoryFile& f = FileOf(handle);
    const uint64_t base = whence == SEEK_CUR ? f.Position : whence == SEEK_END ? f.Bytes.size() : 0;
    f.Position = base + offset;
    return f.Position;
}

int OnClose(thandle_t) {
    return 0;
}
toff_t OnSize(thandle_t handle) {
    return FileOf(handle).Bytes.size();
}
int OnMap(thandle_t, void**, toff_t*) {
    return 0;
}
void OnUnmap(thandle_t, void*, toff_t) {}
// Failures show in the return values; nothing goes to the terminal.
int OnMessage(TIFF*, void*, const char*, const char*, va_list) {
    return 1;
}

TIFF* OpenInMemory(const TIETiffCalls& tiff, TMemoryFile& file) {
    TIFFOpenOptions* options = tiff.OpenOptionsAlloc();
    if (!options) return nullptr;
    tiff.OpenOptionsSetErrorHandlerExtR(options, OnMessage, nullptr);
    tiff.OpenOptionsSetWarningHandlerExtR(options, OnMessage, nullptr);
    TIFF* tif = tiff.ClientOpenExt("memory", "w", &file, OnRead, OnWrite, OnSeek, OnClose, OnSize,
                                   OnMap, OnUnmap, options);
    tiff.OpenOptionsFree(options);
    return tif;
}

bool SetFields(const TIETiffCalls& tiff, TIFF* tif, const TIEPixelView& view, TIEAlphaOut alpha) {
    const uint16_t samples = uint16_t(IEChannelsOut(alpha));
    bool ok = tiff.SetField(tif, TIFFTAG_IMAGEWIDTH, uint32_t(view.Width)) &&
              tiff.SetField(tif, TIFFTAG_IMAGELENGTH, uint32_t(view.Height)) &&
              tiff.SetField(tif, TIFFTAG_BITSPERSAMPLE, 8) &&
              tiff.SetField(tif, TIFFTAG_SAMPLESPERPIXEL, samples) &&
              tiff.SetField(tif, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB) &&
              tiff.SetField(tif, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) &&
              tiff.SetField(tif, TIFFTAG_COMPRESSION, COMPRESSION_LZW) &&
              tiff.SetField(tif, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL) &&
              tiff.SetField(tif, TIFFTAG_ROWSPERSTRIP, tiff.DefaultStripSize(tif, 0));
    if (ok && samples == 4) {
        const uint16_t extra[] = {EXTRASAMPLE_UNASSALPHA};
        ok = tiff.SetField(tif, TIFFTAG_EXTRASAMPLES, 1, extra);
    }
    return ok;
}

bool WriteRows(const TIETiffCalls& tiff, TIFF* tif, const TIEPixelView& view, TIEAlphaOut alpha) {
    // The predictor works in place, so each row is converted into a buffer
    // of ours even where the layout would already fit.
    std::vector<uint8_t> row(size_t(view.Width) * size_t(IEChannelsOut(alpha)));
    for (int y = 0; y < view.Height; ++y) {
        IERowToRgb(view, y, alpha, row.data());
        if (tiff.WriteScanline(tif, row.data(), uint32_t(y), 0) < 0) return false;
    }
    return true;
}

}  // namespace

bool IEEncodeTiff(const TIEPixelView& view, TIEAlphaOut alpha, TIEByteSink& sink) {
    const TIETiffCalls* tiff = IETiffCalls();
    if (!view.Valid() || !tiff) return false;
    TMemoryFile file;
    TIFF* tif = OpenInMemory(*tiff, file);
    if (!tif) return false;
    bool written = false;
    try {
        written = SetFields(*tiff, tif, view, alpha) && WriteRows(*tiff, tif, view, alpha) &&
                  tiff->WriteDirectory(tif);
    } catch (const std::bad_alloc&) {
        written = false;
    }
    tiff->Close(tif);
    return written && !file.Failed && sink.Write(file.Bytes.data(), file.Bytes.size());
}

bool IEEncodeTiff(const TIEPixelView& view, TIEAlphaOut alpha, std::vector<uint8_t>& out) {
    return IEEncodeIntoBuffer(out, [&](TIEByteSink& s) { return IEEncodeTiff(view, alpha, s); });
}

bool IEEncodeTiff(const TIEPixelView& view, TIEAlphaOut alpha, int fd) {
    return IEEncodeIntoFd(fd, [&](TIEByteSink& s) { return IEEncodeTiff(view, alpha, s); });
}

}  // namespace qpt
