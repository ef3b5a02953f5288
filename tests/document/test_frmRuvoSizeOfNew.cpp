#include "document/frmRuvoSizeOfNew.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

template <typename T>
T* control(QWidget& window, const char* name) {
  auto* found = window.findChild<T*>(name);
  EXPECT_NE(found, nullptr) << name;
  return found;
}

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
  type(dialog, "txbHeight", "30000");
  desktop.expect("Value entered in height will result in W x H exceeding the threshhold.");
  control<QPushButton>(dialog, "cmdOK")->click();
  EXPECT_TRUE(dialog.isVisible());
  type(dialog, "txbHeight", "500");
  desktop.expect("Value entered in width and/or height appear to be rather large.  Sure?").answer(desktop::Answer::No);
  control<QPushButton>(dialog, "cmdOK")->click();
  EXPECT_TRUE(dialog.isVisible());
  desktop.expect("rather large").answer(desktop::Answer::Yes);
  control<QPushButton>(dialog, "cmdOK")->click();
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
      control<QPushButton>(*dialog, button)->click();
    });
  };
  press("optSize(0)", "cmdCancel");
  EXPECT_FALSE(frmRuvoSizeOfNew::ask(session, nullptr));
  EXPECT_TRUE(session.dialogCancelled);
  EXPECT_EQ(session.newImageWidth, 640);
  press("optSize(0)", "cmdOK");
  EXPECT_TRUE(frmRuvoSizeOfNew::ask(session, nullptr));
  EXPECT_FALSE(session.dialogCancelled);
  EXPECT_EQ(session.newImageWidth, 320);
  EXPECT_EQ(session.newImageHeight, 200);
}

}  // namespace
}  // namespace ruvo
