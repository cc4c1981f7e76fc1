#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "output/holder/BmpRows.h"

namespace qpt::holder {

// What the holder serves: the bytes the program handed over (a BMP file or
// UTF-8 text), mapped in place, and for a picture its PNG once encoded. The
// PNG is set by the encoding thread and read by the serving one.
class HeldContent {
public:
    enum class PngState { Encoding, Ready, Failed };

    HeldContent() = default;
    ~HeldContent();
    HeldContent(const HeldContent&) = delete;
    HeldContent& operator=(const HeldContent&) = delete;

    // Maps the content descriptor. False when it cannot be read, or when a
    // picture is not a BMP the holder knows.
    bool Load(int fd, bool picture);

    bool IsPicture() const { return picture_; }
    std::span<const uint8_t> Bytes() const { return {data_, size_}; }
    const TIEPixelView& Rows() const { return rows_; }

    PngState Png() const { return pngState_.load(std::memory_order_acquire); }
    // Valid once Png() is Ready.
    std::span<const uint8_t> PngBytes() const { return png_; }
    // Empty bytes mean that encoding failed.
    void SetPng(std::vector<uint8_t> bytes);

private:
    bool picture_ = false;
    const uint8_t* data_ = nullptr;
    std::size_t size_ = 0;
    TIEPixelView rows_;
    std::vector<uint8_t> png_;
    std::atomic<PngState> pngState_{PngState::Encoding};
};

}  // namespace qpt::holder
