#pragma once

#include <QChar>
#include <QList>
#include <QObject>
#include <QString>
#include <functional>

#include "skin/RdPictureProperty.h"

namespace qpt {

// One entry of a skinned popup menu; its own entries make a sub-menu. The
// caption "-" is a separator line, and "&" marks the accelerator letter
// ("&&" is a plain ampersand). Any change is told through Changed, so the
// menu on show measures and paints again.
class TMenuItem : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(bool Checked READ Checked WRITE SetChecked)
    Q_PROPERTY(bool RadioItem READ RadioItem WRITE SetRadioItem)
    Q_PROPERTY(bool Default READ Default WRITE SetDefault)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(bool Visible READ Visible WRITE SetVisible)
    Q_PROPERTY(int ImageIndex READ ImageIndex WRITE SetImageIndex)
    Q_PROPERTY(qpt::TRdPictureProperty* Bitmap READ Bitmap)
    Q_PROPERTY(int Count READ Count)

public:
    explicit TMenuItem(QObject* parent = nullptr);
    TMenuItem(const QString& caption, QObject* parent);

    QString Caption() const { return caption_; }
    void SetCaption(const QString& value);
    bool Checked() const { return checked_; }
    void SetChecked(bool value);
    bool RadioItem() const { return radioItem_; }
    void SetRadioItem(bool value);
    bool Default() const { return default_; }
    void SetDefault(bool value);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool value);
    bool Visible() const { return visible_; }
    void SetVisible(bool value);
    int ImageIndex() const { return imageIndex_; }
    void SetImageIndex(int value);
    TRdPictureProperty* Bitmap() const { return bitmap_; }

    int Count() const { return int(items_.size()); }
    // Nothing for an index outside the list.
    TMenuItem* Items(int index) const;
    // Takes the item over (it becomes a child) and returns it.
    TMenuItem* Add(TMenuItem* item);
    TMenuItem* Add(const QString& caption);
    void Clear();

    bool IsLine() const { return caption_ == QLatin1String("-"); }
    // A visible, enabled entry that is not a line: the keyboard and the
    // mouse can make it hot.
    bool Selectable() const { return visible_ && enabled_ && !IsLine(); }
    // The letter after a single "&", in lower case; a null character if none.
    QChar Accelerator() const;

    std::function<void(TMenuItem& sender)> OnClick;
    // Runs OnClick.
    void Click();

signals:
    // `item` is the entry that changed, this one or one below it.
    void Changed(qpt::TMenuItem* item);

private:
    template <typename T>
    void Change(T& field, const T& value);

    QString caption_;
    bool checked_ = false;
    bool radioItem_ = false;
    bool default_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    int imageIndex_ = -1;
    TRdPictureProperty* bitmap_;
    QList<TMenuItem*> items_;
};

}  // namespace qpt
