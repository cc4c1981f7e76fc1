#include "skin/RdPicture.h"

#include <QFile>
#include <QFileInfo>

#include "skin/PngCodec.h"
#include "skin/PngImage.h"
#include "skin/RdgImage.h"
#include "support/DebugOutput.h"

namespace qpt {

namespace {

// Older form resources name the PNG class by earlier names.
bool IsPngClass(const QString& name) {
    return name == QLatin1String("TPngImage") || name == QLatin1String("TPNGGraphic") ||
           name == QLatin1String("TRdLitePng");
}

std::unique_ptr<TRdGraphic> CreateByClass(const QString& name, const QByteArray& stream) {
    if (IsPngClass(name)) return std::make_unique<TPngImage>();
    if (name == QLatin1String("TRdgImage")) return std::make_unique<TRdgImage>();
    if (HasPngSignature(stream.left(9))) return std::make_unique<TPngImage>();
    return nullptr;
}

std::unique_ptr<TRdGraphic> CreateByExtension(const QString& path) {
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == QLatin1String("png")) return std::make_unique<TPngImage>();
    if (extension == QLatin1String("rdg")) return std::make_unique<TRdgImage>();
    return nullptr;
}

}  // namespace

void TRdPicture::SetGraphic(std::unique_ptr<TRdGraphic> graphic) {
    graphic_ = std::move(graphic);
    if (graphic_)
        graphic_->SetOnChange([this] {
            if (OnChange) OnChange();
        });
    if (OnChange) OnChange();
}

bool TRdPicture::ReadData(const QByteArray& data) {
    const int length = data.isEmpty() ? 0 : uint8_t(data[0]);
    if (data.size() < 1 + length) {
        SetGraphic(nullptr);
        return false;
    }
    const QString name = QString::fromUtf8(data.mid(1, length));
    const QByteArray stream = data.mid(1 + length);
    std::unique_ptr<TRdGraphic> graphic = CreateByClass(name, stream);
    if (!graphic) {
        DebugOutput("RdLite\\\\GraphicClass not finded: " + name + ".");
        SetGraphic(nullptr);
        return false;
    }
    const bool loaded = graphic->LoadFromBytes(stream);
    SetGraphic(std::move(graphic));
    return loaded;
}

QByteArray TRdPicture::WriteData() const {
    QByteArray name, stream;
    if (auto* png = dynamic_cast<const TPngImage*>(graphic_.get())) {
        name = "TPngImage";
        stream = png->SaveToBytes();
    } else if (auto* rdg = dynamic_cast<const TRdgImage*>(graphic_.get())) {
        QStringList lines;
        rdg->ToValues(lines);
        name = "TRdgImage";
        stream = lines.join("\r\n").toUtf8();
    } else {
        return {};
    }
    return char(name.size()) + name + stream;
}

void TRdPicture::ReadText(const QStringList& lines) {
    if (auto* rdg = dynamic_cast<TRdgImage*>(graphic_.get())) {
        // A new text replaces the old one whole, fixed keys included.
        rdg->LoadValues(nullptr, false);
        rdg->LoadValues(&lines, false);
        return;
    }
    auto rdg = std::make_unique<TRdgImage>();
    rdg->LoadValues(&lines, false);
    SetGraphic(std::move(rdg));
}

bool TRdPicture::WriteText(QStringList& lines, const TRdPicture* ancestor) const {
    const auto* rdg = dynamic_cast<const TRdgImage*>(graphic_.get());
    if (!rdg) return false;
    rdg->ToValues(lines);
    const auto* other = ancestor ? dynamic_cast<const TRdgImage*>(ancestor->Graphic()) : nullptr;
    if (!other) return true;
    QStringList inherited;
    other->ToValues(inherited);
    return inherited != lines;
}

bool TRdPicture::LoadFromFile(const QString& path) {
    std::unique_ptr<TRdGraphic> graphic = CreateByExtension(path);
    QFile file(path);
    if (!graphic || !file.open(QIODevice::ReadOnly)) {
        DebugOutput("invalid graphic: " + path);
        return false;
    }
    const bool loaded = graphic->LoadFromBytes(file.readAll());
    SetGraphic(std::move(graphic));
    return loaded;
}

}  // namespace qpt
