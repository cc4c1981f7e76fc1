#include "tools/SkinGallery/GallerySkin.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdio>

#include "skin/RdSkinStyle.h"
#include "skin/Resource.h"

namespace qpt {

namespace {

// Null, with the reason in `error`, when a package is not there.
std::unique_ptr<TRdSkinStyle> LoadGallerySkin(const QString& folder, const QString& skin,
                                              QString& error) {
    const QDir dir(folder);
    for (const QString& name : {QStringLiteral("public"), skin}) {
        if (!QFileInfo(dir.filePath(name + ".rcc")).isFile()) {
            error = QStringLiteral("no package %1.rcc in %2").arg(name, dir.absolutePath());
            return nullptr;
        }
    }
    // The gallery must show the skin it was asked for, never a fallback.
    auto style = std::make_unique<TRdSkinStyle>();
    style->SetMainSkin(true);
    style->SetRuntimePath(dir.absolutePath());
    style->SetPublicRccFiles({QStringLiteral("public.rcc")});
    style->SetSkinRccFile(skin + ".rcc");
    style->Loaded();
    if (QFileInfo(TResource::SkinRccPath()).baseName() != skin) {
        error = QStringLiteral("the skin package %1.rcc could not be read").arg(skin);
        return nullptr;
    }
    return style;
}

}  // namespace

std::unique_ptr<TGalleryCommand> ReadGalleryCommand(const QCoreApplication& app, const char* tool,
                                                    const QString& pngHelp, bool pngRequired,
                                                    int& exitCode) {
    QCommandLineParser parser;
    parser.addPositionalArgument("skin", "classic or classic2");
    parser.addOption({"png", pngHelp, "FILE"});
    parser.addOption({"skin-dir", "Folder of the skin packages.", "DIR", QPT_SKIN_DIR});
    parser.addHelpOption();
    parser.process(app);
    const QStringList skins = parser.positionalArguments();
    exitCode = 2;
    if (skins.size() != 1 || (pngRequired && !parser.isSet("png"))) {
        std::fprintf(stderr, "usage: %s <classic|classic2> %s\n", tool,
                     pngRequired ? "--png FILE" : "[--png FILE]");
        return nullptr;
    }
    auto command = std::make_unique<TGalleryCommand>();
    command->skin = skins[0];
    command->png = parser.value("png");
    QString error;
    command->style = LoadGallerySkin(parser.value("skin-dir"), command->skin, error);
    exitCode = 1;
    if (!command->style) {
        std::fprintf(stderr, "%s: %s\n", tool, qPrintable(error));
        return nullptr;
    }
    exitCode = 0;
    return command;
}

int WriteGalleryPng(const QImage& picture, const TGalleryCommand& command, const char* tool) {
    if (picture.save(command.png, "PNG")) return 0;
    std::fprintf(stderr, "%s: cannot write %s\n", tool, qPrintable(command.png));
    return 1;
}

}  // namespace qpt
