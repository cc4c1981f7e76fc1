#pragma once

class QString;
class QWidget;

namespace qpt {

class TRdFormSkin;
class TRdSkinStyle;

// The pinned window's skin components, as its form would carry them: the
// style that loads the program's packages and governs the process, and the
// form skin that keeps a soft shadow behind the borderless window. The style
// starts with the skin package named (a name in the program's skin folder).
TRdSkinStyle* CreatePinnedSkinStyle(QWidget& form, const QString& skinRccFile);
TRdFormSkin* CreatePinnedFormSkin(QWidget& form);

}  // namespace qpt
