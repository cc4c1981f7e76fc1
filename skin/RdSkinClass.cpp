#include "skin/RdSkinClass.h"

#include <QMetaProperty>
#include <QWidget>
#include <algorithm>
#include <atomic>
#include <vector>

#include "skin/RdFont.h"
#include "skin/RdLog.h"
#include "skin/RdPictureProperty.h"
#include "skin/Resource.h"
#include "skin/SkinReader.h"
#include "skin/SkinWriter.h"
#include "skin/StyleClasses.h"

namespace qpt {

namespace {

std::atomic<quint64> g_nextSerial{1};

// Skin classes are made, applied and destroyed on the GUI thread only. The
// list is never destroyed: controls held by statics may go after it would.
std::vector<TRdSkinClass*>& Registry() {
    static auto* all = new std::vector<TRdSkinClass*>;
    return *all;
}

bool IsReservedKey(const QString& name) {
    for (const char16_t* key : {u"class", u"parent", u"SkinRcc"})
        if (name.compare(QStringView(key), Qt::CaseInsensitive) == 0) return true;
    return false;
}

QStringList SortedUnique(const QStringList& names) {
    QStringList result;
    for (const QString& name : names)
        if (!name.trimmed().isEmpty()) result.append(name.trimmed());
    std::stable_sort(result.begin(), result.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    result.erase(std::unique(result.begin(), result.end(),
                             [](const QString& a, const QString& b) {
                                 return a.compare(b, Qt::CaseInsensitive) == 0;
                             }),
                 result.end());
    return result;
}

// Leaves the widget's setters free to ask for repaints, and repaints once.
class TUpdateBlocker {
public:
    TUpdateBlocker(QObject* owner, TRdFont* font)
        : widget_(qobject_cast<QWidget*>(owner)), font_(font) {
        if (widget_ && widget_->updatesEnabled())
            widget_->setUpdatesEnabled(false);
        else
            widget_ = nullptr;
        if (font_) font_->BeginUpdate();
    }
    ~TUpdateBlocker() {
        if (font_) font_->EndUpdate();
        if (widget_) widget_->setUpdatesEnabled(true);
    }
    TUpdateBlocker(const TUpdateBlocker&) = delete;
    TUpdateBlocker& operator=(const TUpdateBlocker&) = delete;

private:
    QWidget* widget_;
    TRdFont* font_;
};

}  // namespace

TRdSkinClass::TRdSkinClass(QObject* owner, const QString& className)
    : QObject(owner),
      owner_(owner),
      className_(className),
      draw_(new TRdSkinClassDraw(this)),
      serial_(g_nextSerial.fetch_add(1)) {}

TRdSkinClass::~TRdSkinClass() {
    Enlist(false);
}

QString TRdSkinClass::GroupName() const {
    if (!className_.isEmpty() || !owner_) return className_;
    const QString name = QLatin1String(owner_->metaObject()->className());
    return name.mid(name.lastIndexOf(u':') + 1);
}

void TRdSkinClass::SetSkinClass(const QString& name) {
    if (name == skinClass_) return;
    skinClass_ = name;
    Enlist(!name.isEmpty());
    if (!name.isEmpty() && TResource::StyleClasses().Count() > 0) ApplySkin(false);
}

void TRdSkinClass::SetIgnoreValues(const QStringList& names) {
    ignoreValues_ = SortedUnique(names);
}

QStringList TRdSkinClass::CurrentValues() const {
    if (writing_) return {};
    writing_ = true;
    const QStringList lines = TSkinWriter::Write(owner_);
    writing_ = false;
    return lines;
}

void TRdSkinClass::SetClearOwnerPic(bool value) {
    if (!value || !owner_) return;
    const QMetaObject* meta = owner_->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        QObject* sub = TSkinReader::SubObject(owner_, meta->property(i));
        if (auto* picture = qobject_cast<TRdPictureProperty*>(sub)) picture->Clear();
    }
}

void TRdSkinClass::SetForceUseSkinPic(bool value) {
    if (value) ApplySkin(false);
}

void TRdSkinClass::ApplySkin(bool recursive) {
    skinValues_.clear();
    if (owner_ && !skinClass_.isEmpty()) {
        if (const TNameValueList* section =
                TResource::StyleClasses().Section(GroupName(), skinClass_)) {
            skinValues_ = section->Flattened();
            ApplyLines();
        }
    }
    if (!recursive) return;
    for (TRdSkinClass* child : Children())
        child->ApplySkin(true);
}

void TRdSkinClass::ApplyLines() {
    TUpdateBlocker blocker(owner_, batchFont_);
    for (const QString& line : std::as_const(skinValues_)) {
        const qsizetype eq = line.indexOf(u'=');
        const QString name = line.left(eq).trimmed();
        if (eq < 0 || IsReservedKey(name) || ignoreValues_.contains(name, Qt::CaseInsensitive))
            continue;
        QString error;
        if (TSkinReader::SetPropertyText(owner_, name, line.mid(eq + 1), &error) ==
                TSkinReader::TResult::Invalid &&
            RdLogEnabled())
            RdLog(QStringLiteral("Skin %1.%2: %3: %4").arg(GroupName(), skinClass_, name, error));
    }
}

void TRdSkinClass::Assign(const TRdSkinClass* source) {
    if (!source) {
        ignoreValues_.clear();
        SetSkinClass(QString());
        return;
    }
    if (source->ignoreValues_ != ignoreValues_) ignoreValues_ = source->ignoreValues_;
    SetSkinClass(source->skinClass_);
}

void TRdSkinClass::AddChild(TRdSkinClass* child) {
    if (child && child != this && !Children().contains(child)) children_.append(child);
}

void TRdSkinClass::RemoveChild(TRdSkinClass* child) {
    children_.removeAll(child);
}

QList<TRdSkinClass*> TRdSkinClass::Children() const {
    QList<TRdSkinClass*> live;
    for (const QPointer<TRdSkinClass>& child : children_)
        if (child) live.append(child.data());
    return live;
}

QList<TRdSkinClass*> TRdSkinClass::All() {
    return QList<TRdSkinClass*>(Registry().begin(), Registry().end());
}

void TRdSkinClass::Enlist(bool on) {
    std::vector<TRdSkinClass*>& all = Registry();
    const auto bySerial = [](const TRdSkinClass* a, const TRdSkinClass* b) {
        return a->serial_ < b->serial_;
    };
    const auto at = std::lower_bound(all.begin(), all.end(), this, bySerial);
    const bool listed = at != all.end() && *at == this;
    if (on && !listed) all.insert(at, this);
    if (!on && listed) all.erase(at);
}

}  // namespace qpt
