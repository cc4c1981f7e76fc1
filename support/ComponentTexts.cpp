#include "support/ComponentTexts.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>
#include <QTreeWidget>

namespace qpt {

namespace {

// Skinned controls live in a library that this one must not see, so they are
// recognised by the class names along their meta-object chain.
bool IsKindOf(const QObject* object, QLatin1StringView className) {
    for (const QMetaObject* meta = object->metaObject(); meta; meta = meta->superClass()) {
        QLatin1StringView name(meta->className());
        if (name.startsWith(QLatin1StringView("qpt::"))) name = name.mid(5);
        if (name == className) return true;
    }
    return false;
}

class Translator {
public:
    Translator(QObject* object, const TextLookup& lookup)
        : object_(object), name_(object->objectName()), lookup_(lookup) {}

    void Apply() const;

private:
    QString Text(const QString& suffix, const QString& current) const {
        return lookup_(name_ + suffix, current);
    }
    template <typename Get, typename Set>
    void Caption(Get get, Set set, const QString& suffix = QStringLiteral(".Caption")) const {
        const QString current = get();
        const QString text = Text(suffix, current);
        if (text != current) set(text);
    }
    static QString ItemSuffix(const char* list, int index) {
        return QStringLiteral(".%1[%2].Caption").arg(QLatin1StringView(list)).arg(index);
    }

    bool ApplyOwnClass() const;
    void ApplyStockWidget() const;
    void Property(const char* name, const QString& suffix) const;
    void Hint() const;
    void NoteItems() const;
    bool TabPage() const;
    void ComboItems(QComboBox* combo) const;
    void TreeItems(QTreeWidget* tree) const;
    void Columns(QAbstractItemModel* model) const;

