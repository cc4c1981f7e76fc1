// Shows every skinned control in every state on a real skin.
//
//   SkinGallery <classic|classic2> [--png FILE] [--skin-dir DIR]
//
// With --png the gallery draws itself into the file and ends, without a
// display. The packages are read from DIR, by default the program folder's
// skin folder of this build.
#include <QApplication>
#include <QCommandLineParser>
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

    QCommandLineParser parser;
    parser.addPositionalArgument("skin", "classic or classic2");
    parser.addOption({"png", "Write the gallery to FILE and end.", "FILE"});
    parser.addOption({"skin-dir", "Folder of the skin packages.", "DIR", QPT_SKIN_DIR});
    parser.addHelpOption();
    parser.process(app);
    const QStringList skins = parser.positionalArguments();
    if (skins.size() != 1) {
        std::fprintf(stderr, "usage: SkinGallery <classic|classic2> [--png FILE]\n");
        return 2;
    }

    QString error;
    const auto style = qpt::LoadGallerySkin(parser.value("skin-dir"), skins[0], error);
    if (!style) {
        std::fprintf(stderr, "SkinGallery: %s\n", qPrintable(error));
        return 1;
    }
    qpt::SetGalleryScale(skins[0] == "classic2" ? 2 : 1);
    qpt::TGalleryPage page("Skinned controls on " + skins[0]);
    AddSections(page);
    if (!parser.isSet("png")) {
        page.show();
        return app.exec();
    }
    if (!page.Render().save(parser.value("png"), "PNG")) {
        std::fprintf(stderr, "SkinGallery: cannot write %s\n", qPrintable(parser.value("png")));
        return 1;
    }
    return 0;
}
