#pragma once

#include <QObject>
#include <QString>

#include "skin/RdPictureProperty.h"

namespace qpt {

// One named picture of a picture collection ("Facebook" with its icon).
class TPictureItem : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Name READ Name WRITE SetName)
    Q_PROPERTY(qpt::TRdPictureProperty* Picture READ Picture)

public:
    explicit TPictureItem(QObject* parent = nullptr);

    QString Name() const { return name_; }
    void SetName(const QString& value);
    TRdPictureProperty* Picture() const { return picture_; }

signals:
    void Changed();

private:
    QString name_;
    TRdPictureProperty* picture_;
};

}  // namespace qpt
