#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

namespace qpt {

// How a bench's application object is made. The platform is the bench's
// own, whatever the shell says, so that figures taken on two machines are
// taken the same way.
struct TBenchPlatform {
    QByteArray Name = "offscreen";
    // The offscreen platform's screen configuration (its JSON); empty keeps
    // the platform's own screen.
    QByteArray Screens;
};

// One screen at 96 dpi, for the offscreen platform.
inline TBenchPlatform OffscreenScreen(int width, int height) {
    return {"offscreen", R"({"screens": [{"name": "bench", "x": 0, "y": 0, "width": )" +
                             QByteArray::number(width) + R"(, "height": )" +
                             QByteArray::number(height) +
                             R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})"};
}

// Makes the application once, as a QGuiApplication for the benches with no
// widget and a QApplication for the others; later calls return it. Never
// destroyed: at exit Qt's input devices would go after their owner.
template <class TApplication = QGuiApplication>
TApplication& EnsureBenchApplication(const TBenchPlatform& platform = {}) {
    static int argc = 1;
    static char name[] = "bench";
    static char* argv[] = {name, nullptr};
    static TApplication* made = nullptr;
    if (made) return *made;
    if (QCoreApplication::instance()) qFatal("the bench asked for two kinds of application");
    QByteArray argument = platform.Name;
    if (!platform.Screens.isEmpty()) {
        // The platform reads the file while the application starts, so a
        // folder that lives as long as the process is enough.
        static QTemporaryDir folder;
        QFile file(folder.filePath("screens.json"));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(platform.Screens) != platform.Screens.size())
            qFatal("the bench cannot write its screen configuration");
        file.close();
        argument += ":configfile=" + QFile::encodeName(file.fileName());
    }
    qputenv("QT_QPA_PLATFORM", argument);
    made = new TApplication(argc, argv);
    return *made;
}

}  // namespace qpt
