#include <QLineEdit>
#include <QTimer>

#include "animation/panel_fixture.h"
#include "animation/session_panels.h"

namespace ruvo::test {
namespace {

class SeriesPanelTest : public OpenPanelTest<SeriesPanel> {
 protected:
  void pressEdit(int index) { press(panel_, QString("cmdEditImageSeries(%1)").arg(index)); }
  std::vector<int> delays() {
    std::vector<int> all;
    for (int frame = 1; frame <= gif().FramesCount(); ++frame) all.push_back(gif().FrameDelay(frame));
    return all;
  }
};
// clang-format off
enum { kBlankAfter = 1, kDuplicateAfter = 3, kEditSetting = 4, kLoadAfter = 7, kDelete = 8, kReplace = 9,
       kClose = 13 };
// clang-format on
using Delays = std::vector<int>;

TEST_F(SeriesPanelTest, OpensOnTheTransparentColorAndCloseResetsIt) {
  EXPECT_EQ(host_.pattern, 1);
  EXPECT_FALSE(offered(panel_, "cmdEditImageSeries(5)"));
  bool asked = false;
  QObject::connect(&panel_, &SeriesPanel::settingsAsked, [&] { asked = true; });
  host_.running = true;
  pressEdit(kEditSetting);
  EXPECT_TRUE(asked);
  EXPECT_FALSE(host_.running);
  pressEdit(kClose);
  EXPECT_EQ(host_.pattern, 0);
}

TEST_F(SeriesPanelTest, FramesAreCopiedMovedSwappedAndDeleted) {
  host_.frame = 2;
  pressEdit(kDuplicateAfter);
  EXPECT_EQ(delays(), (Delays{10, 300, 300, 20}));
  EXPECT_EQ(control<QComboBox>(panel_, "cboEditImageSeriesCopy")->count(), 4);
  host_.frame = 4;
  choose(panel_, "cboEditImageSeriesCopy", 1);
  agree("Proceed to move current frame from position 4 to position 2?");
  press(panel_, "cmdEditImageSeriesCopy(2)");
  EXPECT_EQ(delays(), (Delays{10, 20, 300, 300}));
  disagree("Swapping first frame with another frame");
  host_.frame = 1;
  press(panel_, "cmdEditImageSeriesCopy(3)");
  desktop_.expect("Your are at the first frame.");
  press(panel_, "cmdShift(0)");
  host_.frame = 2;
  press(panel_, "cmdShift(1)");
  EXPECT_EQ(delays(), (Delays{10, 300, 20, 300}));
  EXPECT_EQ(host_.frame, 3);
  pressEdit(kDelete);
  EXPECT_EQ(delays(), (Delays{10, 300, 300}));
  EXPECT_TRUE(host_.session().unsaved(SessionWork::Series));

  agree("Proceed to move current frame from position 3 to position 2?");
  panel_.moveFrame(3, 2);
  panel_.closePanel();
  panel_.moveFrame(2, 3);  // nothing: it would have no Undo
  EXPECT_EQ(host_.refreshes, 5);
}

TEST_F(SeriesPanelTest, ABlankFrameAsksForItsSize) {
  host_.frame = 3;
  const auto dialog = [&](const char* pressed) {
    QTimer::singleShot(0, [pressed] {
      QWidget* window = QApplication::activeModalWidget();
      ASSERT_NE(window, nullptr);
      EXPECT_EQ(control<QLineEdit>(*window, "txbWidth")->text(), "20");
      control<QLineEdit>(*window, "txbHeight")->setText("9");
      press(*window, pressed);
    });
  };
  dialog("cmdCancel");
  pressEdit(kBlankAfter);
  EXPECT_EQ(gif().FramesCount(), 3);
  dialog("cmdOK");
  pressEdit(kBlankAfter);
  ASSERT_EQ(gif().FramesCount(), 4);
  EXPECT_EQ(gif().FrameHeight(4), 9);
  EXPECT_EQ(host_.frame, 4);
}

TEST_F(SeriesPanelTest, FilesComeInByTheirOwnQuestionsAndWords) {
  const Rows large(10, std::string(801, '2'));
  const QString good = QString::fromStdString(written("good.gif", threeFrames()).string());
  const QString wide = QString::fromStdString(written("wide.gif", GifBytes(801, 10).image(large)).string());

  host_.frame = 2;
  desktop_.expectOpen(good);
  pressEdit(kLoadAfter);
  EXPECT_EQ(gif().FramesCount(), 4);
  EXPECT_EQ(desktop_.lastFilter, "(*.gif)|*.gif|");
  desktop_.expectOpen(wide);
  disagree("Incoming image at 801 x 10");
  pressEdit(kReplace);
  desktop_.expectOpen({});
  pressEdit(kLoadAfter);
  EXPECT_EQ(gif().FramesCount(), 4);

  host_.frame = 1;
  agree("Replacing first frame might affect");
  desktop_.expectOpen(wide);
  agree("Incoming image at 801 x 10");
  pressEdit(kReplace);
  EXPECT_EQ(gif().FrameHeight(1), 10);
  EXPECT_EQ(gif().BgdWidth(), 801);
}

}  // namespace
}  // namespace ruvo::test
