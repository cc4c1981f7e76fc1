#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace qpt {

class TRdGraphic;
class TStyleClasses;
class TMemIniFile;

// The owner of the skin packages: one public package ("public.rcc") and one
// skin package ("classic.rcc", "classic2.rcc", or the same names ending in
// ".dll") under the folder "skin" beside the program. It loads and unloads
// them, reads their ini files into the tables of style classes, named colours
// and picture descriptions, and hands out one cached graphic per picture name.
// Nothing here fails loudly: a missing package or entry reads as empty.
class TResource {
public:
    // The package store is Qt's own resource system, which is always there;
    // kept so that the skin style can ask, as it would for any library.
    static bool LoadLibrary(const QString& folder = {});

    // Registers a package: the public one (by its name "public") under its
    // own slot, any other as the skin (with a reload of every table) or, with
    // asPublic, as one more public package. A skin that does not exist falls
    // back to "classic" in the same folder.
    static void LoadRccFile(const QString& path, bool asPublic);
    static void UnloadRccFile(const QString& path);
    // Rebuilds every table from the registered packages.
    static void ReloadCache();
    // Drops the packages and, with clearAll, every table and cached graphic.
    static void UnloadCache(bool clearAll);

    // The bytes of one resource: a name beginning with ":" as it stands
    // (":/public/main.ini"), any other below the current skin
    // ("images/x.png"). Empty when missing.
    static QByteArray ReadResource(const QString& name);
    // The entries of a folder such as ":/public/", each followed by "|".
    static void EnumResource(const QString& folder, QString& folders, QString& files);

    // The process-wide graphic for a picture name or a "[section]" of class
    // image; the object keeps its identity across skin swaps.
    static TRdGraphic* GetGraphic(const QString& name);
    // Refills every cached graphic in place from the current packages.
    static void ReloadGraphics();

    static QString PublicRccPath();
    static QString SkinRccPath();
    static QString SkinRccName();
    static QStringList RegisteredRccFiles();
    // Always with a trailing "/"; initially the program's folder.
    static QString SkinBasePath();
    static void SetSkinBasePath(const QString& folder);
    // Loose files in SkinBasePath ("<base>/classic/images/x.png") win over
    // the packages; off unless someone switches it on.
    static bool LooseFilesEnabled();
    static void SetLooseFilesEnabled(bool on);

    static const TStyleClasses& StyleClasses();
    // "[section]" -> the lines of every section of class "image".
    static QStringList RdgValues(const QString& key);
    static int RdgCount();
    static int GraphicCount();

    // For embedders: a hook that may answer a read itself (true) before the
    // packages are asked.
    using ResourceHook = std::function<bool(QByteArray& bytes, const QString& resourceName)>;
    static void SetResourceHook(ResourceHook hook);
    // Told whenever the named colours may have changed.
    static void SetPaletteChangedHandler(std::function<void()> handler);
};

}  // namespace qpt
