#include "effects/frmRuvoText.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>

#include "effects/text_sample.h"
#include "support/pictures.h"
#include "support_ui/control.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo {
namespace {

using test::control;

TextChoices everyChoice() {
  TextChoices choices{"One\ntwo", "DejaVu Serif", 23, true, true, true, true, false, TextAlign::Right};
  choices.colour = rgb(255, 0, 0);
  choices.filled = true;
  choices.backColour = rgb(0, 255, 0);
  return choices;
}

TEST(FrmRuvoText, ShowsAndGivesBackEveryChoice) {
  test::ScriptedDesktop desktop;
  frmRuvoText window(frmRuvoText::Use::OnPicture, everyChoice(), {});
  EXPECT_EQ(window.choices(), everyChoice());
  for (const char* box : {"ckbBold", "ckbItalic", "ckbUnderline", "ckbStrikeThru", "ckbAntialias"})
    control<QCheckBox>(window, box)->click();
  control<QRadioButton>(window, "optAlign(1)")->click();
  desktop.expectColor(QColor(1, 2, 3));
  QTest::mouseClick(control<QWidget>(window, "picColor"), Qt::LeftButton);
  desktop.expectColor(QColor(4, 5, 6));
  QTest::mouseClick(control<QWidget>(window, "picBackColor"), Qt::LeftButton);
  TextChoices wanted = everyChoice();
  wanted.bold = wanted.italic = wanted.underline = wanted.strikeThru = false;
  wanted.antialias = true;
  wanted.align = TextAlign::Center;
  wanted.colour = rgb(1, 2, 3);
  wanted.backColour = rgb(4, 5, 6);
  EXPECT_EQ(window.choices(), wanted);
}

TEST(FrmRuvoText, TheSampleFollowsAndLiesOnThePicture) {
  test::ScriptedDesktop desktop;
  const clsDIB picture = test::plainDib(700, 300, rgb(0, 0, 255));
  TextChoices choices{"H", "DejaVu Sans", 100};
  choices.colour = rgb(255, 0, 0);
  frmRuvoText window(frmRuvoText::Use::OnPicture, choices, {&picture, {50, 40}});
  window.show();
  const auto* sample = static_cast<TextSample*>(control<QWidget>(window, "picSample"));
  const auto count = [&](QColor colour) {
    int found = 0;
    for (int y = 0; y < sample->image().height(); ++y) {
      for (int x = 0; x < sample->image().width(); ++x) found += sample->image().pixelColor(x, y) == colour;
    }
    return found;
  };
  const int before = count(Qt::red);
  EXPECT_GT(before, 1000);
  EXPECT_EQ(sample->image().pixelColor(0, 0), QColor(Qt::blue)) << "the picture goes on around the text";
  control<QCheckBox>(window, "ckbBold")->click();
  EXPECT_GT(count(Qt::red), before);
  EXPECT_EQ(sample->scale(), 1);
  control<QPlainTextEdit>(window, "txbText")->setPlainText(QString(40, 'H'));
  EXPECT_TRUE(sample->scale() < 0.5 && control<QLabel>(window, "lblSize")->text().contains("shown at"));
  control<QPlainTextEdit>(window, "txbText")->setPlainText("a");
  control<QComboBox>(window, "cboFont")->setEditText("No Such Font");
  EXPECT_TRUE(control<QLabel>(window, "lblNote")->text().contains("No Such Font is not here"));
}

TEST(FrmRuvoText, WhatCanNotBeWrittenIsRefusedAndTheWindowStays) {
  test::ScriptedDesktop desktop;
  frmRuvoText window(frmRuvoText::Use::OnPicture, everyChoice(), {});
  window.show();
  const auto refuse = [&](const char* words) {
    EXPECT_TRUE(control<QLabel>(window, "lblNote")->text().startsWith(words)) << words;
    desktop.expect(words);
    control(window, "cmdProceed")->click();
    EXPECT_TRUE(window.isVisible());
  };
  auto* size = control<QComboBox>(window, "cboSize");
  for (const char* typed : {"", "3", "401"}) {
    size->setEditText(typed);
    refuse("Font size should be a whole number from 4 to 400.");
    EXPECT_EQ(window.choices(), std::nullopt);
  }
  size->setEditText("400");
  control<QPlainTextEdit>(window, "txbText")->setPlainText(QString(2001, 'i'));
  refuse("Text should have at most 2,000 characters.");
  control<QPlainTextEdit>(window, "txbText")->setPlainText(QString(2000, 'W'));
  refuse("Text at this size would be ");
  size->setEditText("4");
  control(window, "cmdProceed")->click();
  EXPECT_EQ(window.result(), QDialog::Accepted);

  frmRuvoText stamp(frmRuvoText::Use::Stamp, everyChoice(), {});
  EXPECT_FALSE(stamp.choices()->antialias || control<QCheckBox>(stamp, "ckbAntialias")->isEnabled());
}

}  // namespace
}  // namespace ruvo
