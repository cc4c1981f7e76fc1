#pragma once

class QWidget;

namespace qpt {

class TRdFormSkin;
class TRdSkinStyle;

// The pinned window's skin components, as its form would carry them: the
// style that loads the program's packages and governs the process, and the
// form skin that keeps a soft shadow behind the borderless window.
TRdSkinStyle* CreatePinnedSkinStyle(QWidget& form);
TRdFormSkin* CreatePinnedFormSkin(QWidget& form);

}  // namespace qpt
