#include <QCheckBox>
#include <QLabel>

#include "animation/panel_fixture.h"
#include "animation/session_panels.h"

namespace ruvo::test {
namespace {

using SessionPanelTest = PanelTest;
using MinimizePanelTest = PanelTest;
using ResizePanelTest = PanelTest;

const QString kReallyResize = "Proceed to resize frame series?";

TEST_F(SessionPanelTest, UndoGoesBackToTheOpeningAndCloseLeavesNoFile) {
  open(threeFrames());
  ResizePanel panel(host_, nullptr);
  bool closed = false;
  QObject::connect(&panel, &SessionPanel::closed, [&] { closed = true; });
  ASSERT_TRUE(panel.openPanel());
  EXPECT_TRUE(panel.isVisible());
  EXPECT_TRUE(std::filesystem::exists(temp_ / "tmpRestore.tmp"));
  EXPECT_FALSE(button(panel, "cmdResize(3)")->isEnabled());

  choose(panel, "cboResizePercent(0)", 200 - kLeastResizePercent);
  agree(kReallyResize);
  press(panel, "cmdResize(0)");
  EXPECT_EQ(gif().BgdWidth(), 40);
  EXPECT_TRUE(host_.session().unsaved(SessionWork::Resize));
  EXPECT_EQ(host_.locks, 0);
  EXPECT_EQ(host_.worksDone, 1);
  press(panel, "cmdResize(3)");
  EXPECT_EQ(gif().BgdWidth(), 20);
  EXPECT_FALSE(host_.session().unsaved());
  EXPECT_FALSE(button(panel, "cmdResize(3)")->isEnabled());

  agree(kReallyResize);
  press(panel, "cmdResize(0)");
  host_.running = true;
  press(panel, "cmdResize(4)");
  EXPECT_TRUE(closed);
  EXPECT_FALSE(host_.running);
  EXPECT_FALSE(panel.isVisible());
  EXPECT_EQ(host_.sizesShown, 1);
  EXPECT_TRUE(host_.session().unsaved(SessionWork::Resize));
  EXPECT_EQ(temp_.names(), std::vector<std::string>{"a.gif"});

  // Undo of a second opening goes back to the flag of that time.
  ASSERT_TRUE(panel.openPanel());
  agree(kReallyResize);
  choose(panel, "cboResizePercent(0)", 50 - kLeastResizePercent);
  press(panel, "cmdResize(0)");
  press(panel, "cmdResize(3)");
  EXPECT_EQ(gif().BgdWidth(), 40);
  EXPECT_TRUE(host_.session().unsaved(SessionWork::Resize));
}

TEST_F(SessionPanelTest, WithoutABackupItStaysShutAndWithoutItsFileUndoChangesNothing) {
  open(threeFrames());
  ResizePanel panel(host_, nullptr);
  std::filesystem::create_directory(temp_ / "tmpRestore.tmp");
  desktop_.expect(kTextBackupFailed);
  EXPECT_FALSE(panel.openPanel());
  EXPECT_FALSE(panel.isVisible());
  std::filesystem::remove(temp_ / "tmpRestore.tmp");

  ASSERT_TRUE(panel.openPanel());
  choose(panel, "cboResizePercent(0)", 200 - kLeastResizePercent);
  agree(kReallyResize);
  press(panel, "cmdResize(0)");
  std::filesystem::remove(temp_ / "tmpRestore.tmp");
  desktop_.expect("Temporary file for restore missing.");
  press(panel, "cmdResize(3)");
  EXPECT_EQ(gif().BgdWidth(), 40);
  EXPECT_TRUE(button(panel, "cmdResize(3)")->isEnabled());
  EXPECT_TRUE(host_.session().unsaved());
}

TEST_F(ResizePanelTest, TellsTheNewSizeAndAsksBeforeItResizes) {
  open(threeFrames());
  ResizePanel panel(host_, nullptr);
  ASSERT_TRUE(panel.openPanel());
  const auto size = [&] { return control<QLabel>(panel, "lblNewSize")->text(); };
  EXPECT_EQ(size(), "New size:  20 x 16");
  desktop_.expect("Please select a size other than 100%");
  press(panel, "cmdResize(0)");

  choose(panel, "cboResizePercent(0)", 200 - kLeastResizePercent);
  choose(panel, "cboRightBottom", 1);
  EXPECT_EQ(size(), "New size:  40 x 32");
  QTest::mouseClick(control<QCheckBox>(panel, "ckbResizeBgdOnly"), Qt::LeftButton, {}, QPoint(8, 10));
  EXPECT_EQ(size(), "New size:  20 x 32");
  // An offset is digits only, and none that no screen has.
  auto* offset = control<QComboBox>(panel, "cboResizeOffset(1)");
  offset->clearEditText();
  QTest::keyClicks(offset, "-x20001");
  EXPECT_EQ(offset->currentText(), "2000");
  offset->setEditText("6");
  answer("Resize background/screen only?", desktop::Answer::No);
  press(panel, "cmdResize(0)");
  EXPECT_EQ(gif().BgdHeight(), 16);
  agree("Resize background/screen only?");
  host_.frame = 3;
  press(panel, "cmdResize(0)");
  EXPECT_EQ(gif().BgdWidth(), 20);
  EXPECT_EQ(gif().BgdHeight(), 32);
  EXPECT_EQ(gif().FrameTop(3), 6);
  EXPECT_EQ(host_.frame, 3);
  EXPECT_EQ(size(), "New size:  20 x 64");
}

TEST_F(MinimizePanelTest, OffersWhatTheAnimationHasAndMeasuresTheResult) {
  open(threeFrames());
  MinimizePanel panel(host_, nullptr);
  ASSERT_TRUE(panel.openPanel());
  const auto box = [&](const char* name) { return control<QCheckBox>(panel, name); };
  for (const char* name :
       {"ckbLocalToGlobalPalette", "ckbRemoveUnusedPalette", "ckbRemoveInterlace", "ckbRemoveSlackTransparentAreas"}) {
    EXPECT_TRUE(box(name)->isEnabled()) << name;
    EXPECT_FALSE(box(name)->isChecked()) << name;
  }
  EXPECT_FALSE(box("ckbRemoveComments")->isEnabled());
  EXPECT_FALSE(button(panel, "cmdMinimize(0)")->isEnabled());

  for (const char* name : {"ckbLocalToGlobalPalette", "ckbRemoveInterlace", "ckbRemoveSlackTransparentAreas"})
    QTest::mouseClick(box(name), Qt::LeftButton, {}, QPoint(8, 10));
  answer("Proceed to minimize file size per options selected?", desktop::Answer::No);
  press(panel, "cmdMinimize(0)");
  EXPECT_EQ(host_.refreshes, 0);
  agree("Proceed to minimize file size per options selected?");
  press(panel, "cmdMinimize(0)");
  EXPECT_EQ(gif().FrameWidth(3), 6);
  EXPECT_FALSE(gif().FrameInterlaced(2));
  EXPECT_EQ(gif().CommentText(), "");
  const auto* size = control<QLabel>(panel, "lblMinimizedFileSize");
  const auto original = std::filesystem::file_size(temp_ / "a.gif");
  EXPECT_EQ(size->text(), QString("Orig file size:  %1       New:  %2 bytes")
                              .arg(original)
                              .arg(gif().saveBytes(0, gif().CommentText()).size()));
  // Nothing is left to be done for boxes that are still set.
  EXPECT_FALSE(box("ckbLocalToGlobalPalette")->isEnabled());
  EXPECT_FALSE(box("ckbRemoveInterlace")->isEnabled());
  QTest::mouseClick(box("ckbRemoveSlackTransparentAreas"), Qt::LeftButton, {}, QPoint(8, 10));
  desktop_.expect("\n\nNo minimizing option selected yet.");
  press(panel, "cmdMinimize(0)");

  press(panel, "cmdMinimize(3)");
  EXPECT_EQ(gif().FrameWidth(3), 20);
  EXPECT_EQ(gif().CommentText(), "A remark");
  EXPECT_EQ(size->text(), "");
  EXPECT_TRUE(box("ckbRemoveInterlace")->isEnabled());
}

TEST_F(MinimizePanelTest, ARunThatEndsEarlySaysSoAndFreesTheWindow) {
  open(threeFrames());
  // The first frame needs every entry of a full global table that has none of the second one's colours.
  gif().setGlobalPaletteEntries(256);
  raster::Surface& pixels = gif().ownFrameDIBXOR(1)->surface();
  for (int i = 0; i < 256; ++i) {
    gif().GlobalPaletteR_G_B_Change(i, 9, i, 9);
    pixels.pictureRow(i / 20)[i % 20] = static_cast<std::uint8_t>(i);
  }
  MinimizePanel panel(host_, nullptr);
  ASSERT_TRUE(panel.openPanel());
  control<QCheckBox>(panel, "ckbLocalToGlobalPalette")->setChecked(true);
  agree("Proceed to minimize");
  desktop_.expect("Failed to convert any local palette to global.");
  press(panel, "cmdMinimize(0)");
  EXPECT_TRUE(gif().LocalPaletteUsed(2));
  EXPECT_EQ(gif().CommentText(), "A remark");
  EXPECT_EQ(control<QLabel>(panel, "lblMinimizedFileSize")->text(), "");
  EXPECT_EQ(host_.locks, 0);
  EXPECT_EQ(button(panel, "cmdMinimize(3)")->isEnabled(), host_.session().unsaved());
}

}  // namespace
}  // namespace ruvo::test
