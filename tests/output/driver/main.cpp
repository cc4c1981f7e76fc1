// Plays the program's side of a copy for the clipboard tests and the
// benchmark: hands a pattern picture or a text to the holder, and ends the
// way the program ends, at once, with 0 when the holder owns the clipboard.
//   ClipboardCopyDriver picture WIDTH HEIGHT SEED
//   ClipboardCopyDriver text TEXT
#include <QString>
#include <cstdlib>
#include <cstring>

#include "output/ClipboardHandOver.h"
#include "support/LogManage.h"
#include "support/Paths.h"
#include "tests/output/TestPicture.h"

int main(int argc, char** argv) {
    using namespace qpt;
    const QString holder = QStringLiteral(QPT_PROGRAM_DIR "/QptClipboard");
    CreateLogManage(SettingsFolder() + "log/QptHost.log");
    bool owned = false;
    if (argc == 5 && std::strcmp(argv[1], "picture") == 0) {
        const TIEBitmap picture = testing::PatternPicture(std::atoi(argv[2]), std::atoi(argv[3]),
                                                          uint8_t(std::atoi(argv[4])));
        owned = HandPictureToClipboard(picture, holder);
    } else if (argc == 3 && std::strcmp(argv[1], "text") == 0) {
        owned = HandTextToClipboard(QString::fromUtf8(argv[2]), holder);
    } else {
        std::_Exit(2);
    }
    std::_Exit(owned ? 0 : 1);
}
