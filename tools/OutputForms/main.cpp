// Draws the output forms as a user meets them, on a real skin: the save-path
// panel and the tip after a copy.
//
//   OutputForms <classic|classic2> --png FILE [--skin-dir DIR]
//
// classic2 is the double-size skin, drawn with the interface scaled as the
// program scales it on a high-resolution screen.
#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>

#include "output/FormSavePath.h"
#include "output/TipForm.h"
#include "skin/RdEdit.h"
#include "skin/RdSkinStyle.h"
#include "support/Scale.h"
#include "tools/SkinGallery/GallerySkin.h"

namespace {

constexpr int kMargin = 24;

QImage SavePathPanel() {
    qpt::TFormSavePath panel;
    panel.FormCreate();
    // The same folder on every machine, so that the picture does not change.
    panel.edit_savepath->setText("/home/user/Pictures/Zelk Screenshot/");
    return panel.grab().toImage();
}

QImage Tip() {
    qpt::TTipForm tip;
    tip.FormShow();
    return tip.grab().toImage();
}

QImage Page(const QList<QPair<QString, QImage>>& forms, int scale) {
    QFont font("DejaVu Sans");
    font.setPixelSize(13 * scale);
    const int caption = QFontMetrics(font).height() + 6 * scale;
    int width = kMargin, height = 0;
    for (const auto& form : forms) {
        width += form.second.width() + kMargin;
        height = std::max(height, form.second.height());
    }
    QImage page(width, height + caption + 2 * kMargin, QImage::Format_RGB32);
    page.fill(QColor(0x5A, 0x6E, 0x82));  // a desktop the forms float over
    QPainter painter(&page);
    painter.setFont(font);
    painter.setPen(Qt::white);
    int x = kMargin;
    for (const auto& [name, picture] : forms) {
        painter.drawText(x, kMargin, picture.width(), caption, Qt::AlignLeft | Qt::AlignTop, name);
        painter.drawImage(x, kMargin + caption, picture);
        x += picture.width() + kMargin;
    }
    return page;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    // Settings of a fresh user, never the real ones.
    QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication app(argc, argv);

    int exitCode = 0;
    const auto command =
        qpt::ReadGalleryCommand(app, "OutputForms", "Write the picture to FILE.", true, exitCode);
    if (!command) return exitCode;
    qpt::SetScaleEnabled(command->Scale() == 2);
    const QImage page =
        Page({{"Save-path panel", SavePathPanel()}, {"Tip after a copy", Tip()}}, command->Scale());
    return qpt::WriteGalleryPng(page, *command, "OutputForms");
}
