#include "skin/ScaleForm.h"

#include <QWidget>
#include <cmath>

#include "skin/RdControl.h"
#include "skin/RdFont.h"
#include "support/Scale.h"

namespace qpt {

namespace {

// A font that takes its parent control's font is scaled with that one.
bool FollowsParent(const TRdFont& font) {
    if (!font.ParentFont()) return false;
    const auto* owner = qobject_cast<const QWidget*>(font.parent());
    return owner && qobject_cast<const TRdControl*>(owner->parentWidget());
}

}  // namespace

void ScaleSkinnedForm(QWidget* form) {
    if (!form || !ScaleActive()) return;
    ScaleControl(form);
    const double factor = GetScaleFactor();
    for (TRdFont* font : form->findChildren<TRdFont*>()) {
        if (FollowsParent(*font)) continue;
        font->SetHeight(int(std::lround(font->Height() * factor)));
    }
}

}  // namespace qpt
