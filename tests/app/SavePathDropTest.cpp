// The save button's arrow opens the path panel in the style bar's place and
// closes it again, with the toolbar put back next to the picture.
#include <QTest>

#include "skin/RdImageButton.h"
#include "tests/app/WholeSession.h"

namespace qpt {
namespace {

using SavePathDrop = testing::WholeSession;

void ClickTheArrow(TFormTools& tools) {
    QTest::mouseClick(tools.btn_save_drop, Qt::LeftButton, {},
                      tools.btn_save_drop->rect().center());
}

TEST_F(SavePathDrop, TheArrowSwapsTheStyleBarForThePanelAndBack) {
    TFormTools& tools = Tools();
    const QRect bar = tools.frameGeometry();
    ASSERT_EQ(bar.top(), 202) << "under the picture";
    ASSERT_TRUE(tools.btn_save_drop->isVisible());
    // The rectangle tool is open with its style bar.
    ToolArmed = 1;
    RectOpen = 1;
    tools.Btn_Rd_Rect->SetState(TRdImageButton::bsSelected);
    FormSmallTools->show();

    ClickTheArrow(tools);
    EXPECT_FALSE(FormSmallTools->isVisible());
    EXPECT_EQ(RectOpen, 0) << "the next click on the tool opens its bar again";
    EXPECT_EQ(tools.Btn_Rd_Rect->ButtonState(), TRdImageButton::bsNormal);
    EXPECT_EQ(ToolArmed, 1) << "the tool itself stays armed";
    ASSERT_TRUE(Panel().isVisible());
    EXPECT_EQ(Panel().pos(), QPoint(bar.left(), bar.bottom() + 1 + 2));

    // Moved out of the way meanwhile, the toolbar comes back under the picture.
    tools.move(bar.left(), 20);
    ClickTheArrow(tools);
    EXPECT_FALSE(Panel().isVisible());
    EXPECT_EQ(tools.pos(), bar.topLeft());
}

TEST_F(SavePathDrop, NothingHappensWhileTheFolderBrowserIsUp) {
    FolderDialogOpen = 1;
    ClickTheArrow(Tools());
    EXPECT_FALSE(Panel().isVisible());
}

}  // namespace
}  // namespace qpt
