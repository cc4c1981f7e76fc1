#include "imaging/IEImageProc.h"

#include <QBuffer>
#include <QTemporaryFile>

#include "imaging/IEFileBuffer.h"

namespace qpt {

std::unique_ptr<QIODevice> TIEImageProc::MakeStream() const {
    if (undoLocation_ == ieFile) {
        auto file = std::make_unique<QTemporaryFile>(IETempFolder() + "UNDOXXXXXX");
        if (file->open()) return file;
    }
    auto buffer = std::make_unique<QBuffer>();
    buffer->open(QIODevice::ReadWrite);
    return buffer;
}

bool TIEImageProc::Capture(TIEUndoSource source, int layerIndex, int layerCurrent,
                           TIEUndoObject& object) {
    if (!target_) return false;
    if (source == ieuImage) {
        TIEBitmap* picture = target_->LayerBitmap(layerCurrent);
        if (!picture) picture = target_->CurrentBitmap();
        if (!picture || picture->Width() < 2 || picture->Height() < 2) return false;
        auto copy = std::make_unique<TIEBitmap>();
        // MinFileSize 0 sends every copy to a file when files are asked for.
        if (undoLocation_ == ieFile) copy->SetMinFileSize(0);
        copy->SetLocation(undoLocation_);
        copy->Assign(*picture);
        if (!copy->IsAllocated()) return false;
        object.Bitmap = std::move(copy);
        return true;
    }
    if (source != ieuLayer && source != ieuFullLayer && source != ieuObjectsAndLayers) return false;
    auto stream = MakeStream();
    if (source == ieuObjectsAndLayers)
        target_->SaveLayers(*stream);
    else
        target_->SaveLayer(*stream, layerIndex, source == ieuFullLayer);
    object.Stream = std::move(stream);
    return true;
}

void TIEImageProc::SaveUndoCaptioned(const QString& caption, TIEUndoSource source, int aux) {
    if (undoLimit_ == 0 || !target_) return;
    const int current = target_->LayersCurrent();
    TIEUndoStoreInfo info{caption, source, aux, -1, current};
    if (source == ieuLayer || source == ieuFullLayer) info.LayerIndex = current;
    TIEUndoObject object;
    if (!Capture(source, info.LayerIndex, current, object)) return;
    undo_.Add(std::move(object), std::move(info), undoLimit_);
    if (OnSaveUndo) OnSaveUndo();
}

bool TIEImageProc::PresentState(const TIEUndoStoreInfo& info, TIEUndoObject& object) {
    return Capture(info.Source, info.LayerIndex, info.LayerCurrent, object);
}

void TIEImageProc::Restore(const TIEUndoStoreInfo& info, TIEUndoObject& object) {
    if (object.Bitmap) {
        TIEBitmap* picture = target_->LayerBitmap(info.LayerCurrent);
        if (!picture) picture = target_->CurrentBitmap();
        if (picture) picture->Assign(*object.Bitmap);
        return;
    }
    if (!object.Stream) return;
    object.Stream->seek(0);
    if (info.Source == ieuObjectsAndLayers)
        target_->LoadLayers(*object.Stream);
    else
        target_->LoadLayer(*object.Stream, info.LayerIndex);
}

void TIEImageProc::UndoAt(int position, bool removeStep) {
    const int count = undo_.Count();
    if (!target_ || position < 0 || position >= count) return;
    if (OnUndoRedo && !OnUndoRedo(true)) return;
    const int index = count - 1 - position;
    const TIEUndoStoreInfo info = undo_.Info(index);
    if (removeStep) {
        // The redo list gets the present state first, then the skipped steps
        // newest first, so that each Redo walks one step forward again.
        TIEUndoObject present;
        if (PresentState(undo_.Info(count - 1), present))
            redo_.Push(std::move(present), undo_.Info(count - 1));
        for (int i = count - 1; i > index; --i) {
            TIEUndoStoreInfo moved = undo_.Info(i);
            redo_.Push(undo_.Take(i), std::move(moved));
        }
    }
    Restore(info, undo_.Object(index));
    if (removeStep) undo_.Delete(index);
    target_->Update();
}

void TIEImageProc::Redo() {
    const int count = redo_.Count();
    if (!target_ || count == 0) return;
    if (OnUndoRedo && !OnUndoRedo(false)) return;
    const TIEUndoStoreInfo info = redo_.Info(count - 1);
    TIEUndoObject present;
    if (undoLimit_ > 0 && PresentState(info, present))
        undo_.Add(std::move(present), info, undoLimit_);
    Restore(info, redo_.Object(count - 1));
    redo_.Delete(count - 1);
    target_->Update();
}

void TIEImageProc::DiscardUndo(int position) {
    if (position >= 0 && position < undo_.Count()) undo_.Delete(undo_.Count() - 1 - position);
}

QString TIEImageProc::UndoCaptions(int index) const {
    const TIEUndoStoreInfo* info = UndoInfo(index);
    return info ? info->Caption : QString();
}

const TIEUndoStoreInfo* TIEImageProc::UndoInfo(int index) const {
    if (index < 0 || index >= undo_.Count()) return nullptr;
    return &undo_.Info(undo_.Count() - 1 - index);
}

}  // namespace qpt
