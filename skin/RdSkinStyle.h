#pragma once

#include <QEvent>
#include <QObject>
#include <QStringList>
#include <functional>

namespace qpt {

// Names the public and skin packages, has the resource cache load them, and
// repaints the whole program when the skin changes. One style governs the
// process (MainSkin); a style that is not the main one only stores names
// while another governs.
//
// Like a component read from a form, a style starts out loading: its setters
// only store values until Loaded(), which then loads the packages in one go.
class TRdSkinStyle : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool MainSkin READ MainSkin WRITE SetMainSkin)
    Q_PROPERTY(QString RuntimePath READ RuntimePath WRITE SetRuntimePath)
    Q_PROPERTY(QString DesigntimePath READ DesigntimePath WRITE SetDesigntimePath)
    Q_PROPERTY(QStringList PublicRccFiles READ PublicRccFiles WRITE SetPublicRccFiles)
    Q_PROPERTY(QString SkinRccFile READ SkinRccFile WRITE SetSkinRccFile)
    Q_PROPERTY(QString CurSkinRccFile READ CurSkinRccFile STORED false)
    Q_PROPERTY(QString CurSkinPath READ CurSkinPath STORED false)
    Q_PROPERTY(QString CurMainStyle READ CurMainStyle STORED false)

public:
    explicit TRdSkinStyle(QObject* owner = nullptr);
    ~TRdSkinStyle() override;

    // Ends loading: public packages, tables, then the skin package.
    void Loaded();
    bool Loading() const { return loading_; }

    bool MainSkin() const { return mainSkin_; }
    void SetMainSkin(bool value);
    QString RuntimePath() const { return runtimePath_; }
    // Relative to the program's folder when that folder exists, else as given.
    void SetRuntimePath(const QString& path);
    QString DesigntimePath() const { return designtimePath_; }
    void SetDesigntimePath(const QString& path) { designtimePath_ = path; }
    QStringList PublicRccFiles() const { return publicRccFiles_; }
    void SetPublicRccFiles(const QStringList& files) { publicRccFiles_ = files; }
    // The bare file name ("classic.rcc"). A name with a folder moves the
    // runtime path there first. A package that does not exist leaves the
    // current skin in place.
    QString SkinRccFile() const { return skinRccFile_; }
    void SetSkinRccFile(const QString& file);

    QString CurSkinRccFile() const;
    QString CurSkinPath() const;
    // Owner's class and name of the governing style: "TFormPinned.SkinStyle1".
    QString CurMainStyle() const;
    // The public packages that Loaded registered, as full paths.
    QStringList LoadedPublicRccFiles() const { return loadedPublic_; }

    // The governing style; none when no style claims it.
    static TRdSkinStyle* Main();
    static int LiveCount();
    // Applies every skin class again, then tells each top-level window, last
    // first, with SkinChangedEvent() and repaints it with its children.
    static void RefreshAll();
    static QEvent::Type SkinChangedEvent();

    // Where warnings go; by default a message box, or the log when there is
    // no widget application. None puts the default back.
    using MessageHandler = std::function<void(const QString&)>;
    static void SetMessageHandler(MessageHandler handler);

private:
    bool Acts() const;
    QString BasePath() const;
    void LoadSkinPackage(const QString& fullPath);

    bool loading_ = true;
    bool mainSkin_ = false;
    QString runtimePath_ = QStringLiteral("skin");
    QString designtimePath_;
    QStringList publicRccFiles_;
    QString skinRccFile_;
    QStringList loadedPublic_;
};

}  // namespace qpt
