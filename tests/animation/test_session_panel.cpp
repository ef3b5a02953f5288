#include <QCheckBox>
#include <QLabel>

#include "animation/panel_fixture.h"
#include "animation/session_panels.h"

namespace ruvo::test {
namespace {

using MinimizePanelTest = OpenPanelTest<MinimizePanel>;
using ResizePanelTest = OpenPanelTest<ResizePanel>;

class SessionPanelTest : public PanelTest {
 protected:
  void resizeTo(int percent) {
    choose(panel_, "cboResizePercent(0)", percent - kLeastResizePercent);
    agree("Proceed to resize frame series?");
    press(panel_, "cmdResize(0)");
  }
  bool unsaved() { return host_.session().unsaved(SessionWork::Resize); }

  ResizePanel panel_{host_, nullptr};
};

TEST_F(SessionPanelTest, UndoGoesBackToTheOpeningAndCloseLeavesNoFile) {
  ASSERT_TRUE(panel_.openPanel());
  EXPECT_FALSE(offered(panel_, "cmdResize(3)"));
  resizeTo(200);
  EXPECT_EQ(gif().BgdWidth(), 40);
  EXPECT_TRUE(unsaved());
  EXPECT_EQ(host_.locks, 0);
  EXPECT_EQ(host_.worksDone, 1);
  press(panel_, "cmdResize(3)");
  EXPECT_EQ(gif().BgdWidth(), 20);
  EXPECT_FALSE(unsaved());
  EXPECT_FALSE(offered(panel_, "cmdResize(3)"));

  resizeTo(200);
  host_.running = true;
  press(panel_, "cmdResize(4)");
  EXPECT_FALSE(host_.running);
  EXPECT_FALSE(panel_.isVisible());
  EXPECT_EQ(host_.sizesShown, 1);
  EXPECT_TRUE(unsaved());
  EXPECT_EQ(temp_.names(), std::vector<std::string>{"a.gif"});
}

TEST_F(SessionPanelTest, WithoutABackupItStaysShutAndWithoutItsFileUndoChangesNothing) {
  std::filesystem::create_directory(temp_ / "tmpRestore.tmp");
  desktop_.expect(kTextBackupFailed);
  EXPECT_FALSE(panel_.openPanel());
  EXPECT_FALSE(panel_.isVisible());
  std::filesystem::remove(temp_ / "tmpRestore.tmp");

  ASSERT_TRUE(panel_.openPanel());
  resizeTo(200);
  std::filesystem::remove(temp_ / "tmpRestore.tmp");
  desktop_.expect("Temporary file for restore missing.");
  press(panel_, "cmdResize(3)");
  EXPECT_EQ(gif().BgdWidth(), 40);
  EXPECT_TRUE(offered(panel_, "cmdResize(3)"));
  EXPECT_TRUE(unsaved());
}

TEST_F(ResizePanelTest, TellsTheNewSizeAndAsksBeforeItResizes) {
  const auto size = [&] { return control<QLabel>(panel_, "lblNewSize")->text(); };
  desktop_.expect("Please select a size other than 100%");
  press(panel_, "cmdResize(0)");

  choose(panel_, "cboResizePercent(0)", 200 - kLeastResizePercent);
  choose(panel_, "cboRightBottom", 1);
  EXPECT_EQ(size(), "New size:  40 x 32");
  press(panel_, "ckbResizeBgdOnly");
  EXPECT_EQ(size(), "New size:  20 x 32");
  // An offset is digits only, and none that no screen has.
  auto* offset = control<QComboBox>(panel_, "cboResizeOffset(1)");
  offset->clearEditText();
  QTest::keyClicks(offset, "-x20001");
  EXPECT_EQ(offset->currentText(), "2000");
  offset->setEditText("6");
  disagree("Resize background/screen only?");
  press(panel_, "cmdResize(0)");
  EXPECT_EQ(gif().BgdHeight(), 16);
  agree("Resize background/screen only?");
  host_.frame = 3;
  press(panel_, "cmdResize(0)");
  EXPECT_EQ(gif().BgdHeight(), 32);
  EXPECT_EQ(gif().FrameTop(3), 6);
  EXPECT_EQ(host_.frame, 3);
}

TEST_F(MinimizePanelTest, OffersWhatTheAnimationHasAndMeasuresTheResult) {
  for (const char* name :
       {"ckbLocalToGlobalPalette", "ckbRemoveUnusedPalette", "ckbRemoveInterlace", "ckbRemoveSlackTransparentAreas"}) {
    EXPECT_TRUE(offered(panel_, name)) << name;
    EXPECT_FALSE(control<QCheckBox>(panel_, name)->isChecked()) << name;
  }
  EXPECT_FALSE(offered(panel_, "ckbRemoveComments"));
  EXPECT_FALSE(offered(panel_, "cmdMinimize(0)"));

  for (const char* name : {"ckbLocalToGlobalPalette", "ckbRemoveInterlace", "ckbRemoveSlackTransparentAreas"})
    press(panel_, name);
  agree("Proceed to minimize file size per options selected?");
  press(panel_, "cmdMinimize(0)");
  EXPECT_EQ(gif().FrameWidth(3), 6);
  EXPECT_FALSE(gif().FrameInterlaced(2));
  EXPECT_EQ(gif().CommentText(), "");
  const auto* size = control<QLabel>(panel_, "lblMinimizedFileSize");
  EXPECT_EQ(size->text(), QString("Orig file size:  %1       New:  %2 bytes")
                              .arg(std::filesystem::file_size(temp_ / "a.gif"))
                              .arg(gif().saveBytes().size()));
  // Nothing is left to be done for boxes that are still set.
  EXPECT_FALSE(offered(panel_, "ckbLocalToGlobalPalette"));
  EXPECT_FALSE(offered(panel_, "ckbRemoveInterlace"));
  press(panel_, "ckbRemoveSlackTransparentAreas");
  desktop_.expect("\n\nNo minimizing option selected yet.");
  press(panel_, "cmdMinimize(0)");

  press(panel_, "cmdMinimize(3)");
  EXPECT_EQ(gif().FrameWidth(3), 20);
  EXPECT_EQ(gif().CommentText(), "A remark");
  EXPECT_EQ(size->text(), "");
  EXPECT_TRUE(offered(panel_, "ckbRemoveInterlace"));
}

TEST_F(MinimizePanelTest, ARunThatEndsEarlySaysSoAndFreesTheWindow) {
  // The first frame needs every entry of a full global table that has none of the second one's colours.
  gif().setGlobalPaletteEntries(256);
  raster::Surface& pixels = gif().ownFrameDIBXOR(1)->surface();
  for (int i = 0; i < 256; ++i) {
    gif().GlobalPaletteR_G_B_Change(i, 9, i, 9);
    pixels.pictureRow(i / 20)[i % 20] = static_cast<std::uint8_t>(i);
  }
  control<QCheckBox>(panel_, "ckbLocalToGlobalPalette")->setChecked(true);
  agree("Proceed to minimize");
  desktop_.expect("Failed to convert any local palette to global.");
  press(panel_, "cmdMinimize(0)");
  EXPECT_TRUE(gif().LocalPaletteUsed(2));
  EXPECT_EQ(gif().CommentText(), "A remark");
  EXPECT_EQ(control<QLabel>(panel_, "lblMinimizedFileSize")->text(), "");
  EXPECT_EQ(host_.locks, 0);
  EXPECT_EQ(offered(panel_, "cmdMinimize(3)"), host_.session().unsaved());
}

}  // namespace
}  // namespace ruvo::test
