#include "tests/app/InProcessPin.h"

#include <gtest/gtest.h>

#include "support/MainIni.h"
#include "support/Paths.h"
#include "tests/common/WidgetApplication.h"

namespace qpt::testing {

void MakeTestApplication() {
    MakeWidgetApplication();
}

void WriteHandOver(const QImage& picture, const QRect& rect) {
    ASSERT_TRUE(picture.save(GetTempFolder() + "QPTPinTemp.bmp", "BMP"));
    WriteMainIni("StartPin", "Left", QString::number(rect.left()));
    WriteMainIni("StartPin", "Top", QString::number(rect.top()));
    WriteMainIni("StartPin", "Right", QString::number(rect.left() + rect.width()));
    WriteMainIni("StartPin", "Bottom", QString::number(rect.top() + rect.height()));
}

QImage PlainPicture(QSize size) {
    QImage image(size, QImage::Format_RGB888);
    image.fill(Qt::darkCyan);
    return image;
}

}  // namespace qpt::testing
