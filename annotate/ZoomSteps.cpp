#include "annotate/ZoomSteps.h"

namespace qpt {

TZoomClick EnlargeStep(int step) {
    TZoomClick click{step + 1, {}, {}};
    if (click.step >= 0 && click.step <= 15) {
        if (click.step > 0) click.shrinkEnabled = true;
        return click;
    }
    switch (click.step) {
        case 16:
            click.step = 20;
            break;
        case 21:
            click.step = 25;
            break;
        case 26:
            click.step = 30;
            break;
        case 31:
            click.step = 40;
            break;
        default:
            break;
    }
    if (click.step == 40) click.enlargeEnabled = false;
    if (click.step >= 1 && click.step <= 39) click.enlargeEnabled = click.shrinkEnabled = true;
    return click;
}

TZoomClick ShrinkStep(int step) {
    TZoomClick click{step - 1, {}, {}};
    switch (click.step) {
        case 19:
            click.step = 15;
            break;
        case 24:
            click.step = 20;
            break;
        case 29:
            click.step = 25;
            break;
        case 39:
            click.step = 30;
            break;
        default:
            break;
    }
    if (click.step <= 1)
        click.shrinkEnabled = false;
    else if (click.step <= 39)
        click.enlargeEnabled = click.shrinkEnabled = true;
    return click;
}

}  // namespace qpt
