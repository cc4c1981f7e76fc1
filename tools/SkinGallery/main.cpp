// Shows every skinned control in every state on a real skin.
//
//   SkinGallery <classic|classic2> [--png FILE] [--skin-dir DIR]
//
// With --png the gallery draws itself into the file and ends, without a
// display. The packages are read from DIR, by default the program folder's
// skin folder of this build.
#include <QApplication>
#include <cstdio>

#include "skin/RdSkinStyle.h"
#include "tools/SkinGallery/GalleryPage.h"
#include "tools/SkinGallery/GalleryScale.h"
#include "tools/SkinGallery/GallerySections.h"
#include "tools/SkinGallery/GallerySkin.h"

namespace {

bool WantsPng(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "--png") == 0) return true;
    return false;
}

void AddSections(qpt::TGalleryPage& page) {
    qpt::AddFormSkinSection(page);
    qpt::AddButtonSection(page);
    qpt::AddLabelSection(page);
    qpt::AddScrollSection(page);
    qpt::AddSliderSection(page);
    qpt::AddComboSection(page);
    qpt::AddMenuSection(page);
    qpt::AddHintSection(page);
}

}  // namespace

int main(int argc, char** argv) {
    // Writing a PNG needs no display; the user's choice of platform stands.
    const bool platformChosen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (WantsPng(argc, argv) && !platformChosen) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (!platformChosen && qEnvironmentVariableIsEmpty("DISPLAY") &&
               qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        std::fprintf(stderr, "SkinGallery: no display; write a picture with --png FILE\n");
        return 2;
    }
    // One picture pixel is one screen pixel, as in the program.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    QApplication app(argc, argv);

    int exitCode = 0;
    const auto command = qpt::ReadGalleryCommand(
        app, "SkinGallery", "Write the gallery to FILE and end.", false, exitCode);
    if (!command) return exitCode;
    qpt::SetGalleryScale(command->Scale());
    qpt::TGalleryPage page("Skinned controls on " + command->skin);
    AddSections(page);
    if (command->png.isEmpty()) {
        page.show();
        return app.exec();
    }
    return qpt::WriteGalleryPng(page.Render(), *command, "SkinGallery");
}
