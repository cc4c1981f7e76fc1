#include "HostOptions.h"

namespace qpt::standin {

namespace {

std::optional<QList<int>> Numbers(const QString& text, int count) {
    const QStringList parts = text.split(',');
    if (parts.size() != count) return std::nullopt;
    QList<int> values;
    for (const QString& part : parts) {
        bool ok = false;
        values << part.trimmed().toInt(&ok);
        if (!ok) return std::nullopt;
    }
    return values;
}

}  // namespace

QString HostUsage() {
    return QStringLiteral(
        "usage: StandInHost [PICTURE] [--at X,Y] [--grab X,Y,W,H] [--program QPTPIN]\n"
        "                   [--screenshot FILE.png [--after MS]]\n"
        "       StandInHost --choose [--program QPTPIN]\n"
        "Pins PICTURE (a bundled sample by default) through QptPin as the host would:\n"
        "the picture goes to the temporary folder, its rectangle to section StartPin\n"
        "of Main.ini, then QptPin /QPTMain starts. Every notice from QptPin is printed\n"
        "as one line 'notice CODE WPARAM LPARAM'; the host ends with QptPin.\n"
        "With --choose, a window offers to pin the sample or a region of the screen,\n"
        "again and again, and tells what came back; it ends when it is closed.\n");
}

HostOptions ParseHostOptions(const QStringList& arguments) {
    HostOptions options;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& a = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (a == "--at" && hasValue) {
            const auto v = Numbers(arguments[++i], 2);
            if (v)
                options.at = QPoint((*v)[0], (*v)[1]);
            else
                options.error = "--at wants X,Y";
        } else if (a == "--grab" && hasValue) {
            const auto v = Numbers(arguments[++i], 4);
            if (v && (*v)[2] > 0 && (*v)[3] > 0)
                options.grab = QRect((*v)[0], (*v)[1], (*v)[2], (*v)[3]);
            else
                options.error = "--grab wants X,Y,W,H with a positive size";
        } else if (a == "--program" && hasValue) {
            options.program = arguments[++i];
        } else if (a == "--choose") {
            options.choose = true;
        } else if (a == "--screenshot" && hasValue) {
            options.screenshot = arguments[++i];
        } else if (a == "--after" && hasValue) {
            options.screenshotAfterMs = arguments[++i].toInt();
        } else if (!a.startsWith("--") && options.picture.isEmpty()) {
            options.picture = a;
        } else {
            options.error = "unknown argument " + a;
        }
    }
    return options;
}

}  // namespace qpt::standin
