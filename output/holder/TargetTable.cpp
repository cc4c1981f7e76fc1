#include "output/holder/TargetTable.h"

namespace qpt::holder {

namespace {

std::span<const uint8_t> WordBytes(const uint32_t* words, std::size_t count) {
    return {reinterpret_cast<const uint8_t*>(words), count * sizeof(uint32_t)};
}

}  // namespace

TargetTable::TargetTable(const Atoms& atoms, const HeldContent& content, xcb_timestamp_t ownedSince)
    : atoms_(atoms), content_(content), ownedSince_(ownedSince) {
    targets_ = {atoms.targets, atoms.multiple, atoms.timestamp};
    if (content.IsPicture())
        targets_.insert(targets_.end(), {atoms.png, atoms.bmp});
    else
        targets_.insert(targets_.end(), {atoms.utf8String, atoms.textPlainUtf8, atoms.textPlain});
}

Answer TargetTable::Data(xcb_atom_t type, std::span<const uint8_t> bytes) const {
    return {Answer::Ready, type, 8, bytes};
}

Answer TargetTable::For(xcb_atom_t target) const {
    if (target == atoms_.targets)
        return {Answer::Ready, XCB_ATOM_ATOM, 32, WordBytes(targets_.data(), targets_.size())};
    if (target == atoms_.timestamp)
        return {Answer::Ready, XCB_ATOM_INTEGER, 32, WordBytes(&ownedSince_, 1)};
    if (content_.IsPicture()) {
        if (target == atoms_.bmp) return Data(target, content_.Bytes());
        if (target != atoms_.png) return {};
        switch (content_.Png()) {
            case HeldContent::PngState::Ready:
                return Data(target, content_.PngBytes());
            case HeldContent::PngState::Encoding:
                return {Answer::Waiting, XCB_ATOM_NONE, 8, {}};
            case HeldContent::PngState::Failed:
                return {};
        }
        return {};
    }
    if (target == atoms_.utf8String || target == atoms_.textPlainUtf8 || target == atoms_.textPlain)
        return Data(target, content_.Bytes());
    return {};
}

std::vector<xcb_atom_t> TargetTable::KeptTargets() const {
    if (content_.IsPicture()) return {atoms_.png};
    return {atoms_.utf8String, atoms_.textPlainUtf8, atoms_.textPlain};
}

}  // namespace qpt::holder
