#include "imaging/IELayerList.h"

#include <cmath>
#include <string>

#include "imaging/IEImageCompose.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IELineLayer.h"
#include "imaging/IEPolylineLayer.h"
#include "imaging/IEShapeLayer.h"
#include "imaging/IETextLayer.h"

namespace qpt {

TIELayerList::TIELayerList() {
    auto picture = std::make_unique<TIEImageLayer>(this);
    picture->Blank(1, 1, BackgroundColor);  // an empty picture until one is loaded
    picture->VisibleBox = false;            // the picture itself never shows a frame
    picture->EndUpdate();
    layers_.push_back(std::move(picture));
}

TIELayerList::~TIELayerList() = default;

namespace {

template <class Layer>
std::unique_ptr<TIELayer> Make(TIELayerList* owner) {
    return std::make_unique<Layer>(owner);
}

// By kind, in the order of the kinds.
constexpr std::unique_ptr<TIELayer> (*kFactories[])(TIELayerList*) = {
    Make<TIEImageLayer>, Make<TIEShapeLayer>, Make<TIELineLayer>, Make<TIEPolylineLayer>,
    Make<TIETextLayer>};
static_assert(std::size(kFactories) == IELayerKindCount);

}  // namespace

std::unique_ptr<TIELayer> TIELayerList::CreateLayer(int kind, TIELayerList* owner) {
    if (kind < 0 || kind >= IELayerKindCount)
        throw EIEException("Layer insertion error - Invalid Type: " + std::to_string(kind));
    std::unique_ptr<TIELayer> layer = kFactories[kind](owner);
    layer->ApplyChanges();
    layer->EndUpdate();
    return layer;
}

TIELayer* TIELayerList::GetLayer(int index) const {
    if (index < 0 || index >= LayersCount()) return nullptr;
    return layers_[size_t(index)].get();
}

TIEImageLayer& TIELayerList::Background() const {
    return static_cast<TIEImageLayer&>(*layers_.front());
}

int TIELayerList::IndexOf(const TIELayer* layer) const {
    for (int i = 0; i < LayersCount(); ++i)
        if (layers_[size_t(i)].get() == layer) return i;
    return -1;
}

bool TIELayerList::ReachesPlainNotify(TIELayerEvent event) {
    switch (event) {
        case ielBeginResizing:
        case ielBeginRotating:
        case ielBeginMoving:
        case ielBeginCreating:
        case ielBeforeRemove:
        case ielRemoved:
            return false;
        default:
            return true;
    }
}

void TIELayerList::Notify(int layer, TIELayerEvent event) {
    if (OnLayerNotifyEx) OnLayerNotifyEx(layer, event);
    if (OnLayerNotify && ReachesPlainNotify(event)) OnLayerNotify(layer, event);
}

void TIELayerList::SetLayersCurrent(int index) {
    if (index < -1 || index >= LayersCount()) return;
    if (AllowMultiSelect) {
        for (int i = 0; i < LayersCount(); ++i) {
            TIELayer& other = *layers_[size_t(i)];
            if (i == index || !other.Selected) continue;
            other.Selected = false;
            Notify(i, ielDeselected);
        }
    }
    current_ = index;
    if (index < 0) return;
    layers_[size_t(index)]->Selected = true;
    NeedsUpdate = true;
    Notify(index, ielSelected);
}

void TIELayerList::Cascade(TIELayer& layer) {
    if (layer.Width + 90 >= ClientSize.width() || layer.Height + 90 >= ClientSize.height()) return;
    cascade_ += 40;
    if (layer.Width + cascade_ > ClientSize.width() - 50 ||
        layer.Height + cascade_ > ClientSize.height() - 50)
        cascade_ = 40;
    layer.PosX = cascade_;
    layer.PosY = cascade_;
}

TIELayer* TIELayerList::LayersAdd(int kind, std::optional<QPointF> pos, std::optional<QSizeF> size,
                                  bool saveUndo) {
    std::unique_ptr<TIELayer> layer = CreateLayer(kind, this);
    if (saveUndo && OnSaveObjectsUndo) OnSaveObjectsUndo();
    if (kind == ielkImage) {
        const TIEBitmap& picture = Background().Picture();
        static_cast<TIEImageLayer&>(*layer).Blank(picture.Width(), picture.Height(),
                                                  BackgroundColor);
    }
    if (size) {
        layer->Width = size->width();
        layer->Height = size->height();
    }
    if (pos) {
        layer->PosX = pos->x();
        layer->PosY = pos->y();
    } else {
        Cascade(*layer);
    }
    return LayersInsert(LayersCount(), std::move(layer));
}

TIELayer* TIELayerList::LayersInsert(int index, std::unique_ptr<TIELayer> layer) {
    index = std::clamp(index, 1, LayersCount());
    layer->SetOwner(this);
    TIELayer* raw = layer.get();
    layers_.insert(layers_.begin() + index, std::move(layer));
    raw->Changed(true);
    SetLayersCurrent(index);
    return raw;
}

void TIELayerList::LayersRemove(int index) {
    if (index < 1 || index >= LayersCount()) return;
    Notify(index, ielBeforeRemove);
    layers_.erase(layers_.begin() + index);
    if (current_ >= index) current_ = std::max(0, current_ - 1);
    NeedsUpdate = true;
    Notify(index, ielRemoved);
}

void TIELayerList::ClearAnnotations() {
    while (LayersCount() > 1)
        LayersRemove(LayersCount() - 1);
}

void TIELayerList::ReplaceLayers(std::vector<std::unique_ptr<TIELayer>> layers, int current) {
    if (layers.empty() || layers.front()->Kind() != ielkImage) return;
    ClearAnnotations();
    for (auto& layer : layers)
        layer->SetOwner(this);
    layers_ = std::move(layers);
    current_ = -1;
    NeedsUpdate = true;
    SetLayersCurrent(std::clamp(current, 0, LayersCount() - 1));
}

std::unique_ptr<TIEImageLayer> TIELayerList::ConvertToImageLayer(TIEVectorLayer& layer) {
    const int w = std::max(1, int(std::lround(layer.Width)));
    const int h = std::max(1, int(std::lround(layer.Height)));
    TIEBitmap canvas;
    layer.PaintToBitmap(canvas, w, h);
    auto image = std::make_unique<TIEImageLayer>(this);
    IEPremulToImage(canvas, *image->Bitmap());
    image->PosX = layer.PosX;
    image->PosY = layer.PosY;
    image->Width = layer.Width;
    image->Height = layer.Height;
    image->Opacity = layer.Opacity;
    image->Transparency = layer.Transparency;
    image->Visible = layer.Visible;
    image->EndUpdate();
    return image;
}

void TIELayerList::LayersMerge(int index1, int index2, bool removeUpperLayer) {
    const int low = std::min(index1, index2), high = std::max(index1, index2);
    if (low < 0 || high >= LayersCount() || low == high) return;
    for (int i : {low, high}) {
        if (layers_[size_t(i)]->Kind() == ielkImage) continue;
        auto image = ConvertToImageLayer(static_cast<TIEVectorLayer&>(*layers_[size_t(i)]));
        image->SetOwner(this);
        layers_[size_t(i)] = std::move(image);
    }
    auto& lower = static_cast<TIEImageLayer&>(*layers_[size_t(low)]);
    auto& upper = static_cast<TIEImageLayer&>(*layers_[size_t(high)]);
    if (AutoFixBorders && low == 0) IEGrowToHold(lower, upper, BackgroundColor);
    IEMergeImageLayer(upper, lower);
    lower.Changed(true);
    if (removeUpperLayer) {
        layers_.erase(layers_.begin() + high);
        if (current_ >= LayersCount()) current_ = LayersCount() - 1;
    }
    current_ = -1;
    SetLayersCurrent(low);
}

void TIELayerList::Flatten() {
    for (int i = LayersCount() - 1; i >= 1; --i)
        LayersMerge(0, i, true);
}

}  // namespace qpt
