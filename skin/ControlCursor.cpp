#include "skin/ControlCursor.h"

#include <array>

namespace qpt {

Qt::CursorShape ControlCursorShape(int id) {
    // Ids count down from 0; the list starts at -1.
    static constexpr std::array<Qt::CursorShape, 22> kShapes = {
        Qt::BlankCursor,        Qt::ArrowCursor,     Qt::CrossCursor,   Qt::IBeamCursor,
        Qt::SizeAllCursor,      Qt::SizeBDiagCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor,
        Qt::SizeHorCursor,      Qt::UpArrowCursor,   Qt::WaitCursor,    Qt::DragMoveCursor,
        Qt::ForbiddenCursor,    Qt::SplitHCursor,    Qt::SplitVCursor,  Qt::DragCopyCursor,
        Qt::WaitCursor,         Qt::ForbiddenCursor, Qt::BusyCursor,    Qt::WhatsThisCursor,
        Qt::PointingHandCursor, Qt::SizeAllCursor};
    const int index = -id - 1;
    if (index < 0 || index >= int(kShapes.size())) return Qt::ArrowCursor;
    return kShapes[size_t(index)];
}

}  // namespace qpt
