#pragma once

#include <QObject>
#include <vector>

#include "skin/RdHtmLabelLink.h"

namespace qpt {

// The links of a TRdHtmLabel, each found by its name.
class TRdHtmLabelLinks : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)

public:
    explicit TRdHtmLabelLinks(QObject* parent = nullptr);

    int Count() const { return int(items_.size()); }
    TRdHtmLabelLink* Item(int index) const;
    TRdHtmLabelLink* Find(const QString& name) const;
    TRdHtmLabelLink* Add(const QString& name);
    void Clear();

signals:
    void Changed();

private:
    std::vector<TRdHtmLabelLink*> items_;
};

}  // namespace qpt
