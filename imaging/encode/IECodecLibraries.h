#pragma once

// jpeglib.h needs size_t and FILE declared before it.
#include <cstddef>
#include <cstdio>
//
#include <gif_lib.h>
#include <jpeglib.h>
#include <tiffio.h>

#include <optional>

namespace qpt {

// The calls each encoder makes into its format's library. The libraries,
// and the four that the TIFF one needs in turn, are opened when the first
// picture is encoded in that format, so that a start that ends in a copy or
// a plain PNG save never maps or relocates them.

struct TIEJpegCalls {
    decltype(&jpeg_std_error) std_error;
    decltype(&jpeg_CreateCompress) CreateCompress;
    decltype(&jpeg_set_defaults) set_defaults;
    decltype(&jpeg_set_quality) set_quality;
    decltype(&jpeg_start_compress) start_compress;
    decltype(&jpeg_write_scanlines) write_scanlines;
    decltype(&jpeg_finish_compress) finish_compress;
    decltype(&jpeg_destroy_compress) destroy_compress;
};

struct TIETiffCalls {
    decltype(&TIFFOpenOptionsAlloc) OpenOptionsAlloc;
    decltype(&TIFFOpenOptionsSetErrorHandlerExtR) OpenOptionsSetErrorHandlerExtR;
    decltype(&TIFFOpenOptionsSetWarningHandlerExtR) OpenOptionsSetWarningHandlerExtR;
    decltype(&TIFFOpenOptionsFree) OpenOptionsFree;
    decltype(&TIFFClientOpenExt) ClientOpenExt;
    decltype(&TIFFSetField) SetField;
    decltype(&TIFFDefaultStripSize) DefaultStripSize;
    decltype(&TIFFWriteScanline) WriteScanline;
    decltype(&TIFFWriteDirectory) WriteDirectory;
    decltype(&TIFFClose) Close;
};

struct TIEGifCalls {
    decltype(&EGifOpen) Open;
    decltype(&GifMakeMapObject) MakeMapObject;
    decltype(&GifFreeMapObject) FreeMapObject;
    decltype(&EGifPutScreenDesc) PutScreenDesc;
    decltype(&EGifPutImageDesc) PutImageDesc;
    decltype(&EGifPutLine) PutLine;
    decltype(&EGifCloseFile) CloseFile;
};

// The library of that run-time name, when it opens and has every call.
std::optional<TIEJpegCalls> IELoadJpegCalls(const char* soname);
std::optional<TIETiffCalls> IELoadTiffCalls(const char* soname);
std::optional<TIEGifCalls> IELoadGifCalls(const char* soname);

// The installed library, loaded once on whichever thread asks first; nullptr
// when it is missing or lacks a call, and the encode then fails as a write
// error would.
const TIEJpegCalls* IEJpegCalls();
const TIETiffCalls* IETiffCalls();
const TIEGifCalls* IEGifCalls();

}  // namespace qpt
