#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include "skin/RdPicture.h"

namespace qpt {

class TRdGraphic;

// A picture property of a skinned control as a sub-object, so that a skin or
// form line can set it by name: "ImageNormal.Text='imgname=images/x.png'"
// (a description, one item per line) or "ImageNormal.Data={...}" (the binary
// form with its class name).
class TRdPictureProperty : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE SetText)
    Q_PROPERTY(QByteArray Data READ Data WRITE SetData STORED false)

public:
    explicit TRdPictureProperty(QObject* parent = nullptr);

    TRdPicture& Picture() { return picture_; }
    TRdGraphic* Graphic() const { return picture_.Graphic(); }
    bool Empty() const;
    void Clear();

    // The lines of the description joined by CR LF; empty for other pictures.
    QString Text() const;
    void SetText(const QString& text);
    QByteArray Data() const { return picture_.WriteData(); }
    // Data that cannot be read leaves no picture.
    void SetData(const QByteArray& data);

signals:
    // The picture or what it draws through changed: the owner repaints.
    void Changed();

private:
    TRdPicture picture_;
};

}  // namespace qpt
