#include "output/holder/HeldContent.h"

#include <sys/mman.h>
#include <sys/stat.h>

namespace qpt::holder {

HeldContent::~HeldContent() {
    if (size_ > 0) ::munmap(const_cast<uint8_t*>(data_), size_);
}

bool HeldContent::Load(int fd, bool picture) {
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) return false;
    picture_ = picture;
    size_ = std::size_t(st.st_size);
    if (size_ > 0) {
        void* map = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, fd, 0);
        if (map == MAP_FAILED) {
            size_ = 0;
            return false;
        }
        data_ = static_cast<const uint8_t*>(map);
    }
    if (!picture) return true;
    const std::optional<TIEPixelView> rows = ReadBmpRows(Bytes());
    if (!rows) return false;
    rows_ = *rows;
    return true;
}

void HeldContent::SetPng(std::vector<uint8_t> bytes) {
    const bool ok = !bytes.empty();
    png_ = std::move(bytes);
    pngState_.store(ok ? PngState::Ready : PngState::Failed, std::memory_order_release);
}

}  // namespace qpt::holder
