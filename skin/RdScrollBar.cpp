#include "skin/RdScrollBar.h"

namespace qpt {

TRdScrollBar::TRdScrollBar(QWidget* parent) : TScrollBarControl<TRdCustomControl>(parent) {
    setAutoFillBackground(true);
}

}  // namespace qpt
