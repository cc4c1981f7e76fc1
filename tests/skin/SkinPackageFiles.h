#pragma once

#include <QList>
#include <QSize>
#include <QString>
#include <optional>
#include <variant>

namespace qpt::testing {

// The list of what the skin packages must hold (skin-art/contents.txt).
struct SkinContents {
    struct Picture {
        QString name;
        QSize size;  // at scale 1
    };
    struct SkinClass {
        QString className;
        QString section;
    };
    QList<Picture> pictures;
    QStringList colours;
    QList<SkinClass> classes;
    QStringList problems;  // lines that could not be read
};

SkinContents ReadSkinContents(const QString& path);

// An ini file as the packages write it: sections of name=value lines.
struct IniSection {
    QString name;
    QList<std::pair<QString, QString>> values;

    std::optional<QString> value(const QString& key) const;
};
struct IniFile {
    QList<IniSection> sections;
    QStringList problems;  // broken lines, repeated sections
};

IniFile ReadIniFile(const QString& path);

// One value of color_setting.ini: a colour as 0xAARRGGBB, or a link to
// another name ("[section.key]").
struct ColourLink {
    QString target;
};
using ColourValue = std::variant<unsigned, ColourLink>;

std::optional<ColourValue> ParseColourValue(const QString& text);

}  // namespace qpt::testing
