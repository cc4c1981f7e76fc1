#include "skin/RdSkinStyle.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QWidget>
#include <atomic>

#include "skin/RccPath.h"
#include "skin/RdSkinClass.h"
#include "skin/Resource.h"
#include "support/Paths.h"

namespace qpt {

namespace {

std::atomic<int> g_liveStyles{0};

// Styles that claimed MainSkin, in the order they did; the first governs.
// Never destroyed, as a style held by a static may go after it would.
QList<TRdSkinStyle*>& MainChain() {
    static auto* chain = new QList<TRdSkinStyle*>;
    return *chain;
}

TRdSkinStyle::MessageHandler& Messages() {
    static TRdSkinStyle::MessageHandler handler;
    return handler;
}

void Warn(const QString& text) {
    if (Messages())
        Messages()(text);
    else if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        QMessageBox::warning(nullptr, QCoreApplication::applicationName(), text);
    else
        qWarning("%s", qPrintable(text));
}

QString OwnerTitle(const QObject* owner) {
    const QString cls = QLatin1String(owner->metaObject()->className());
    return cls.mid(cls.lastIndexOf(u':') + 1) + u'.' + owner->objectName();
}

QString ResolveRuntimePath(const QString& path) {
    const QString relative = QDir(ProgramFolder()).filePath(path);
    return QFileInfo(relative).isDir() ? relative : path;
}

bool HasFolder(const QString& file) {
    return file.contains(u'/') || file.contains(u'\\');
}

// The package as shipped: either twin name, or a loose folder of the files.
QString FindPackage(const QString& fullPath) {
    const QString stem = TRccPath::Normalize(fullPath).stem;
    for (const QString& candidate : {stem + QStringLiteral(".dll"), stem + QStringLiteral(".rcc")})
        if (QFileInfo(candidate).isFile()) return candidate;
    return QFileInfo(stem).isDir() ? stem : QString();
}

}  // namespace

TRdSkinStyle::TRdSkinStyle(QObject* owner) : QObject(owner) {
    ++g_liveStyles;
}

TRdSkinStyle::~TRdSkinStyle() {
    SetMainSkin(false);
    // Pictures handed out may still be painted: only the packages go.
    if (--g_liveStyles == 0) TResource::UnloadCache(false);
}

TRdSkinStyle* TRdSkinStyle::Main() {
    return MainChain().isEmpty() ? nullptr : MainChain().front();
}

int TRdSkinStyle::LiveCount() {
    return g_liveStyles.load();
}

bool TRdSkinStyle::Acts() const {
    return Main() == this || Main() == nullptr;
}

QString TRdSkinStyle::BasePath() const {
    return TResource::SkinBasePath();
}

void TRdSkinStyle::SetMessageHandler(MessageHandler handler) {
    Messages() = std::move(handler);
}

void TRdSkinStyle::SetMainSkin(bool value) {
    if (value == mainSkin_) return;
    mainSkin_ = value;
    QList<TRdSkinStyle*>& chain = MainChain();
    if (value) {
        if (TRdSkinStyle* main = Main()) {
            const QObject* owner = main->parent();
            Warn(owner ? QStringLiteral("warning: main.SkinStyle exists! must close unit: ") +
                             OwnerTitle(owner) +
                             QStringLiteral(",\r\n\r\nand Re-open Current Form !!")
                       : QStringLiteral("warning: main.SkinStyle exists!"));
        }
        chain.append(this);
        if (Main() == this) SetRuntimePath(runtimePath_);
        return;
    }
    const bool wasMain = Main() == this;
    chain.removeAll(this);
    TRdSkinStyle* next = Main();
    if (!wasMain || !next) return;
    next->SetRuntimePath(next->runtimePath_);
    if (!next->loading_) next->SetSkinRccFile(next->skinRccFile_);
}

void TRdSkinStyle::SetRuntimePath(const QString& path) {
    runtimePath_ = path;
    if (Acts()) TResource::SetSkinBasePath(ResolveRuntimePath(path));
}

void TRdSkinStyle::SetSkinRccFile(const QString& file) {
    const QString name = QFileInfo(file).fileName();
    if (!Acts()) {
        skinRccFile_ = name;
        return;
    }
    if (HasFolder(file)) SetRuntimePath(QFileInfo(file).path());
    skinRccFile_ = name;
    if (loading_) return;
    if (!name.isEmpty()) LoadSkinPackage(BasePath() + name);
    RefreshAll();
}

void TRdSkinStyle::LoadSkinPackage(const QString& fullPath) {
    const QString found = FindPackage(fullPath);
    if (found.isEmpty()) return;  // the skin on the screen stays
    TResource::SetSkinBasePath(QFileInfo(found).path());
    TResource::LoadRccFile(found, false);
}

void TRdSkinStyle::Loaded() {
    if (!loading_) return;
    loadedPublic_.clear();
    if (Acts()) {
        for (const QString& entry : std::as_const(publicRccFiles_)) {
            const QString path = HasFolder(entry) ? entry : BasePath() + entry;
            TResource::LoadRccFile(path, true);
            loadedPublic_.append(path);
        }
    }
    loading_ = false;
    if (Acts()) {
        TResource::ReloadCache();
        RefreshAll();
    }
    SetSkinRccFile(skinRccFile_);
}

QString TRdSkinStyle::CurSkinRccFile() const {
    return TResource::SkinRccPath();
}

QString TRdSkinStyle::CurSkinPath() const {
    return BasePath();
}

QString TRdSkinStyle::CurMainStyle() const {
    const TRdSkinStyle* main = Main();
    return main && main->parent() ? OwnerTitle(main->parent()) : QString();
}

QEvent::Type TRdSkinStyle::SkinChangedEvent() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

void TRdSkinStyle::RefreshAll() {
    for (TRdSkinClass* skin : TRdSkinClass::All())
        skin->ApplySkin(false);
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) return;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (qsizetype i = windows.size() - 1; i >= 0; --i) {
        QPointer<QWidget> window = windows[i];
        QEvent changed(SkinChangedEvent());
        QCoreApplication::sendEvent(window, &changed);
        if (!window) continue;
        window->update();
        if (window->isVisible()) window->repaint();
    }
}

}  // namespace qpt
