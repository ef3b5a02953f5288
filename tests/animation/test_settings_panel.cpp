#include <QLineEdit>
#include <QPlainTextEdit>

#include "animation/panel_fixture.h"
#include "animation/session_panels.h"

namespace ruvo::test {
namespace {

enum Scope { kAllFrames, kCurrentFrame };
const QString kProceed = "cmdModifySettings(0)";

class SettingsPanelTest : public PanelTest {
 protected:
  // Made when it is first asked for: after the session has a file.
  SettingsPanel& panel() {
    if (!panel_) {
      panel_ = std::make_unique<SettingsPanel>(host_, nullptr);
      EXPECT_TRUE(panel_->openPanel());
    }
    return *panel_;
  }
  QString shown(const char* box) { return control<QComboBox>(panel(), box)->currentText(); }
  void select(int frame) {
    host_.frame = frame;
    panel().frameSelected();
  }
  void scope(Scope scope, SettingsItem item) {
    choose(panel(), "cboScopeModifySettings", scope);
    choose(panel(), "cboScopeModifySettingsSpecificItem", static_cast<int>(item));
  }
  QPlainTextEdit* comment() { return control<QPlainTextEdit>(panel(), "txbModifyComment"); }

 private:
  std::unique_ptr<SettingsPanel> panel_;
};

TEST_F(SettingsPanelTest, ValuesThatNoListHasAreShownAndWrittenBackUnchanged) {
  open(threeFrames());
  EXPECT_EQ(shown("cboDelay"), "10");
  EXPECT_EQ(control<QComboBox>(panel(), "cboDelay")->count(), 181);
  select(2);
  EXPECT_EQ(shown("cboDelay"), "300");
  EXPECT_EQ(shown("cboDisposal"), "Disposal ? (5)");
  EXPECT_EQ(shown("cboPaletteScope"), "Local");
  EXPECT_EQ(shown("cboInterlaced"), "Yes");

  scope(kCurrentFrame, SettingsItem::All);
  choose(panel(), "cboInterlaced", 0);
  control<QComboBox>(panel(), "cboPosLeft")->setEditText("7");
  agree("Proceed to change setting of current frame?");
  press(panel(), kProceed);
  EXPECT_EQ(gif().FrameDelay(2), 300);
  EXPECT_EQ(gif().FrameDisposalMethod(2), 5);
  EXPECT_FALSE(gif().FrameInterlaced(2));
  EXPECT_EQ(gif().FrameLeft(2), 7);
  EXPECT_EQ(gif().CommentText(), "A remark");
  EXPECT_EQ(host_.frame, 2);
  EXPECT_TRUE(host_.session().unsaved(SessionWork::Settings));

  // A frame within the lists has none of the extra items, and Undo shows what it went back to.
  select(3);
  EXPECT_EQ(control<QComboBox>(panel(), "cboDelay")->count(), 181);
  select(2);
  press(panel(), "cmdModifySettings(1)");
  EXPECT_EQ(shown("cboInterlaced"), "Yes");
  EXPECT_FALSE(host_.session().unsaved());
}

TEST_F(SettingsPanelTest, OnlyWhatTheItemNamesIsOfferedAndWritten) {
  open(threeFrames());
  scope(kAllFrames, SettingsItem::Delay);
  EXPECT_TRUE(control<QWidget>(panel(), "cboDelay")->isEnabled());
  EXPECT_FALSE(control<QWidget>(panel(), "cboDisposal")->isEnabled());
  EXPECT_FALSE(comment()->isEnabled());
  QTest::keyClicks(control<QComboBox>(panel(), "cboDelay"), "42");
  answer("Proceed to change settings of all frames?", desktop::Answer::No);
  press(panel(), kProceed);
  EXPECT_EQ(gif().FrameDelay(1), 10);
  agree("Proceed to change settings of all frames?");
  press(panel(), kProceed);
  for (int frame = 1; frame <= 3; ++frame) EXPECT_EQ(gif().FrameDelay(frame), 42) << frame;
  EXPECT_EQ(gif().FrameDisposalMethod(2), 5);

  // What was changed and not written yet is read anew.
  choose(panel(), "cboDelay", 7);
  press(panel(), "cmdModifySettings(5)");
  EXPECT_EQ(shown("cboDelay"), "42");
}

TEST_F(SettingsPanelTest, RefusalsAreToldAndNothingIsAsked) {
  open(threeFrames());
  scope(kCurrentFrame, SettingsItem::LeftTop);
  control<QComboBox>(panel(), "cboPosTop")->setEditText("1");
  desktop_.expect("For first frame, the [left, top] must be [0, 0]");
  press(panel(), kProceed);
  EXPECT_EQ(host_.refreshes, 0);
  desktop_.expect("Transparency setting can be modified at Edit Palette screen.");
  press(panel(), "picFrameTransparentColor");
}

TEST_F(SettingsPanelTest, FieldsRefuseWhatAFileCanNotHold) {
  open(threeFrames());
  auto* loops = control<QLineEdit>(panel(), "txbLoops");
  loops->clear();
  QTest::keyClicks(loops, "-65536");
  EXPECT_EQ(loops->text(), "6553");  // the next digit would be one too many

  // A pasted text that would be too long is refused whole, and so is the next character of a full one.
  comment()->insertPlainText(QString(300, 'x'));
  EXPECT_EQ(comment()->toPlainText(), "A remark");
  comment()->setPlainText(" " + QString(253, u'ä'));
  comment()->moveCursor(QTextCursor::End);
  QTest::keyClicks(comment(), "bc");
  EXPECT_EQ(comment()->toPlainText().size(), 255);
  scope(kAllFrames, SettingsItem::Comment);
  agree("Proceed to change settings of all frames?");
  press(panel(), kProceed);
  EXPECT_EQ(gif().CommentText().substr(0, 2), "ä");
  EXPECT_EQ(gif().CommentText().size(), 253u * 2 + 1);
}

TEST_F(SettingsPanelTest, ACommentThatIsTooLongAlreadyStaysUntilItIsMadeShorter) {
  open(threeFrames());
  const std::string before(300, 'y');
  gif().setCommentText(before);
  scope(kAllFrames, SettingsItem::All);
  agree("Proceed to change settings of all frames?");
  press(panel(), kProceed);
  EXPECT_EQ(gif().CommentText(), before);
  QTest::keyClick(comment(), Qt::Key_Delete);
  QTest::keyClicks(comment(), "x");
  EXPECT_EQ(comment()->toPlainText().size(), 299);
}

}  // namespace
}  // namespace ruvo::test
