#pragma once

#include <QImage>
#include <QString>
#include <memory>

class QCoreApplication;

namespace qpt {

class TRdSkinStyle;

// A gallery tool's command line, `<classic|classic2> [--png FILE]
// [--skin-dir DIR]`, with the skin it names loaded from the folder of built
// packages, as the program loads it from its own folder.
struct TGalleryCommand {
    QString skin;
    QString png;  // empty when not asked for
    std::unique_ptr<TRdSkinStyle> style;
    // classic2 is the double-size skin.
    int Scale() const { return skin == QLatin1String("classic2") ? 2 : 1; }
};

// Reads the command line of `app`, the tool `tool`, and loads the skin. On a
// wrong command line or a missing skin it says why on the error output and
// returns null, and `exitCode` is what the tool ends with.
std::unique_ptr<TGalleryCommand> ReadGalleryCommand(const QCoreApplication& app, const char* tool,
                                                    const QString& pngHelp, bool pngRequired,
                                                    int& exitCode);

// Writes the picture to the PNG file the command named; the tool's exit code.
int WriteGalleryPng(const QImage& picture, const TGalleryCommand& command, const char* tool);

}  // namespace qpt
