#include "skin/Resource.h"

#include <QDir>
#include <QFileInfo>

#include "skin/ColorTable.h"
#include "skin/PngImage.h"
#include "skin/RccCheck.h"
#include "skin/RccPackages.h"
#include "skin/RccPath.h"
#include "skin/RdLog.h"
#include "skin/RdgImage.h"
#include "skin/ResourceState.h"
#include "support/Paths.h"
#include "support/SafeFileIo.h"

namespace qpt {

namespace {

std::unique_ptr<TRdGraphic> MakeGraphic(TGraphicCache::Kind kind) {
    if (kind == TGraphicCache::Kind::Description) return std::make_unique<TRdgImage>();
    return std::make_unique<TPngImage>();
}

QString WithSlash(QString folder) {
    folder.replace(u'\\', u'/');
    if (!folder.endsWith(u'/')) folder += u'/';
    return folder;
}

void RemoveRegistered(const QString& path) {
    QStringList& list = ResourceState().registeredRccFiles;
    list.removeIf([&](const QString& p) { return p.compare(path, Qt::CaseInsensitive) == 0; });
}

void AddRegistered(const QString& path) {
    QStringList& list = ResourceState().registeredRccFiles;
    RemoveRegistered(path);
    list.append(path);
    list.sort(Qt::CaseInsensitive);
}

// Registers whichever twin exists, remembering it as a public package.
QString RegisterPublic(const TRccPath& rcc) {
    const QString path = rcc.Existing();
    RccRegister(path);
    AddRegistered(path);
    return path;
}

QByteArray ReadLooseFile(const QString& fileName) {
    QByteArray bytes;
    ReadRegularFile(fileName, kMaxRccEntrySize, &bytes);
    return bytes;
}

}  // namespace

TResourceState::TResourceState()
    : skinBasePath(ProgramFolder()),
      graphicCache(MakeGraphic, &TResource::ReadResource, &TResource::RdgValues) {
    SetGraphicResolver(&TResource::GetGraphic);
}

TResourceState& ResourceState() {
    static TResourceState* state = new TResourceState;
    return *state;
}

bool TResource::LoadLibrary(const QString& folder) {
    (void)folder;
    ResourceState();
    return true;
}

void TResource::LoadRccFile(const QString& path, bool asPublic) {
    TResourceState& s = ResourceState();
    TRccPath rcc = TRccPath::Normalize(path);
    if (rcc.name == u"public" || SamePackage(rcc.path, s.publicRccPath)) {
        if (!s.skinRccPath.isEmpty() && SamePackage(rcc.path, s.publicRccPath)) return;
        if (!s.publicRccPath.isEmpty()) {
            RccUnregister(s.publicRccPath);
            RemoveRegistered(s.publicRccPath);
        }
        s.publicRccPath = RegisterPublic(rcc);
        return;
    }
    if (!asPublic && !rcc.Exists() && !QFileInfo(rcc.stem).isDir())
        rcc = TRccPath::Normalize(QFileInfo(rcc.path).path() + QStringLiteral("/classic.rcc"));
    if (SamePackage(rcc.path, s.skinRccPath) && rcc.name == s.skinRccName) return;
    if (asPublic) {
        for (const QString& p : {rcc.path, rcc.alt}) {
            RemoveRegistered(p);
            RccUnregister(p);
        }
        RegisterPublic(rcc);
        return;
    }
    RccUnregister(s.skinRccPath);
    s.skinRccPath = rcc.Existing();
    s.skinRccName = rcc.name;
    RccRegister(s.skinRccPath);
    ReloadCache();
}

void TResource::UnloadRccFile(const QString& path) {
    TResourceState& s = ResourceState();
    const TRccPath rcc = TRccPath::Normalize(path);
    if (!s.skinRccName.isEmpty() && rcc.name == s.skinRccName) {
        RccUnregister(s.skinRccPath);
        s.skinRccPath.clear();
        s.skinRccName.clear();
    } else if (rcc.name != u"public") {
        for (const QString& p : {rcc.path, rcc.alt}) {
            RemoveRegistered(p);
            RccUnregister(p);
        }
        if (SamePackage(rcc.path, s.publicRccPath)) s.publicRccPath.clear();
        if (SamePackage(rcc.path, s.skinRccPath)) {
            s.skinRccPath.clear();
            s.skinRccName.clear();
        }
    } else {
        RemoveRegistered(s.publicRccPath);
        RccUnregister(s.publicRccPath);
        s.publicRccPath.clear();
    }
}

void TResource::UnloadCache(bool clearAll) {
    TResourceState& s = ResourceState();
    if (!s.skinRccPath.isEmpty()) UnloadRccFile(s.skinRccPath);
    for (auto i = s.registeredRccFiles.size(); i-- > 0;)
        RccUnregister(s.registeredRccFiles[i]);
    s.registeredRccFiles.clear();
    s.publicRccPath.clear();
    s.skinBasePath = ProgramFolder();
    if (!clearAll) return;
    RdLog(QStringLiteral("Rcc.UnloadCache, Style:%1").arg(s.styleClasses.Count()));
    s.mainIni.LoadFromStream(QByteArray());
    s.colorIni.LoadFromStream(QByteArray());
    SkinColors().MergeVclColor();
    SkinColors().Build({});
    s.styleClasses.Clear();
    {
        std::lock_guard lock(s.rdgLock);
        s.rdgValues.Clear();
    }
    s.graphicCache.Clear();
    if (s.paletteChanged) s.paletteChanged();
}

QByteArray TResource::ReadResource(const QString& name) {
    TResourceState& s = ResourceState();
    const QString plain = QString(name).replace(u'\\', u'/');
    QString resourceName = plain;
    QString fileName;
    if (!s.skinRccName.isEmpty() && !plain.startsWith(u':')) {
        resourceName = QStringLiteral(":/") + s.skinRccName + u'/' + plain;
        fileName = s.skinBasePath + s.skinRccName + u'/' + plain;
    } else {
        QString relative = plain;
        if (relative.startsWith(u':')) relative.remove(0, 1);
        while (relative.startsWith(u'/'))
            relative.remove(0, 1);
        fileName = s.skinBasePath + relative;
    }
    QByteArray bytes;
    if (s.hook && s.hook(bytes, resourceName)) return bytes;
    if (s.looseFilesEnabled && QFileInfo(fileName).isFile()) return ReadLooseFile(fileName);
    return RccData(resourceName);
}

void TResource::EnumResource(const QString& folder, QString& folders, QString& files) {
    TResourceState& s = ResourceState();
    RccEnum(folder, folders, files);
    const qsizetype mark = folder.indexOf(QLatin1String(":/"));
    if (!s.looseFilesEnabled || mark < 0) return;
    const QDir dir(s.skinBasePath + folder.mid(mark + 2));
    const auto listed = [](const QString& list, const QString& name) {
        return list.split(u'|').contains(name, Qt::CaseInsensitive);
    };
    for (const QFileInfo& entry : dir.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
        QString& target = entry.isDir() ? folders : files;
        const QString name = entry.fileName().toLower();
        if (!listed(target, name)) target += name + u'|';
    }
}

TRdGraphic* TResource::GetGraphic(const QString& name) {
    return ResourceState().graphicCache.Get(name);
}

void TResource::ReloadGraphics() {
    ResourceState().graphicCache.Reload();
}

QString TResource::PublicRccPath() {
    return ResourceState().publicRccPath;
}
QString TResource::SkinRccPath() {
    return ResourceState().skinRccPath;
}
QString TResource::SkinRccName() {
    return ResourceState().skinRccName;
}
QStringList TResource::RegisteredRccFiles() {
    return ResourceState().registeredRccFiles;
}
QString TResource::SkinBasePath() {
    return ResourceState().skinBasePath;
}
void TResource::SetSkinBasePath(const QString& folder) {
    ResourceState().skinBasePath = WithSlash(folder);
}
bool TResource::LooseFilesEnabled() {
    return ResourceState().looseFilesEnabled;
}
void TResource::SetLooseFilesEnabled(bool on) {
    ResourceState().looseFilesEnabled = on;
}
const TStyleClasses& TResource::StyleClasses() {
    return ResourceState().styleClasses;
}
int TResource::GraphicCount() {
    return ResourceState().graphicCache.Count();
}
void TResource::SetResourceHook(ResourceHook hook) {
    ResourceState().hook = std::move(hook);
}
void TResource::SetPaletteChangedHandler(std::function<void()> handler) {
    ResourceState().paletteChanged = std::move(handler);
}

}  // namespace qpt