    QObject* object_;
    QString name_;
    const TextLookup& lookup_;
};

void Translator::Property(const char* name, const QString& suffix) const {
    Caption([&] { return object_->property(name).toString(); },
            [&](const QString& text) { object_->setProperty(name, text); }, suffix);
}

// A control without its own hint property shows its tool tip as the hint.
void Translator::Hint() const {
    auto* widget = qobject_cast<QWidget*>(object_);
    if (object_->metaObject()->indexOfProperty("Hint") >= 0 || !widget) {
        Property("Hint", QStringLiteral(".Hint"));
        return;
    }
    Caption([&] { return widget->toolTip(); }, [&](const QString& t) { widget->setToolTip(t); },
            QStringLiteral(".Hint"));
}

void Translator::NoteItems() const {
    QStringList items = object_->property("Items").toStringList();
    for (int i = 0; i < items.size(); ++i)
        items[i] = Text(ItemSuffix("Items", i), items[i]);
    if (items != object_->property("Items").toStringList()) object_->setProperty("Items", items);
}

// The rules of the program's own controls; true when one of them applied.
bool Translator::ApplyOwnClass() const {
    if (IsKindOf(object_, QLatin1StringView("TLabelNote"))) {
        NoteItems();
    } else if (IsKindOf(object_, QLatin1StringView("TImageNote"))) {
        if (object_->property("ShowHint").toBool()) Hint();
    } else if (IsKindOf(object_, QLatin1StringView("TRdImageButton"))) {
        Property("Caption", QStringLiteral(".Caption"));
        Hint();
    } else if (IsKindOf(object_, QLatin1StringView("TMenuItem"))) {
        Property("Caption", QStringLiteral(".Caption"));
    } else if (IsKindOf(object_, QLatin1StringView("TRdLabel")) ||
               IsKindOf(object_, QLatin1StringView("TRdHtmLabel"))) {
        Property("Caption", QStringLiteral(".Caption"));
    } else {
        return false;
    }
    return true;
}

bool Translator::TabPage() const {
    auto* page = qobject_cast<QWidget*>(object_);
    auto* stack = page ? qobject_cast<QStackedWidget*>(page->parent()) : nullptr;
    auto* tabs = stack ? qobject_cast<QTabWidget*>(stack->parent()) : nullptr;
    const int index = tabs ? tabs->indexOf(page) : -1;
    if (index < 0) return false;
    Caption([&] { return tabs->tabText(index); },
            [&](const QString& t) { tabs->setTabText(index, t); });
    return true;
}

void Translator::ComboItems(QComboBox* combo) const {
    for (int i = 0; i < combo->count(); ++i)
        Caption([&] { return combo->itemText(i); },
                [&](const QString& t) { combo->setItemText(i, t); }, ItemSuffix("Items", i));
}

// Nodes are numbered as the tree lists them, parents before their children.
void Translator::TreeItems(QTreeWidget* tree) const {
    int index = 0;
    std::function<void(QTreeWidgetItem*)> visit = [&](QTreeWidgetItem* item) {
        Caption([&] { return item->text(0); }, [&](const QString& t) { item->setText(0, t); },
                ItemSuffix("Items", index++));
        for (int i = 0; i < item->childCount(); ++i)
            visit(item->child(i));
    };
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        visit(tree->topLevelItem(i));
}

void Translator::Columns(QAbstractItemModel* model) const {
    for (int i = 0; i < model->columnCount(); ++i)
        Caption([&] { return model->headerData(i, Qt::Horizontal).toString(); },
                [&](const QString& t) { model->setHeaderData(i, Qt::Horizontal, t); },
                ItemSuffix("Columns", i));
}

void Translator::ApplyStockWidget() const {
    auto textOf = [](auto* w) { return [w] { return w->text(); }; };
    auto setTextOf = [](auto* w) { return [w](const QString& t) { w->setText(t); }; };
    if (auto* label = qobject_cast<QLabel*>(object_))
        return Caption(textOf(label), setTextOf(label));
    if (auto* button = qobject_cast<QPushButton*>(object_))
        return Caption(textOf(button), setTextOf(button));
    if (auto* group = qobject_cast<QGroupBox*>(object_))
        return Caption([group] { return group->title(); },
                       [group](const QString& t) { group->setTitle(t); });
    if (qobject_cast<QCheckBox*>(object_) || qobject_cast<QRadioButton*>(object_)) {
        auto* check = static_cast<QAbstractButton*>(object_);
        return Caption(textOf(check), setTextOf(check));
    }
    if (auto* action = qobject_cast<QAction*>(object_))
        return Caption(textOf(action), setTextOf(action));
    if (auto* tool = qobject_cast<QToolButton*>(object_))
        return Caption(textOf(tool), setTextOf(tool));
    if (TabPage()) return;
    if (auto* combo = qobject_cast<QComboBox*>(object_)) return ComboItems(combo);
    // A tree that draws its root decoration plays the tree view; a flat one,
    // like a table, plays the list view with its columns.
    auto* tree = qobject_cast<QTreeWidget*>(object_);
    if (tree && tree->rootIsDecorated()) return TreeItems(tree);
    if (tree) return Columns(tree->model());
    if (auto* table = qobject_cast<QTableWidget*>(object_)) return Columns(table->model());
}

// Skinned controls are matched before stock kinds: a skinned control may be
// built on a stock widget but keeps its texts in its own properties.
void Translator::Apply() const {
    if (!ApplyOwnClass()) ApplyStockWidget();
}

// Qt's own helper children (viewports, tab stacks) carry "qt_" names; they get
// no texts, but the components inside them do.
void Walk(QObject* parent, const TextLookup& lookup) {
    for (QObject* child : parent->children()) {
        const QString name = child->objectName();
        if (!name.isEmpty() && !name.startsWith(QLatin1StringView("qt_")))
            Translator(child, lookup).Apply();
        Walk(child, lookup);
    }
}

}  // namespace

void ApplyComponentTexts(QObject* root, const TextLookup& lookup) {
    if (root) Walk(root, lookup);
}

}  // namespace qpt
