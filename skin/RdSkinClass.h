#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include "skin/RdSkinClassDraw.h"

namespace qpt {

class TRdFont;

// The skin link of one control (its published AllSkin): names a section of
// the skin's ini files, and applies that section's lines to the owner's
// published properties, so that a skin can change a control's pictures, sizes
// and fonts without touching the form. The section is looked up in the group
// of the owner's class name ("TRdComboBox"), or of the class name given here
// ("font"). Every skin class with a section name is kept in one process-wide
// list in creation order, which RefreshAll walks on a skin change.
class TRdSkinClass : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString SkinClass READ SkinClass WRITE SetSkinClass)
    Q_PROPERTY(QStringList IgnoreValues READ IgnoreValues WRITE SetIgnoreValues)
    Q_PROPERTY(QStringList SkinValues READ SkinValues STORED false)
    Q_PROPERTY(QStringList CurrentValues READ CurrentValues STORED false)
    Q_PROPERTY(bool ClearOwnerPic READ ClearOwnerPic WRITE SetClearOwnerPic STORED false)
    Q_PROPERTY(bool ForceUseSkinPic READ ForceUseSkinPic WRITE SetForceUseSkinPic STORED false)
    Q_PROPERTY(qpt::TRdSkinClassDraw* Draw READ Draw)

public:
    // The owner is the object whose properties the skin sets; the skin class
    // lives as long as the owner.
    explicit TRdSkinClass(QObject* owner, const QString& className = {});
    ~TRdSkinClass() override;

    QObject* Owner() const { return owner_; }
    // The group the section is looked up in: the class name given, or the
    // owner's class name without its namespace.
    QString GroupName() const;

    QString SkinClass() const { return skinClass_; }
    // Entering a section name applies it at once when a skin is loaded, so a
    // control made at run time looks like the others.
    void SetSkinClass(const QString& name);
    // Kept sorted and free of repeats; names are dotted paths, any case.
    QStringList IgnoreValues() const { return ignoreValues_; }
    void SetIgnoreValues(const QStringList& names);
    QStringList SkinValues() const { return skinValues_; }
    QStringList CurrentValues() const;
    bool ClearOwnerPic() const { return false; }
    // True drops the owner's own pictures.
    void SetClearOwnerPic(bool value);
    // The font whose changes are told once while a section is applied,
    // rather than once per line: the owner's own, when it has one.
    void SetBatchFont(TRdFont* font) { batchFont_ = font; }
    bool ForceUseSkinPic() const { return false; }
    // True applies the skin again at once.
    void SetForceUseSkinPic(bool value);
    TRdSkinClassDraw* Draw() const { return draw_; }

    // Sets the owner's properties from its skin section. Lines named "class",
    // "parent", "SkinRcc" or in IgnoreValues are left out; a line that names
    // no property or carries a bad value is skipped, and the others still
    // apply. Recursive goes on to the child skin classes.
    void ApplySkin(bool recursive);
    // Copies IgnoreValues and then SkinClass; none clears both.
    void Assign(const TRdSkinClass* source);

    // Skin classes of the owner's parts (its font), applied with it.
    void AddChild(TRdSkinClass* child);
    void RemoveChild(TRdSkinClass* child);
    QList<TRdSkinClass*> Children() const;
    quint64 Serial() const { return serial_; }

    // Every skin class that names a section, oldest first.
    static QList<TRdSkinClass*> All();

private:
    void Enlist(bool on);
    void ApplyLines();

    QObject* owner_;
    TRdFont* batchFont_ = nullptr;
    QString className_;
    QString skinClass_;
    QStringList ignoreValues_;
    QStringList skinValues_;
    TRdSkinClassDraw* draw_;
    QList<QPointer<TRdSkinClass>> children_;
    quint64 serial_;
    mutable bool writing_ = false;
};

}  // namespace qpt
