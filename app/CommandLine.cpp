#include "app/CommandLine.h"

namespace qpt {

bool HasQptMainSwitch(const QStringList& arguments) {
    const QString wanted = QStringLiteral("/QPTMAIN");
    for (const QString& argument : arguments)
        if (argument.toUpper() == wanted) return true;
    return false;
}

bool FirstArgumentIs(const QStringList& arguments, const QString& switchText) {
    return arguments.size() > 1 && arguments[1].compare(switchText, Qt::CaseInsensitive) == 0;
}

QStringList ArgumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

}  // namespace qpt
