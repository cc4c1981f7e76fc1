// The zoom buttons take a step of the table at once; the pinned window is
// resized by a request it handles after the click has returned and the
// button has been drawn.
#include "annotate/FormTools.h"
#include "annotate/ZoomSteps.h"
#include "app/session/SessionForms.h"
#include "app/session/SessionMessages.h"
#include "app/session/SessionState.h"
#include "skin/RdImageButton.h"
#include "support/ProductStat.h"

namespace qpt {

namespace {

void Apply(const TZoomClick& click, TRdImageButton* enlarge, TRdImageButton* shrink) {
    ZoomStep = click.step;
    if (click.enlargeEnabled) enlarge->setEnabled(*click.enlargeEnabled);
    if (click.shrinkEnabled) shrink->setEnabled(*click.shrinkEnabled);
}

}  // namespace

void TFormTools::Rdbtn_enlargeClick() {
    SendUsageCode(QStringLiteral("a318"));
    Apply(EnlargeStep(ZoomStep), Rdbtn_enlarge, Rdbtn_shrink);
    PostSessionMessage(FormPinned, kMsgZoomStep, 1, 0);
}

void TFormTools::Rdbtn_shrinkClick() {
    SendUsageCode(QStringLiteral("a317"));
    Apply(ShrinkStep(ZoomStep), Rdbtn_enlarge, Rdbtn_shrink);
    PostSessionMessage(FormPinned, kMsgZoomStep, 0, 0);
}

}  // namespace qpt
