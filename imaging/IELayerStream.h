#pragma once

#include <QIODevice>

namespace qpt {

class TIELayer;
class TIELayerList;

// The layer stream: a small header, then each layer's kind and fields, and
// with withPixels the pictures of image layers. Readers raise EIEException
// with "Layer stream has been corrupted" for a short or inconsistent stream
// and with the version message for a stream of a newer format.

// The whole list, in order, with the current index.
void SaveLayersToStream(QIODevice& device, const TIELayerList& layers, bool withPixels);
// Replaces every layer: the first record goes into the picture's layer, the
// others become new layers. Nothing changes when the stream is unreadable.
void LoadLayersFromStream(QIODevice& device, TIELayerList& layers);

// One layer. Loading reads into the given layer, whose kind must match;
// properties and pixels the stream does not hold stay as they are.
void SaveLayerToStream(QIODevice& device, const TIELayer& layer, bool withPixels);
void LoadLayerFromStream(QIODevice& device, TIELayer& layer);

}  // namespace qpt
