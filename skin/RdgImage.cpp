#include "skin/RdgImage.h"

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>

#include "skin/FrameName.h"
#include "skin/NameValueLines.h"
#include "skin/PngImage.h"
#include "skin/SkinDraw.h"

namespace qpt {

namespace {

namespace nv = NameValueLines;

// Descriptions may name each other in a circle; a chain longer than this is
// taken as one and resolves to nothing.
constexpr int kMaxChain = 32;
// A picture nobody paints for this long (or three frames) stops animating.
constexpr uint32_t kIdleMs = 3000;

QString StripForced(const QString& name) {
    return name.endsWith('!') ? name.chopped(1) : name;
}

// Reads `key!` first, then `key`; true when the forced form was there.
std::optional<QString> ReadForcible(const QStringList& lines, const QString& key, bool& forced) {
    if (auto value = nv::Find(lines, key + '!')) {
        forced = true;
        return value;
    }
    return nv::Find(lines, key);
}

int SourceAlpha(const TRdGraphic* source) {
    if (const auto* rdg = dynamic_cast<const TRdgImage*>(source)) return rdg->AlphaBlendValue();
    if (const auto* png = dynamic_cast<const TPngImage*>(source)) return png->AlphaBlendValue();
    return -1;
}

}  // namespace

uint32_t SkinTickNow() {
    using namespace std::chrono;
    return uint32_t(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

TRdgImage::TRdgImage() {
    imgOpt_.OnChange = [this] {
        if (loadingOpt_) return;
        optFixed_ = true;
        Changed();
    };
    imgOpt_.OnDefaultRequested = [this] {
        const int w = Width() / 3, h = Height() / 3;
        imgOpt_.Set(w, h, w, h, imgOpt_.StretchMode());
    };
}

TRdgImage::~TRdgImage() {
    SetBase(nullptr);
    SetPlayImage(nullptr);
}

void TRdgImage::SetBase(TRdGraphic* graphic) const {
    if (baseImage_ == graphic) return;
    auto* self = const_cast<TRdgImage*>(this);
    if (baseImage_) baseImage_->RemoveReferrer(self);
    baseImage_ = graphic;
    if (baseImage_) baseImage_->AddReferrer(self);
}

void TRdgImage::SetPlayImage(TRdGraphic* graphic) const {
    if (playImage_ == graphic) return;
    auto* self = const_cast<TRdgImage*>(this);
    if (playImage_) playImage_->RemoveReferrer(self);
    playImage_ = graphic;
    if (playImage_) playImage_->AddReferrer(self);
}

void TRdgImage::SourceGone(const TRdGraphic* source) {
    if (source == baseImage_) {
        baseImage_ = nullptr;
        baseAsked_ = false;
    }
    if (source == playImage_) playImage_ = nullptr;
    resolved_.valid = false;
}

bool TRdgImage::LoadFromBytes(const QByteArray& bytes) {
    return LoadFromText(
        QString::fromUtf8(bytes).replace('\r', '\n').split('\n', Qt::SkipEmptyParts));
}

bool TRdgImage::LoadFromText(const QStringList& lines) {
    LoadValues(&lines, false);
    return !imgName_.isEmpty();
}

void TRdgImage::ClearPlay() {
    playImgName_.clear();
    playScript_.clear();
    playIndex_ = -1;
    playFirst_ = playLast_ = 0;
    SetPlayImage(nullptr);
}

void TRdgImage::ParsePlayName() {
    const qsizetype open = imgName_.indexOf('<');
    if (duration_ == 0 || open < 0 || imgName_.indexOf('-', open) < 0) return;
    const qsizetype close = imgName_.indexOf('>', open);
    playImgName_ = imgName_.left(open);
    playScript_ = imgName_.mid(open + 1, close < 0 ? -1 : close - open - 1);
    const qsizetype dash = playScript_.indexOf('-');
    playFirst_ = playScript_.left(dash).trimmed().toInt();
    playLast_ = playScript_.mid(dash + 1).trimmed().toInt();
    playIndex_ = playFirst_;
}

void TRdgImage::SetOptSilently(const TDesignRect& from) {
    loadingOpt_ = true;
    imgOpt_.Set(from.Left(), from.Top(), from.Right(), from.Bottom(), from.StretchMode());
    loadingOpt_ = false;
}

void TRdgImage::ReadKeys() {
    if (!rectFixed_) {
        const QList<int> n =
            nv::Numbers(ReadForcible(values_, "imgrect", rectFixed_).value_or(""), 4);
        rect_ = {n[0], n[1], n[2], n[3]};
    }
    if (!alphaFixed_) {
        bool ok = false;
        const int value = ReadForcible(values_, "imgalpha", alphaFixed_).value_or("").toInt(&ok);
        alpha_ = ok ? std::clamp(value, -1, 255) : -1;
    }
    if (smooth_ == TPngSmoothFilter::psfDefault)
        smooth_ = SmoothFilterFromInt(nv::Find(values_, "imgsmooth").value_or("0").toInt());
    if (!optFixed_) {
        const QList<int> n =
            nv::Numbers(ReadForcible(values_, "imgopt", optFixed_).value_or(""), 5);
        TDesignRect opt;
        opt.Set(n[0], n[1], n[2], n[3],
                n[4] >= 0 && n[4] <= 3 ? TSuperStretchMode(n[4]) : TSuperStretchMode::sdmDefault);
        SetOptSilently(opt);
    }
}

void TRdgImage::LoadValues(const QStringList* list, bool keepName) {
    if (!list) {
        values_.clear();
        imgName_.clear();
        ClearPlay();
        StopAnimation();
        optFixed_ = rectFixed_ = alphaFixed_ = durationFixed_ = false;
        smooth_ = TPngSmoothFilter::psfDefault;
        rect_ = {};
        alpha_ = -1;
        duration_ = 0;
        SetOptSilently(TDesignRect());
        SetBase(nullptr);
        baseAsked_ = false;
        Changed();
        return;
    }
    if (list != &values_) values_ = *list;
    if (!durationFixed_)
        duration_ = ReadForcible(values_, "duration", durationFixed_).value_or("0").toInt();
    if (!keepName) {
        imgName_ = nv::Find(values_, "imgname").value_or(QString());
        ClearPlay();
        ParsePlayName();
    }
    if (timer_) {
        timer_->stop();
        UpdateTimerInterval();
    }
    ReadKeys();
    if (!keepName) {
        SetBase(nullptr);
        baseAsked_ = false;
    }
    Changed();
}

void TRdgImage::ToValues(QStringList& target) const {
    target = values_;
    auto numbers = [](std::initializer_list<int> list) {
        QStringList parts;
        for (int n : list)
            parts << QString::number(n);
        return parts.join(',');
    };
    nv::Put(target, "imgname", imgName_);
    if (rectFixed_)
        nv::Put(target, "imgrect!", numbers({rect_.Left, rect_.Top, rect_.Right, rect_.Bottom}));
    if (alphaFixed_ && alpha_ != SourceAlpha(baseImage_))
        nv::Put(target, "imgalpha!", QString::number(alpha_));
    if (smooth_ != TPngSmoothFilter::psfDefault)
        nv::Put(target, "imgsmooth", QString::number(int(smooth_)));
    if (optFixed_)
        nv::Put(target, "imgopt!",
                numbers({imgOpt_.Left(), imgOpt_.Top(), imgOpt_.Right(), imgOpt_.Bottom(),
                         int(imgOpt_.StretchMode())}));
    if (durationFixed_) nv::Put(target, "duration!", QString::number(duration_));
    target.removeIf([](const QString& line) { return nv::ValueOf(line).isEmpty(); });
    if (const auto* source = dynamic_cast<const TRdgImage*>(baseImage_)) {
        for (const QString& line : source->values_) {
            const QString inherited = StripForced(nv::NameOf(line)) + '=' + nv::ValueOf(line);
            target.removeAll(inherited);
        }
    }
}

void TRdgImage::MergeFrom(const TRdgImage& source) {
    for (const QString& line : source.values_) {
        const QString name = nv::NameOf(line);
        if (name.compare(QLatin1String("imgname"), Qt::CaseInsensitive) == 0) continue;
        nv::Put(values_, StripForced(name), nv::ValueOf(line));
    }
    if (smooth_ == TPngSmoothFilter::psfDefault) smooth_ = source.smooth_;
    if (!optFixed_) SetOptSilently(source.imgOpt_);
    if (!alphaFixed_ || alpha_ == -1) alpha_ = source.alpha_;
    if (!rectFixed_) rect_ = source.rect_;
    if (!durationFixed_) duration_ = source.duration_;
    playFirst_ = source.playFirst_;
    playLast_ = source.playLast_;
    playImgName_ = source.playImgName_;
    playScript_ = source.playScript_;
    if (!playImgName_.isEmpty()) {
        playIndex_ = std::max(playIndex_, playFirst_);
        nv::Put(values_, "PlayImgName", playImgName_);
        nv::Put(values_, "PlayScript", playScript_);
    }
    UpdateTimerInterval();
}

void TRdgImage::ParentChanged() {
    resolved_.valid = false;
    if (const auto* source = dynamic_cast<const TRdgImage*>(baseImage_)) MergeFrom(*source);
}

void TRdgImage::EnsureBase() const {
    if (baseImage_ || baseAsked_ || imgName_.isEmpty()) return;
    baseAsked_ = true;
    TRdGraphic* graphic = ResolveGraphic(imgName_);
    if (!graphic || graphic == this) return;
    SetBase(graphic);
    const_cast<TRdgImage*>(this)->ParentChanged();
}

TRdGraphic* TRdgImage::NextGraphic() const {
    if (!playImgName_.isEmpty() && playIndex_ >= 0) {
        if (!playImage_) {
            TRdGraphic* frame = ResolveGraphic(FrameName(playImgName_, playIndex_));
            SetPlayImage(frame == this ? nullptr : frame);
        }
        return playImage_;
    }
    EnsureBase();
    return baseImage_;
}

const TRdgImage::Resolved& TRdgImage::Resolve() const {
    if (resolved_.valid) return resolved_;
    Resolved result;
    TRdGraphic* next = NextGraphic();  // may merge inherited keys first
    TImgRect rect = rect_;
    bool rectSet = rect.IsSet();
    int alpha = alpha_;
    for (int depth = 0; next && depth < kMaxChain; ++depth) {
        if (const auto* rdg = dynamic_cast<const TRdgImage*>(next)) {
            if (alpha == -1) alpha = rdg->alpha_;
            if (!rectSet && rdg->rect_.IsSet()) {
                rect = rdg->rect_;
                rectSet = true;
            }
            next = rdg == this ? nullptr : rdg->NextGraphic();
            continue;
        }
        if (auto* png = dynamic_cast<TPngImage*>(next)) {
            result.image = png;
            if (alpha == -1) alpha = png->AlphaBlendValue();
        }
        break;
    }
    if (rectSet)
        result.rect = rect.ToQRect();
    else if (result.image)
        result.rect = QRect(0, 0, result.image->Width(), result.image->Height());
    result.alpha = alpha;
    result.valid = true;
    resolved_ = result;
    return resolved_;
}

TPngImage* TRdgImage::ResolvedImage() const {
    return Resolve().image;
}
QRect TRdgImage::ResolvedRect() const {
    return Resolve().rect;
}

int TRdgImage::Width() const {
    return std::max(0, Resolve().rect.width());
}
int TRdgImage::Height() const {
    return std::max(0, Resolve().rect.height());
}

int TRdgImage::DrawAlpha() const {
    const int alpha = Resolve().alpha;
    return alpha < 0 ? 255 : alpha;
}

QRgb TRdgImage::GetPixel(int x, int y) const {
    const Resolved& resolved = Resolve();
    if (!resolved.image || x < 0 || y < 0 || x >= resolved.rect.width() ||
        y >= resolved.rect.height())
        return 0;
    return resolved.image->GetPixel(x + resolved.rect.left(), y + resolved.rect.top());
}

void TRdgImage::DrawPart(QPainter& painter, const QRect& dest, const QRect& source, int alpha,
                         bool gray, TPngSmoothFilter smooth) {
    const Resolved& resolved = Resolve();
    if (!resolved.image) return;
    const QRect part = source.translated(resolved.rect.topLeft()).intersected(resolved.rect);
    if (smooth == TPngSmoothFilter::psfDefault) smooth = smooth_;
    resolved.image->DrawPart(painter, dest, part, alpha, gray, smooth);
}

void TRdgImage::Draw(QPainter& painter, const QRect& dest) {
    PrepareDraw(SkinTickNow());
    if (!Resolve().image) return;
    if (imgOpt_.Empty())
        DrawPart(painter, dest, QRect(0, 0, Width(), Height()), DrawAlpha(), false, smooth_);
    else
        SkinDraw(painter, dest, this, &imgOpt_);
}

int TRdgImage::TimerInterval() const {
    const int frames = std::abs(playLast_ - playFirst_) + 1;
    return std::max(1, std::abs(duration_) / frames);
}

void TRdgImage::UpdateTimerInterval() {
    if (timer_ && duration_ != 0 && playIndex_ >= 0) timer_->setInterval(TimerInterval());
}

void TRdgImage::StopAnimation() {
    // The timer may be the one whose signal is running: let it go later.
    if (QTimer* timer = timer_.release()) {
        timer->stop();
        timer->deleteLater();
    }
}

void TRdgImage::PrepareDraw(uint32_t now) {
    if (duration_ == 0 || playIndex_ < 0) return;
    lastDrawTick_ = now;
    if (!timer_) {
        timer_ = std::make_unique<QTimer>();
        timer_->setInterval(TimerInterval());
        QObject::connect(timer_.get(), &QTimer::timeout, [this] { AnimationTick(SkinTickNow()); });
    }
    if (!timer_->isActive()) timer_->start();
}

void TRdgImage::AnimationTick(uint32_t now) {
    const uint32_t idle = std::max<uint32_t>(3 * uint32_t(TimerInterval()), kIdleMs);
    if (uint32_t(now - lastDrawTick_) > idle) {
        StopAnimation();
        return;
    }
    playIndex_ = playIndex_ < playFirst_ ? playFirst_ : playIndex_ + 1;
    if (playIndex_ > playLast_) playIndex_ = playFirst_;
    SetPlayImage(nullptr);
    Changed();
}

void TRdgImage::Assign(const TRdGraphic* source) {
    const auto* other = dynamic_cast<const TRdgImage*>(source);
    if (other == this) return;
    if (!other) {
        LoadValues(nullptr, false);
        return;
    }
    values_ = other->values_;
    SetBase(other->baseImage_);
    baseAsked_ = other->baseAsked_;
    SetPlayImage(other->playImage_);
    rect_ = other->rect_;
    imgName_ = other->imgName_;
    playImgName_ = other->playImgName_;
    playScript_ = other->playScript_;
    playIndex_ = other->playIndex_;
    playFirst_ = other->playFirst_;
    playLast_ = other->playLast_;
    alpha_ = other->alpha_;
    smooth_ = other->smooth_;
    SetOptSilently(other->imgOpt_);
    optFixed_ = other->optFixed_;
    rectFixed_ = other->rectFixed_;
    alphaFixed_ = other->alphaFixed_;
    durationFixed_ = other->durationFixed_;
    duration_ = other->duration_;
    UpdateTimerInterval();
    Changed();
}

void TRdgImage::SetImgName(const QString& name) {
    nv::Put(values_, "imgname", name);
    LoadValues(&values_, false);
}

void TRdgImage::SetAlphaBlendValue(int value) {
    alpha_ = std::clamp(value, -1, 255);
    alphaFixed_ = alpha_ != -1;
    Changed();
}

void TRdgImage::SetSmoothFilter(TPngSmoothFilter value) {
    smooth_ = value;
    Changed();
}

void TRdgImage::SetDuration(int value) {
    duration_ = value;
    durationFixed_ = true;
    UpdateTimerInterval();
    Changed();
}

}  // namespace qpt
