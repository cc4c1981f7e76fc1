#include "imaging/IELayerStream.h"

#include <QBuffer>
#include <QDataStream>

#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerStreamFormat.h"

namespace qpt {

namespace {

constexpr quint32 kMagicList = 0x4C455051;   // "QPEL"
constexpr quint32 kMagicLayer = 0x59455051;  // "QPEY"
constexpr quint16 kVersion = 1;
constexpr int kMaxLayers = 100000;

void SetUp(QDataStream& s) {
    s.setByteOrder(QDataStream::LittleEndian);
    s.setFloatingPointPrecision(QDataStream::DoublePrecision);
    s.setVersion(QDataStream::Qt_6_0);
}

void WriteHeader(QDataStream& out, quint32 magic) {
    out << magic << kVersion;
}

void ReadHeader(QDataStream& in, quint32 magic) {
    quint32 m = 0;
    quint16 version = 0;
    in >> m >> version;
    IECheckStream(in);
    if (m != magic) throw EIEException(kLayerStreamCorrupted);
    if (version > kVersion) throw EIEException(kLayerStreamTooNew);
    if (version == 0) throw EIEException(kLayerStreamCorrupted);
}

void WriteRecord(QDataStream& out, const TIELayer& layer, bool withPixels) {
    out << quint8(layer.Kind());
    layer.SaveToStream(out, withPixels);
}

std::unique_ptr<TIELayer> ReadRecord(QDataStream& in, TIELayerList* owner) {
    const int kind = IEReadByte(in, IELayerKindCount - 1);
    auto layer = TIELayerList::CreateLayer(kind, owner);
    layer->LoadFromStream(in);
    return layer;
}

}  // namespace

void SaveLayersToStream(QIODevice& device, const TIELayerList& layers, bool withPixels) {
    QDataStream out(&device);
    SetUp(out);
    WriteHeader(out, kMagicList);
    out << qint32(layers.LayersCount()) << qint32(layers.LayersCurrent());
    for (int i = 0; i < layers.LayersCount(); ++i)
        WriteRecord(out, *layers.GetLayer(i), withPixels);
}

void LoadLayersFromStream(QIODevice& device, TIELayerList& layers) {
    QDataStream in(&device);
    SetUp(in);
    ReadHeader(in, kMagicList);
    const int count = IEReadInt(in, 1, kMaxLayers);
    const int current = IEReadInt(in, -1, count - 1);
    // Read everything first, so that a bad record leaves the list untouched.
    std::vector<std::unique_ptr<TIELayer>> loaded;
    for (int i = 0; i < count; ++i)
        loaded.push_back(ReadRecord(in, &layers));
    if (loaded.front()->Kind() != ielkImage) throw EIEException(kLayerStreamCorrupted);

    auto& first = static_cast<TIEImageLayer&>(*loaded.front());
    // A record without pixels keeps the picture that is there.
    if (first.Picture().Width() == 0) *first.Bitmap() = std::move(*layers.Background().Bitmap());
    layers.ReplaceLayers(std::move(loaded), current);
}

void SaveLayerToStream(QIODevice& device, const TIELayer& layer, bool withPixels) {
    QDataStream out(&device);
    SetUp(out);
    WriteHeader(out, kMagicLayer);
    WriteRecord(out, layer, withPixels);
}

void LoadLayerFromStream(QIODevice& device, TIELayer& layer) {
    QDataStream in(&device);
    SetUp(in);
    ReadHeader(in, kMagicLayer);
    const int kind = IEReadByte(in, IELayerKindCount - 1);
    if (kind != layer.Kind()) throw EIEException(kLayerStreamCorrupted);
    layer.LoadFromStream(in);
    layer.Changed(true);
}

}  // namespace qpt
