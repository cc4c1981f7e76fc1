#include "skin/RdGraphic.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace qpt {

namespace {

std::mutex& ResolverLock() {
    static std::mutex lock;
    return lock;
}

TGraphicResolver& Resolver() {
    static TGraphicResolver resolver;
    return resolver;
}

}  // namespace

TPngSmoothFilter SmoothFilterFromInt(int value) {
    if (value < 0 || value > 2) return TPngSmoothFilter::psfDefault;
    return static_cast<TPngSmoothFilter>(value);
}

TRdGraphic::~TRdGraphic() {
    std::vector<TRdGraphic*> referrers;
    {
        std::lock_guard guard(referrersLock_);
        referrers.swap(referrers_);
    }
    for (TRdGraphic* referrer : referrers)
        referrer->SourceGone(this);
}

void TRdGraphic::Draw(QPainter& painter, const QRect& dest) {
    DrawPart(painter, dest, QRect(0, 0, Width(), Height()), DrawAlpha(), false,
             TPngSmoothFilter::psfDefault);
}

void TRdGraphic::DrawAlpha(QPainter& painter, const QRect& dest, int alpha) {
    DrawPart(painter, dest, QRect(0, 0, Width(), Height()), alpha, false,
             TPngSmoothFilter::psfDefault);
}

void TRdGraphic::Changed() {
    // Descriptions may name each other in a circle; one round is enough.
    if (changing_) return;
    changing_ = true;
    ParentChanged();
    NotifyReferrers();
    if (onChange_) onChange_();
    changing_ = false;
}

void TRdGraphic::AddReferrer(TRdGraphic* referrer) {
    std::lock_guard guard(referrersLock_);
    auto at = std::lower_bound(referrers_.begin(), referrers_.end(), referrer);
    if (at == referrers_.end() || *at != referrer) referrers_.insert(at, referrer);
}

void TRdGraphic::RemoveReferrer(TRdGraphic* referrer) {
    std::lock_guard guard(referrersLock_);
    auto at = std::lower_bound(referrers_.begin(), referrers_.end(), referrer);
    if (at != referrers_.end() && *at == referrer) referrers_.erase(at);
}

void TRdGraphic::NotifyReferrers() {
    // A referrer may unregister while it reacts, so work on a copy.
    std::vector<TRdGraphic*> referrers;
    {
        std::lock_guard guard(referrersLock_);
        referrers = referrers_;
    }
    for (TRdGraphic* referrer : referrers)
        referrer->Changed();
}

size_t TRdGraphic::ReferrerCount() const {
    std::lock_guard guard(referrersLock_);
    return referrers_.size();
}

TGraphicResolver SetGraphicResolver(TGraphicResolver resolver) {
    std::lock_guard guard(ResolverLock());
    return std::exchange(Resolver(), std::move(resolver));
}

TRdGraphic* ResolveGraphic(const QString& name) {
    TGraphicResolver resolver;
    {
        std::lock_guard guard(ResolverLock());
        resolver = Resolver();
    }
    return resolver ? resolver(name) : nullptr;
}

}  // namespace qpt
