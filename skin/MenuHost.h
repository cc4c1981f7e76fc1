#pragma once

#include <QList>
#include <QRect>
#include <QWidget>

#include "skin/MenuLayout.h"

namespace qpt {

class TDesignRectProperty;
class TMenuItem;
class TRdFont;
class TRdImageNoteList;
class TRdMenuForm;
class TRdPictureProperty;

// The skin values a level of a popup menu paints by, as the menu holds them.
struct TMenuLooks {
    TMenuMetrics Metrics;
    bool AlphaBlend = false;
    int AlphaBlendValue = 255;
    bool DropShadow = false;
    bool LightBorder = false;
    quint32 ColorBackground = 0;
    quint32 ColorIconBar = 0;
    quint32 ColorBorder = 0;
    quint32 ColorHighLight = 0;
    quint32 ColorSeparator = 0;
    quint32 ColorVertLine = 0;
    const TRdFont* FontNormal = nullptr;
    const TRdFont* FontHighLight = nullptr;
    const TRdFont* FontDisabled = nullptr;
    const TRdPictureProperty* PictureCheck = nullptr;
    const TRdPictureProperty* PictureRadio = nullptr;
    const TRdPictureProperty* PictureArrow = nullptr;
    const TRdPictureProperty* PictureShadow = nullptr;
    const TDesignRectProperty* FormBorder = nullptr;
    const TDesignRectProperty* PictureShadowOpt = nullptr;
    const TRdImageNoteList* Images = nullptr;
};

// What the levels of a popup menu (each a window with its control) need of
// the menu that opened them. They know the menu only through this, so that
// the menu owns its levels without the three knowing each other all round.
class TMenuHost {
public:
    virtual TMenuLooks Looks() const = 0;
    // Opens `item`'s entries beside the row `row` (screen rectangle) of the
    // level window `from`; `firstHot` lights the first entry, as a key does.
    virtual QWidget* OpenLevel(TMenuItem* item, const QRect& row, QWidget* from, bool firstHot) = 0;
    virtual void CloseLevelsAbove(QWidget* level) = 0;
    // Closes a level that was opened from another; false for the first one.
    virtual bool CloseSubLevel(QWidget* level) = 0;
    virtual void CloseMenu() = 0;
    // An item without entries was chosen: the menu closes, then it is clicked.
    virtual void Choose(TMenuItem* item) = 0;
    // The levels on show, the first one first.
    virtual QList<TRdMenuForm*> Forms() const = 0;

protected:
    ~TMenuHost() = default;
};

}  // namespace qpt
