#include <QLineEdit>
#include <QPlainTextEdit>

#include "animation/panel_fixture.h"
#include "animation/session_panels.h"

namespace ruvo::test {
namespace {

enum Scope { kAllFrames, kCurrentFrame };
const QString kProceed = "cmdModifySettings(0)";

class SettingsPanelTest : public OpenPanelTest<SettingsPanel> {
 protected:
  QString shown(const char* box) { return control<QComboBox>(panel_, box)->currentText(); }
  void select(int frame) {
    host_.frame = frame;
    panel_.frameSelected();
  }
  void scope(Scope scope, SettingsItem item) {
    choose(panel_, "cboScopeModifySettings", scope);
    choose(panel_, "cboScopeModifySettingsSpecificItem", static_cast<int>(item));
  }
  QPlainTextEdit* comment() { return control<QPlainTextEdit>(panel_, "txbModifyComment"); }
};

TEST_F(SettingsPanelTest, ValuesThatNoListHasAreShownAndWrittenBackUnchanged) {
  select(2);
  EXPECT_EQ(shown("cboDelay"), "300");
  EXPECT_EQ(shown("cboDisposal"), "Disposal ? (5)");
  EXPECT_EQ(shown("cboPaletteScope"), "Local");
  EXPECT_EQ(shown("cboInterlaced"), "Yes");

  scope(kCurrentFrame, SettingsItem::All);
  choose(panel_, "cboInterlaced", 0);
  control<QComboBox>(panel_, "cboPosLeft")->setEditText("7");
  agree("Proceed to change setting of current frame?");
  press(panel_, kProceed);
  EXPECT_EQ(gif().FrameDelay(2), 300);
  EXPECT_EQ(gif().FrameDisposalMethod(2), 5);
  EXPECT_FALSE(gif().FrameInterlaced(2));
  EXPECT_EQ(gif().FrameLeft(2), 7);
  EXPECT_TRUE(host_.session().unsaved(SessionWork::Settings));

  // A frame within the lists has none of the extra items, and Undo shows what it went back to.
  select(3);
  EXPECT_EQ(control<QComboBox>(panel_, "cboDelay")->count(), 181);
  select(2);
  press(panel_, "cmdModifySettings(1)");
  EXPECT_EQ(shown("cboInterlaced"), "Yes");
  EXPECT_FALSE(host_.session().unsaved());
}

TEST_F(SettingsPanelTest, OnlyWhatTheItemNamesIsOfferedAndWritten) {
  scope(kAllFrames, SettingsItem::Delay);
  EXPECT_TRUE(offered(panel_, "cboDelay"));
  EXPECT_FALSE(offered(panel_, "cboDisposal"));
  QLineEdit* delay = control<QComboBox>(panel_, "cboDelay")->lineEdit();
  delay->selectAll();
  QTest::keyClicks(delay, "500");
  agree("Proceed to change settings of all frames?");
  press(panel_, kProceed);
  for (int frame = 1; frame <= 3; ++frame) EXPECT_EQ(gif().FrameDelay(frame), 500) << frame;

  // What was changed and not written yet is read anew.
  choose(panel_, "cboDelay", 7);
  press(panel_, "cmdModifySettings(5)");
  EXPECT_EQ(shown("cboDelay"), "500");
}

TEST_F(SettingsPanelTest, FieldsRefuseWhatAFileCanNotHold) {
  auto* loops = control<QLineEdit>(panel_, "txbLoops");
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
  press(panel_, kProceed);
  EXPECT_EQ(gif().CommentText(), QString(QString(253, u'ä') + 'b').toStdString());
}

TEST_F(SettingsPanelTest, ACommentThatIsTooLongAlreadyStaysUntilItIsMadeShorter) {
  const std::string before(300, 'y');
  gif().setCommentText(before);
  panel_.frameSelected();
  scope(kAllFrames, SettingsItem::All);
  agree("Proceed to change settings of all frames?");
  press(panel_, kProceed);
  EXPECT_EQ(gif().CommentText(), before);
  QTest::keyClick(comment(), Qt::Key_Delete);
  QTest::keyClicks(comment(), "x");
  EXPECT_EQ(comment()->toPlainText().size(), 299);
}

}  // namespace
}  // namespace ruvo::test
