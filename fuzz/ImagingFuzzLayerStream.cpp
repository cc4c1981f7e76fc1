#include <QBuffer>
#include <cstddef>
#include <cstdint>

#include "imaging/IEBitmap.h"
#include "imaging/IEImageLayer.h"
#include "imaging/IELayerList.h"
#include "imaging/IELayerStream.h"

// Any bytes given to the layer stream readers must end in a loaded list or in
// the corruption error, never in a crash or an unbounded allocation.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    qpt::TIELayerList list;
    try {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        qpt::LoadLayersFromStream(buffer, list);
        // What was read must save again.
        QByteArray again;
        QBuffer out(&again);
        out.open(QIODevice::WriteOnly);
        qpt::SaveLayersToStream(out, list, true);
    } catch (const qpt::EIEException&) {
    }
    try {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        qpt::LoadLayerFromStream(buffer, *list.GetLayer(0));
    } catch (const qpt::EIEException&) {
    }
    return 0;
}
