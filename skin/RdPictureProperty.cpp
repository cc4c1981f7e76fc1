#include "skin/RdPictureProperty.h"

#include <QRegularExpression>

#include "skin/RdGraphic.h"

namespace qpt {

TRdPictureProperty::TRdPictureProperty(QObject* parent) : QObject(parent) {
    picture_.OnChange = [this] { emit Changed(); };
}

bool TRdPictureProperty::Empty() const {
    return !Graphic() || Graphic()->Empty();
}

void TRdPictureProperty::Clear() {
    if (Graphic()) picture_.SetGraphic(nullptr);
}

QString TRdPictureProperty::Text() const {
    QStringList lines;
    picture_.WriteText(lines, nullptr);
    return lines.join(QStringLiteral("\r\n"));
}

void TRdPictureProperty::SetText(const QString& text) {
    static const QRegularExpression kBreaks(QStringLiteral("\r\n|\r|\n"));
    QStringList lines = text.split(kBreaks, Qt::SkipEmptyParts);
    if (lines.isEmpty()) {
        Clear();
        return;
    }
    picture_.ReadText(lines);
}

void TRdPictureProperty::SetData(const QByteArray& data) {
    if (data.isEmpty()) {
        Clear();
        return;
    }
    picture_.ReadData(data);
    emit Changed();
}

}  // namespace qpt
