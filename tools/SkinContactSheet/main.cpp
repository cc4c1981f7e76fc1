// Writes the contact sheet of one skin package.
//
//   SkinContactSheet <package.rcc> <sheet.png>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <cstdio>

#include "tools/SkinContactSheet/ContactSheet.h"

int main(int argc, char** argv) {
    // Labels need fonts, fonts need a GUI application, and the build machine
    // may have no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 3) {
        std::fprintf(stderr, "usage: SkinContactSheet <package.rcc> <sheet.png>\n");
        return 2;
    }
    qpt::TContactSheet sheet;
    if (!sheet.Open(args[1])) {
        std::fprintf(stderr, "SkinContactSheet: %s is not a resource package\n",
                     qPrintable(args[1]));
        return 1;
    }
    if (!sheet.Render(QFileInfo(args[1]).fileName()).save(args[2], "PNG")) {
        std::fprintf(stderr, "SkinContactSheet: cannot write %s\n", qPrintable(args[2]));
        return 1;
    }
    return 0;
}
