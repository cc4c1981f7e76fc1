#pragma once

#include <QString>
#include <functional>

#include "imaging/IEUndoStore.h"
#include "imaging/IEUndoTarget.h"

namespace qpt {

// The undo and redo lists of a view. Steps hold either a copy of a picture
// or a stream of layers; with UndoLocation ieFile both live in temporary
// files, so that a hundred steps of a full screenshot stay off the heap.
class TIEImageProc {
public:
    explicit TIEImageProc(TIEUndoTarget* target = nullptr)
        : AutoUndo(target != nullptr), target_(target) {}

    TIEUndoTarget* Target() const { return target_; }
    void SetTarget(TIEUndoTarget* target) { target_ = target; }

    int UndoLimit() const { return undoLimit_; }
    // Stores the value only; steps above it go as new ones arrive.
    void SetUndoLimit(int limit) { undoLimit_ = std::max(limit, 0); }
    TIELocation UndoLocation() const { return undoLocation_; }
    void SetUndoLocation(TIELocation location) { undoLocation_ = location; }

    // Adds a step with the current state of what source names. A source that
    // cannot be had, or a step that cannot be stored whole, leaves the store
    // as it was; the result tells whether a step was added.
    bool SaveUndoCaptioned(const QString& caption, TIEUndoSource source, int aux = 0);
    bool SaveUndo(TIEUndoSource source = ieuImage) { return SaveUndoCaptioned({}, source); }
    // How many steps have been added in the store's life: a caller that
    // must take back its own step can tell whether there is one.
    uint64_t SavedSteps() const { return savedSteps_; }

    // Restores the newest step; with removeStep it leaves the store and a
    // redo step of the present state takes its place on the redo list.
    void Undo(bool removeStep = false) { UndoAt(0, removeStep); }
    // Position 0 is the newest step; the steps above position go as well.
    void UndoAt(int position, bool removeStep = false);
    // Restores the newest redo step, saving the present state for undo.
    void Redo();
    // Drops the step at position without restoring it, as when a creation
    // that saved a step is cancelled.
    void DiscardUndo(int position = 0);

    int UndoCount() const { return undo_.Count(); }
    int RedoCount() const { return redo_.Count(); }
    bool CanUndo() const { return UndoCount() > 0; }
    bool CanRedo() const { return RedoCount() > 0; }
    // Index 0 is the newest step.
    QString UndoCaptions(int index) const;
    const TIEUndoStoreInfo* UndoInfo(int index) const;
    void ClearUndo() { undo_.Clear(); }
    void ClearRedo() { redo_.Clear(); }
    void ClearAllUndo() {
        ClearUndo();
        ClearRedo();
    }

    bool AutoUndo;
    std::function<void()> OnSaveUndo;
    // Called before a restore with true for undo and false for redo;
    // returning false cancels it.
    std::function<bool(bool isUndo)> OnUndoRedo;

private:
    // Takes the state of what source names for layers index / current.
    bool Capture(TIEUndoSource source, int layerIndex, int layerCurrent, TIEUndoObject& object);
    std::unique_ptr<QIODevice> MakeStream() const;
    void Restore(const TIEUndoStoreInfo& info, TIEUndoObject& object);
    // False when the step could not be read back.
    bool TryRestore(const TIEUndoStoreInfo& info, TIEUndoObject& object);
    // A fresh step of the present state with the layers that info names.
    bool PresentState(const TIEUndoStoreInfo& info, TIEUndoObject& object);

    TIEUndoTarget* target_;
    TIEUndoStore undo_;
    TIEUndoStore redo_;
    int undoLimit_ = 1;
    TIELocation undoLocation_ = ieFile;
    uint64_t savedSteps_ = 0;
};

}  // namespace qpt
