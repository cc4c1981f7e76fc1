#pragma once

#include "imaging/IEBitmap.h"
#include "imaging/IEInteractionTypes.h"
#include "imaging/IEViewServices.h"

namespace qpt {

class TIEBitmap;
class TIEViewMapping;

// A mouse tool of the view. The view hands every event to its tools in list
// order, in bitmap pixels; a tool that returns true from MouseDown takes the
// press, and the view's own layer handling does not run for it.
class TIEUserInteraction {
public:
    explicit TIEUserInteraction(TIEViewServices& owner) : owner_(owner) {}
    virtual ~TIEUserInteraction() = default;
    TIEUserInteraction(const TIEUserInteraction&) = delete;
    TIEUserInteraction& operator=(const TIEUserInteraction&) = delete;

    TIEViewServices& Owner() const { return owner_; }
    bool Enabled() const { return enabled_; }
    // Turning a tool off drops whatever it had under way.
    virtual void SetEnabled(bool enabled) {
        if (!enabled && enabled_) Reset();
        enabled_ = enabled;
    }
    // True while the tool writes its result, so that the view does not react.
    bool Busy() const { return busy_; }

    virtual bool MouseDown(TIEMouseButton button, TIEShiftState shift, int x, int y) = 0;
    // Called for every move, with or without a button down.
    virtual void MouseMove(TIEShiftState shift, int x, int y) = 0;
    virtual void MouseUp(TIEMouseButton button, TIEShiftState shift, int x, int y) = 0;
    // Draws the tool's preview on the view's back buffer, only inside clip
    // (client coordinates).
    virtual void PaintArea(TIEBitmap& backBuffer, const TIEViewMapping& mapping,
                           const QRect& clip) {
        (void)backBuffer, (void)mapping, (void)clip;
    }
    void Paint(TIEBitmap& backBuffer, const TIEViewMapping& mapping) {
        PaintArea(backBuffer, mapping, QRect(0, 0, backBuffer.Width(), backBuffer.Height()));
    }
    // True while a press, drag or two-click gesture is open.
    virtual bool IsActive() const = 0;
    // Drops what is under way without a trace.
    virtual void Cancel() = 0;
    // Ends what is under way when the tool is switched off.
    virtual void Reset() { Cancel(); }
    // Another tool is armed or the view lost the mouse.
    virtual void Abandon() { Cancel(); }

protected:
    void SetBusy(bool busy) { busy_ = busy; }
    // Distance in view pixels of a distance in bitmap pixels.
    double ViewDistance(double bitmapDistance) const { return bitmapDistance * owner_.ZoomD100(); }

private:
    TIEViewServices& owner_;
    bool enabled_ = false;
    bool busy_ = false;
};

}  // namespace qpt
