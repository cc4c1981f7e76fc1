#include "tools/SkinGallery/GalleryScale.h"

#include <QVariant>
#include <QtGlobal>

#include "skin/RdFont.h"

namespace qpt {

namespace {

int g_scale = 1;

}  // namespace

void SetGalleryScale(int scale) {
    g_scale = qMax(scale, 1);
}

int Scaled(int pixels) {
    return pixels * g_scale;
}

QSize Scaled(const QSize& size) {
    return size * g_scale;
}

void ScaleFonts(QObject* root) {
    if (g_scale == 1 || !root) return;
    QList<TRdFont*> fonts = root->findChildren<TRdFont*>();
    if (auto* font = qobject_cast<TRdFont*>(root)) fonts.append(font);
    for (TRdFont* font : fonts) {
        if (font->property("galleryScaled").toBool()) continue;
        font->setProperty("galleryScaled", true);
        font->SetHeight(font->Height() * g_scale);
    }
}

}  // namespace qpt
