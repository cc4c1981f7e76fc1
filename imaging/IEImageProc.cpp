#include "imaging/IEImageProc.h"

#include <QBuffer>
#include <QTemporaryFile>
#include <exception>

#include "imaging/IEFileBuffer.h"

namespace qpt {

namespace {

// A step whose file could not be written whole (a full folder) could not
// give the state back, so it is not a step.
bool WrittenWhole(QIODevice& device) {
    auto* file = qobject_cast<QFileDevice*>(&device);
    return !file || (file->flush() && file->error() == QFileDevice::NoError);
}

}  // namespace

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
        // A copy the folder had no room for would hold a whole picture on
        // the heap for every step; it is not kept.
        if (undoLocation_ == ieFile && copy->Location() != ieFile) return false;
        object.Bitmap = std::move(copy);
        return true;
    }
    if (source != ieuLayer && source != ieuFullLayer && source != ieuObjectsAndLayers) return false;
    auto stream = MakeStream();
    if (source == ieuObjectsAndLayers)
        target_->SaveLayers(*stream);
    else
        target_->SaveLayer(*stream, layerIndex, source == ieuFullLayer);
    if (!WrittenWhole(*stream)) return false;
    object.Stream = std::move(stream);
    return true;
}

bool TIEImageProc::SaveUndoCaptioned(const QString& caption, TIEUndoSource source, int aux) {
    if (undoLimit_ == 0 || !target_) return false;
    const int current = target_->LayersCurrent();
    TIEUndoStoreInfo info{caption, source, aux, -1, current};
    if (source == ieuLayer || source == ieuFullLayer) info.LayerIndex = current;
    TIEUndoObject object;
    if (!Capture(source, info.LayerIndex, current, object)) return false;
    undo_.Add(std::move(object), std::move(info), undoLimit_);
    ++savedSteps_;
    if (OnSaveUndo) OnSaveUndo();
    return true;
}

bool TIEImageProc::PresentState(const TIEUndoStoreInfo& info, TIEUndoObject& object) {
    return Capture(info.Source, info.LayerIndex, info.LayerCurrent, object);
}

bool TIEImageProc::TryRestore(const TIEUndoStoreInfo& info, TIEUndoObject& object) {
    try {
        Restore(info, object);
        return true;
    } catch (const std::exception&) {
        return false;
    }
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
    TIEUndoObject present;
    const bool hasPresent = removeStep && PresentState(undo_.Info(count - 1), present);
    if (!TryRestore(info, undo_.Object(index))) {
        // A step that cannot be read back is dropped; what is shown stays.
        undo_.Delete(index);
        target_->Update();
        return;
    }
    if (removeStep) {
        // The redo list gets the present state first, then the skipped steps
        // newest first, so that each Redo walks one step forward again.
        if (hasPresent) redo_.Push(std::move(present), undo_.Info(count - 1));
        for (int i = count - 1; i > index; --i) {
            TIEUndoStoreInfo moved = undo_.Info(i);
            redo_.Push(undo_.Take(i), std::move(moved));
        }
        undo_.Delete(index);
    }
    target_->Update();
}

void TIEImageProc::Redo() {
    const int count = redo_.Count();
    if (!target_ || count == 0) return;
    if (OnUndoRedo && !OnUndoRedo(false)) return;
    const TIEUndoStoreInfo info = redo_.Info(count - 1);
    TIEUndoObject present;
    const bool hasPresent = undoLimit_ > 0 && PresentState(info, present);
    // A step that cannot be read back changes nothing, so nothing to undo.
    if (TryRestore(info, redo_.Object(count - 1)) && hasPresent)
        undo_.Add(std::move(present), info, undoLimit_);
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
