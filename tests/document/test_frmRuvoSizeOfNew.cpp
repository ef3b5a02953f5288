#include "document/frmRuvoSizeOfNew.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>

#include "support_ui/control.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

using test::control;

void type(QWidget& window, const char* field, const QString& text) {
  auto* edit = control<QLineEdit>(window, field);
  edit->clear();
  edit->insert(text);
}

TEST(SizeOfNew, ChoicesFillTheFieldsAndTypingIsCustom) {
  const test::ScriptedDesktop desktop;
  frmRuvoSizeOfNew dialog(frmRuvoSizeOfNew::Use::Picture, {800, 600});
  EXPECT_TRUE(control<QRadioButton>(dialog, "optSize(2)")->isChecked());
  control<QRadioButton>(dialog, "optSize(4)")->click();
  EXPECT_EQ(dialog.chosenSize(), (Size{680, 860}));
  type(dialog, "txbHeight", "7");
  EXPECT_TRUE(control<QRadioButton>(dialog, "optSize(5)")->isChecked());
  EXPECT_EQ(dialog.chosenSize(), (Size{680, 7}));
  frmRuvoSizeOfNew frame(frmRuvoSizeOfNew::Use::AnimationFrame, {1, 1});
  EXPECT_EQ(control<QRadioButton>(frame, "optSize(3)")->text(), "120 x 120");
}

TEST(SizeOfNew, BadSizesAreRefusedInWordsAndTheDialogStays) {
  test::ScriptedDesktop desktop;
  frmRuvoSizeOfNew dialog(frmRuvoSizeOfNew::Use::Picture, {640, 480});
  dialog.show();
  type(dialog, "txbWidth", "32760");
  struct Case {
    const char* height;
    const char* told;
    desktop::Answer answer;
  };
  for (const Case& c :
       {Case{"30000", "Value entered in height will result in W x H exceeding the threshhold.", desktop::Answer::Ok},
        {"500", "Value entered in width and/or height appear to be rather large.  Sure?", desktop::Answer::No},
        {"500", "rather large", desktop::Answer::Yes}}) {
    EXPECT_TRUE(dialog.isVisible());
    type(dialog, "txbHeight", c.height);
    desktop.expect(c.told).answer(c.answer);
    control(dialog, "cmdOK")->click();
  }
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(SizeOfNew, TheAnswerLandsInTheSession) {
  const test::ScriptedDesktop desktop;
  SessionState session;
  const auto press = [](const char* size, const char* button) {
    QTimer::singleShot(0, [=] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      control<QRadioButton>(*dialog, size)->click();
      control(*dialog, button)->click();
    });
  };
  press("optSize(0)", "cmdCancel");
  EXPECT_FALSE(frmRuvoSizeOfNew::ask(session, nullptr));
  EXPECT_EQ(session.newImageWidth, 640);
  press("optSize(0)", "cmdOK");
  EXPECT_TRUE(frmRuvoSizeOfNew::ask(session, nullptr));
  EXPECT_EQ(session.newImageWidth, 320);
}

}  // namespace
}  // namespace ruvo
