#include "annotate/FormSmallTools.h"

#include <QThread>
#include <cmath>

#include "annotate/FontFamilies.h"
#include "annotate/StyleRules.h"
#include "app/session/FirstPaint.h"
#include "app/session/SessionForms.h"
#include "skin/RdComboBox.h"
#include "skin/RdImageButton.h"
#include "skin/RdLabel.h"
#include "skin/ScaleForm.h"
#include "support/QptMessages.h"
#include "support/Scale.h"

namespace qpt {

TFormSmallTools::TFormSmallTools(QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool) {
    // Opening the bar must not take the keyboard from a text being typed.
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize(550, 255);
    RegisterForm(qpt::FormSmallTools, this);
}

TFormSmallTools::~TFormSmallTools() {
    if (fontThread_) fontThread_->wait();
}

void TFormSmallTools::FormCreate() {
    // The font caches are read while the picture is already on the screen,
    // not beside its first paint for the processor.
    AfterFirstPaint(this, [this] {
        if (!fontsReady_ && !fontThread_) StartFontList();
    });
    // The bar shows only once a tool is chosen; its controls, their
    // pictures and measured texts wait until the picture is on the screen.
    SetUpAfterFirstPaint(this, [this] { SetUp(); });
}

void TFormSmallTools::SetUp() {
    if (Panel_Tool_Small) return;
    CreateComponents();
    lbl_PixelSize->SetCaption(QptMessages().Text(QStringLiteral("M_Screen_PixelSize")));
    Font_ComboBox->setCurrentIndex(-1);
    SelectPen(1);
    ScaleSkinnedForm(this);
    if (!ScaleActive()) return;
    for (TRdComboBox* combo : {FontSize_combox, Font_ComboBox}) {
        combo->SetItemHeight(Scaled(24));
        TDesignRect& margins = combo->BackgroundOption()->Rect();
        margins.Set(20, 1, 30, 1, margins.StretchMode());
    }
}

void TFormSmallTools::setVisible(bool visible) {
    if (visible) SetUp();
    QWidget::setVisible(visible);
}

// The families are read on a thread of their own, so that nothing waits
// for the font caches.
void TFormSmallTools::StartFontList() {
    fontThread_ = QThread::create([this] { gatheredFonts_ = SystemFontFamilies(); });
    connect(fontThread_, &QThread::finished, this, [this] {
        if (!fontsReady_) FillFontList(gatheredFonts_);
    });
    fontThread_->start(QThread::LowPriority);
}

void TFormSmallTools::WaitForFontList() {
    SetUp();
    if (fontsReady_) return;
    if (!fontThread_) {
        FillFontList(SystemFontFamilies());
        return;
    }
    fontThread_->wait();
    FillFontList(gatheredFonts_);
}

void TFormSmallTools::FillFontList(const QStringList& families) {
    SetUp();
    Font_ComboBox->clear();
    Font_ComboBox->addItems(families);
    Font_ComboBox->setCurrentIndex(FamilyIndex(families, QStringLiteral("Tahoma")));
    fontsReady_ = true;
}

int TFormSmallTools::Scaled(int designPixels) {
    return ScaleActive() ? int(std::lround(designPixels * GetScaleFactor())) : designPixels;
}

void TFormSmallTools::SelectPen(int index) {
    for (int i = 0; i < 3; ++i)
        Btn_Pen[size_t(i)]->SetState(i == index ? TRdImageButton::bsSelected
                                                : TRdImageButton::bsNormal);
}

void TFormSmallTools::SyncPenButtons(int width) {
    SetUp();
    const int index = PenButtonForWidth(width);
    if (index >= 0) SelectPen(index);
}

TFormSmallTools* SessionStyleBar() {
    auto* bar = qobject_cast<TFormSmallTools*>(FormSmallTools);
    if (bar) bar->SetUp();
    return bar;
}

}  // namespace qpt
