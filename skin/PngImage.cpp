#include "skin/PngImage.h"

#include <stdexcept>
#include <typeinfo>

#include "skin/DrawImagePart.h"
#include "skin/PngImageData.h"
#include "support/DebugOutput.h"

namespace qpt {

namespace {

const QByteArray kAttributesKeyword = QByteArrayLiteral("RDPNG");

const char* const kFilterNames[] = {"psfDefault", "psfFastSmooth", "psfSmooth"};

bool ReadBool(const QString& text, bool& value) {
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 || text == "1")
        value = true;
    else if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0 || text == "0")
        value = false;
    else
        return false;
    return true;
}

bool ReadFilter(const QString& text, TPngSmoothFilter& value) {
    for (int i = 0; i < 3; ++i) {
        if (text.compare(QLatin1String(kFilterNames[i]), Qt::CaseInsensitive) == 0) {
            value = TPngSmoothFilter(i);
            return true;
        }
    }
    bool ok = false;
    const int number = text.toInt(&ok);
    if (ok) value = SmoothFilterFromInt(number);
    return ok;
}

}  // namespace

TPngImage::~TPngImage() {
    if (refCount_.load() > 0) DebugOutput(QStringLiteral("PNG, freed while still referenced"));
    DropPixels();
}

const QImage& TPngImage::Pixels() const {
    return shared_ ? shared_->Pixels : own_;
}

QImage& TPngImage::MutablePixels() {
    if (shared_) {
        own_ = PngShare::Leave(shared_);
        shared_ = nullptr;
    }
    return own_;
}

bool TPngImage::SharesPixelsWith(const TPngImage& other) const {
    return shared_ && shared_ == other.shared_;
}

void TPngImage::EnterSharing() const {
    if (shared_ || own_.isNull()) return;
    shared_ = PngShare::Enter(std::move(own_));
    own_ = QImage();
}

void TPngImage::DropPixels() {
    if (shared_) PngShare::Release(shared_);
    shared_ = nullptr;
    own_ = QImage();
}

bool TPngImage::LoadFromBytes(const QByteArray& bytes) {
    TDecodedPng decoded = DecodePng(bytes);
    TPngImage fresh;
    fresh.own_ = std::move(decoded.Pixels);
    for (TPngText& text : decoded.Texts) {
        if (text.Keyword == kAttributesKeyword)
            fresh.ReadAttributes(text.Text);
        else
            fresh.texts_.push_back(std::move(text));
    }
    Assign(&fresh);
    lastError_ = decoded.Error;
    return !Empty();
}

bool TPngImage::LoadFromText(const QStringList&) {
    Assign(nullptr);
    return false;
}

QByteArray TPngImage::SaveToBytes() const {
    std::vector<TPngText> texts = texts_;
    const QByteArray attributes = AttributesText();
    if (!attributes.isEmpty()) texts.push_back({kAttributesKeyword, attributes});
    return EncodePng(Pixels(), texts);
}

void TPngImage::ReadAttributes(const QByteArray& text) {
    const QStringList lines =
        QString::fromUtf8(text).replace('\r', '\n').split('\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const qsizetype eq = line.indexOf('=');
        if (eq <= 0) continue;
        const QString name = line.left(eq).trimmed();
        const QString value = line.mid(eq + 1).trimmed();
        bool ok = false;
        if (name.compare(QLatin1String("AlphaBlendValue"), Qt::CaseInsensitive) == 0) {
            const int number = value.toInt(&ok);
            if (ok && number >= 0 && number <= 255) alphaBlendValue_ = uint8_t(number);
        } else if (name.compare(QLatin1String("GrayMode"), Qt::CaseInsensitive) == 0) {
            ReadBool(value, grayMode_);
        } else if (name.compare(QLatin1String("SmoothFilter"), Qt::CaseInsensitive) == 0) {
            ReadFilter(value, smoothFilter_);
        }
    }
}

QByteArray TPngImage::AttributesText() const {
    QByteArray text;
    if (alphaBlendValue_ != 255)
        text += "AlphaBlendValue=" + QByteArray::number(alphaBlendValue_) + "\r\n";
    if (grayMode_) text += "GrayMode=True\r\n";
    if (smoothFilter_ != TPngSmoothFilter::psfDefault)
        text += QByteArray("SmoothFilter=") + kFilterNames[int(smoothFilter_)] + "\r\n";
    return text;
}

void TPngImage::Assign(const TRdGraphic* source) {
    if (source == this) return;
    DropPixels();
    texts_.clear();
    alphaBlendValue_ = 255;
    smoothFilter_ = TPngSmoothFilter::psfDefault;
    grayMode_ = false;
    if (const auto* png = dynamic_cast<const TPngImage*>(source)) {
        png->EnterSharing();
        if (png->shared_) {
            PngShare::AddRef(png->shared_);
            shared_ = png->shared_;
        }
        texts_ = png->texts_;
        alphaBlendValue_ = png->alphaBlendValue_;
        smoothFilter_ = png->smoothFilter_;
        grayMode_ = png->grayMode_;
    } else if (source && !source->Empty()) {
        // Any other picture hands over what it shows, at its own size.
        QImage image(source->Width(), source->Height(), QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, source->GetPixel(x, y));
        own_ = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        alphaBlendValue_ = uint8_t(qBound(0, source->DrawAlpha(), 255));
    }
    Changed();
}

void TPngImage::SetPixels(const QImage& image) {
    DropPixels();
    own_ = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Changed();
}

QRgb TPngImage::GetPixel(int x, int y) const {
    const QImage& pixels = Pixels();
    if (!pixels.valid(x, y)) return 0;
    return qUnpremultiply(reinterpret_cast<const QRgb*>(pixels.constScanLine(y))[x]);
}

void TPngImage::SetPixel(int x, int y, QRgb color) {
    if (!Pixels().valid(x, y)) return;
    reinterpret_cast<QRgb*>(MutablePixels().scanLine(y))[x] = qPremultiply(color);
}

void TPngImage::DrawPart(QPainter& painter, const QRect& dest, const QRect& source, int alpha,
                         bool gray, TPngSmoothFilter smooth) {
    if (smooth == TPngSmoothFilter::psfDefault) smooth = smoothFilter_;
    DrawImagePart(painter, Pixels(), dest, source, alpha, gray || grayMode_, smooth);
}

void TPngImage::SetAlphaBlendValue(uint8_t value) {
    if (value == alphaBlendValue_) return;
    alphaBlendValue_ = value;
    Changed();
}

void TPngImage::SetSmoothFilter(TPngSmoothFilter value) {
    if (value == smoothFilter_) return;
    smoothFilter_ = value;
    Changed();
}

void TPngImage::SetGrayMode(bool value) {
    if (value == grayMode_) return;
    grayMode_ = value;
    Changed();
}

int32_t TPngImage::AddRef() {
    if (typeid(*this) != typeid(TPngImage)) throw std::logic_error("only support TPngimage! ");
    return refCount_.fetch_add(1) + 1;
}

int32_t TPngImage::Release() {
    if (typeid(*this) != typeid(TPngImage)) throw std::logic_error("only support TPngimage! ");
    return refCount_.fetch_sub(1) - 1;
}

}  // namespace qpt
