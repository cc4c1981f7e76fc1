#include "output/holder/PngEncoding.h"

#include <sys/eventfd.h>

#include <thread>

#include "imaging/encode/IEPngEncoder.h"

namespace qpt::holder {

void StartPngEncoding(HeldContent& content, int readyFd) {
    std::thread([&content, readyFd] {
        const TIEPixelView& rows = content.Rows();
        const TIEPngOptions options{IEHasAlpha(rows.Layout) ? TIEAlphaOut::FromPixels
                                                            : TIEAlphaOut::None};
        std::vector<uint8_t> png;
        if (!IEEncodePng(rows, png, options)) png.clear();
        content.SetPng(std::move(png));
        ::eventfd_write(readyFd, 1);
    }).detach();
}

}  // namespace qpt::holder
