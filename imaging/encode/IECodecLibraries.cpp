#include "imaging/encode/IECodecLibraries.h"

#include "support/loader/SharedLibrary.h"

namespace qpt {

std::optional<TIEJpegCalls> IELoadJpegCalls(const char* soname) {
    const TSharedLibrary l(soname);
    TIEJpegCalls c{};
    const bool complete =
        l.Find("jpeg_std_error", c.std_error) && l.Find("jpeg_CreateCompress", c.CreateCompress) &&
        l.Find("jpeg_set_defaults", c.set_defaults) && l.Find("jpeg_set_quality", c.set_quality) &&
        l.Find("jpeg_start_compress", c.start_compress) &&
        l.Find("jpeg_write_scanlines", c.write_scanlines) &&
        l.Find("jpeg_finish_compress", c.finish_compress) &&
        l.Find("jpeg_destroy_compress", c.destroy_compress);
    return complete ? std::optional(c) : std::nullopt;
}

std::optional<TIETiffCalls> IELoadTiffCalls(const char* soname) {
    const TSharedLibrary l(soname);
    TIETiffCalls c{};
    const bool complete =
        l.Find("TIFFOpenOptionsAlloc", c.OpenOptionsAlloc) &&
        l.Find("TIFFOpenOptionsSetErrorHandlerExtR", c.OpenOptionsSetErrorHandlerExtR) &&
        l.Find("TIFFOpenOptionsSetWarningHandlerExtR", c.OpenOptionsSetWarningHandlerExtR) &&
        l.Find("TIFFOpenOptionsFree", c.OpenOptionsFree) &&
        l.Find("TIFFClientOpenExt", c.ClientOpenExt) && l.Find("TIFFSetField", c.SetField) &&
        l.Find("TIFFDefaultStripSize", c.DefaultStripSize) &&
        l.Find("TIFFWriteScanline", c.WriteScanline) &&
        l.Find("TIFFWriteDirectory", c.WriteDirectory) && l.Find("TIFFClose", c.Close);
    return complete ? std::optional(c) : std::nullopt;
}

std::optional<TIEGifCalls> IELoadGifCalls(const char* soname) {
    const TSharedLibrary l(soname);
    TIEGifCalls c{};
    const bool complete = l.Find("EGifOpen", c.Open) &&
                          l.Find("GifMakeMapObject", c.MakeMapObject) &&
                          l.Find("GifFreeMapObject", c.FreeMapObject) &&
                          l.Find("EGifPutScreenDesc", c.PutScreenDesc) &&
                          l.Find("EGifPutImageDesc", c.PutImageDesc) &&
                          l.Find("EGifPutLine", c.PutLine) && l.Find("EGifCloseFile", c.CloseFile);
    return complete ? std::optional(c) : std::nullopt;
}

// The run-time names below are those of the interfaces the headers we build
// against describe.

const TIEJpegCalls* IEJpegCalls() {
    static const std::optional<TIEJpegCalls> calls = IELoadJpegCalls("libjpeg.so.62");
    return calls ? &*calls : nullptr;
}

const TIETiffCalls* IETiffCalls() {
    static const std::optional<TIETiffCalls> calls = IELoadTiffCalls("libtiff.so.6");
    return calls ? &*calls : nullptr;
}

const TIEGifCalls* IEGifCalls() {
    static const std::optional<TIEGifCalls> calls = IELoadGifCalls("libgif.so.7");
    return calls ? &*calls : nullptr;
}

}  // namespace qpt
