#pragma once

#include <QList>
#include <QObject>

#include "skin/PictureItem.h"

namespace qpt {

// An owned, ordered list of pictures. Any change to the list or to one of its
// pictures is told through Changed, so every view sharing it repaints.
class TPictureCollection : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)

public:
    explicit TPictureCollection(QObject* parent = nullptr);

    int Count() const { return int(items_.size()); }
    // Nothing for an index outside the list.
    TPictureItem* Items(int index) const;
    // Adds an item holding the picture of that name (may be empty).
    TPictureItem* Add(const QString& name = {}, const QString& pictureText = {});
    void Delete(int index);
    void Clear();

signals:
    void Changed();

private:
    QList<TPictureItem*> items_;
};

}  // namespace qpt
