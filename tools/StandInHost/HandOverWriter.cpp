#include "HandOverWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>

#include "support/MainIni.h"
#include "support/Paths.h"

namespace qpt::standin {

QImage LoadPicture(const QString& path) {
    if (path.endsWith(".svg", Qt::CaseInsensitive)) {
        QSvgRenderer renderer(path);
        if (!renderer.isValid()) return {};
        QImage image(renderer.defaultSize(), QImage::Format_RGB888);
        image.fill(Qt::white);
        QPainter painter(&image);
        renderer.render(&painter);
        return image;
    }
    return QImage(path);
}

QString SamplePicturePath() {
    return QDir(QCoreApplication::applicationDirPath()).filePath("sample-screenshot.svg");
}

bool TakePicture(const HostOptions& options, QImage* picture, QRect* rect) {
    QScreen* screen = QGuiApplication::primaryScreen();
    if (options.grab) {
        *picture = screen
                       ->grabWindow(0, options.grab->x(), options.grab->y(), options.grab->width(),
                                    options.grab->height())
                       .toImage();
        *rect = *options.grab;
        return !picture->isNull();
    }
    *picture = LoadPicture(options.picture.isEmpty() ? SamplePicturePath() : options.picture);
    if (picture->isNull()) return false;
    QRect placed(QPoint(), picture->size());
    placed.moveCenter(screen->availableGeometry().center());
    if (options.at) placed.moveTopLeft(*options.at);
    *rect = placed;
    return true;
}

QString WriteHandOver(const QImage& picture, const QRect& rect) {
    const QString temp = GetTempFolder();
    if (temp.isEmpty()) return "no private temporary folder";
    // The host captures the screen, which has no transparency: a 24-bit BMP.
    if (!picture.convertToFormat(QImage::Format_RGB888).save(temp + "QPTPinTemp.bmp", "BMP"))
        return "cannot write " + temp + "QPTPinTemp.bmp";
    WriteMainIni("StartPin", "Left", QString::number(rect.left()));
    WriteMainIni("StartPin", "Top", QString::number(rect.top()));
    WriteMainIni("StartPin", "Right", QString::number(rect.left() + rect.width()));
    WriteMainIni("StartPin", "Bottom", QString::number(rect.top() + rect.height()));
    return {};
}

}  // namespace qpt::standin
