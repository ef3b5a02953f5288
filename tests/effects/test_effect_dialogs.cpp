#include "effect_fixture.h"
#include "effects/filter/clsDIBFilter.h"
#include "effects/frmRuvoAdjEle.h"
#include "effects/frmRuvoCast.h"
#include "effects/frmRuvoColorTheme.h"
#include "effects/frmRuvoContrast.h"
#include "effects/frmRuvoRotate.h"
#include "effects/frmRuvoSwapEle.h"

namespace ruvo {
namespace {

using namespace test;
using Element = clsDIBFilter::Element;

TEST_F(EffectWindowTest, ContrastShowsStepsAndTakesThemBack) {
  frmRuvoContrast window({picture}, nullptr);
  show(window);
  EXPECT_TRUE(same(sampleOf(window), picture));
  control<QSlider>(window, "hsrContrast")->setValue(40);
  EXPECT_EQ(control<QComboBox>(window, "cboContrast")->currentText(), "40");
  type(window, "cboBrightness", "-15");
  EXPECT_EQ(control<QSlider>(window, "hsrBrightness")->value(), -15);
  const auto toned = [](clsDIB& dib) {
    clsDIBFilter().Contrast(dib, 1.4f, 0);
    clsDIBFilter().BrightenDarken(dib, -0.15f);
  };
  EXPECT_TRUE(same(sampleOf(window), filtered(toned)));

  type(window, "cboSoften", "2");
  EXPECT_TRUE(control<QRadioButton>(window, "optProcess(2)")->isChecked()) << "what is changed is live";
  click(window, "cmdAdjSoften");
  type(window, "cboSharpenWeight", "0.5");
  click(window, "cmdAdjSharpen");
  type(window, "cboFade", "30");
  const auto stepped = [&](clsDIB& dib) {
    toned(dib);
    for (int i = 0; i < 2; ++i) clsDIBFilter().Soften(dib);
    clsDIBFilter().Sharpen(dib, 0.5f);
  };
  const auto faded = [&](clsDIB& dib) {
    stepped(dib);
    clsDIBFilter().Fade(dib, 30);
  };
  EXPECT_TRUE(same(sampleOf(window), filtered(faded)));
  click(window, "cmdUndo");
  EXPECT_TRUE(same(sampleOf(window), filtered(stepped)));
  click(window, "optProcess(1)");
  control<QComboBox>(window, "cboGamma")->setCurrentIndex(control<QComboBox>(window, "cboGamma")->findText("2"));
  pick(window, 1, 1);
  EXPECT_TRUE(same(sampleOf(window), filtered([&](clsDIB& dib) {
                     stepped(dib);
                     clsDIBFilter().Gamma(dib, 2, kWhite);
                   })));
  type(window, "cboGamma", "x");
  desktop.expect("Gamma takes a number from 0.1 to 10.");
  click(window, "cmdProceed");
  EXPECT_TRUE(window.isVisible());
  for (int i = 0; i < 3; ++i) click(window, "cmdUndo");
  EXPECT_TRUE(same(sampleOf(window), filtered(toned)));
  type(window, "cboGamma", "1");
  const clsDIB wanted = filtered(toned);
  EXPECT_TRUE(same(proceed(window), wanted));

  frmRuvoContrast nothing({picture}, nullptr);
  show(nothing);
  click(nothing, "cmdProceed");
  EXPECT_EQ(nothing.result(), QDialog::Rejected) << "no state for nothing";
}

TEST_F(EffectWindowTest, CastHasThreeOperationsAndALevelForEachElement) {
  frmRuvoCast window({picture}, nullptr);
  show(window);
  auto* operation = control<QComboBox>(window, "cboOperation");
  EXPECT_EQ(operation->itemText(0) + operation->itemText(1) + operation->itemText(2), "  Cast  Emboas  Engrave");
  type(window, "cboElement(1)", "-7");
  EXPECT_TRUE(same(sampleOf(window), filtered([](clsDIB& dib) { clsDIBFilter().Cast(dib, 128, -7, 128); })));
  operation->setCurrentIndex(1);
  EXPECT_TRUE(same(sampleOf(window), filtered([](clsDIB& dib) { clsDIBFilter().Emboss(dib, 1, 128, -7, 128); })));
  operation->setCurrentIndex(2);
  control<QSlider>(window, "hsbAllElements")->setValue(60);
  EXPECT_EQ(control<QComboBox>(window, "cboElement(2)")->currentText(), "60");
  const auto engraved = [](clsDIB& dib) { clsDIBFilter().Engrave(dib, 1, 60, 60, 60); };
  EXPECT_TRUE(same(sampleOf(window), filtered(engraved)));
  click(window, "cmdAdjElement");
  EXPECT_TRUE(same(sampleOf(window), filtered(engraved)));
  operation->setCurrentIndex(0);
  const clsDIB both = filtered([&](clsDIB& dib) {
    engraved(dib);
    clsDIBFilter().Cast(dib, 60, 60, 60);
  });
  EXPECT_TRUE(same(sampleOf(window), both));
  EXPECT_TRUE(same(proceed(window), both));
  show(window);
  click(window, "cmdRestore");
  EXPECT_TRUE(same(sampleOf(window), picture));
}

TEST_F(EffectWindowTest, ElementsAreAdjustedOneByOneAndExchanged) {
  frmRuvoAdjEle adjust({picture}, nullptr);
  show(adjust);
  control<QSlider>(adjust, "hsrElement(0)")->setValue(50);
  type(adjust, "cboElement(2)", "-90");
  click(adjust, "ckbExcludeWhiteBgd");
  const clsDIB wanted = filtered([](clsDIB& dib) {
    clsDIBFilter().AdjustElement(dib, Element::Red, 50, kWhite);
    clsDIBFilter().AdjustElement(dib, Element::Blue, -90, kWhite);
  });
  EXPECT_TRUE(same(sampleOf(adjust), wanted));
  click(adjust, "cmdAdjElement(0)");
  EXPECT_EQ(control<QComboBox>(adjust, "cboElement(0)")->currentText(), "0");
  EXPECT_TRUE(same(sampleOf(adjust), wanted));
  EXPECT_TRUE(same(proceed(adjust), wanted));
  show(adjust);
  click(adjust, "cmdRestore");
  EXPECT_TRUE(same(sampleOf(adjust), picture));

  frmRuvoSwapEle swap({picture}, nullptr);
  show(swap);
  control<QComboBox>(swap, "cboSwap")->setCurrentIndex(2);
  const clsDIB swapped = filtered([](clsDIB& dib) { clsDIBFilter().SwapElements(dib, clsDIBFilter::Order::GBR); });
  EXPECT_TRUE(same(sampleOf(swap), swapped));
  EXPECT_TRUE(same(proceed(swap), swapped));
}

TEST_F(EffectWindowTest, ColorThemeGivesHueOrTint) {
  frmRuvoColorTheme window({picture}, nullptr);
  show(window);
  type(window, "cboHue", "200");
  control<QComboBox>(window, "cboSaturation")->setCurrentIndex(0);
  click(window, "ckbColorizeNonGray");
  EXPECT_TRUE(same(sampleOf(window), filtered([](clsDIB& dib) {
                     clsDIBFilter().ColorTheme_HLS(dib, {200, -1, -1, true});
                   })));
  desktop.expectColor(QColor(0, 255, 0));
  QTest::mouseClick(control<ColorButton>(window, "picColorTheme"), Qt::LeftButton);
  EXPECT_EQ(control<QComboBox>(window, "cboHue")->currentText(), "120");
  EXPECT_EQ(control<QLabel>(window, "lblRGB")->text(), "0, 255, 0");
  EXPECT_EQ(control(window, "cmdUseRGB")->toolTip(), "As an alternative, but less satisfatory");
  click(window, "cmdUseRGB");
  const clsDIB tinted = filtered([](clsDIB& dib) { clsDIBFilter().ColorTheme_RGB(dib, {-85, 170, -85, true}); });
  EXPECT_TRUE(same(sampleOf(window), tinted));
  type(window, "cboLumination", "241");
  desktop.expect("Lumination takes a whole number from 0 to 240.");
  click(window, "cmdProceed");
  EXPECT_TRUE(window.isVisible());
  type(window, "cboLumination", "as it is");
  EXPECT_TRUE(same(proceed(window), tinted));
}

clsDIB turned(const clsDIB& source, Size size, double angle, bool antialias, std::int64_t transparent, Colour fill) {
  clsDIB dib = plainDib(size.width, size.height, fill);
  clsDIBFilter().RotateDIB_To_DIB(source, dib, angle, antialias, transparent, fill);
  return dib;
}

TEST_F(EffectWindowTest, RotateTurnsByAnyAngle) {
  frmRuvoRotate window({picture}, nullptr);
  EXPECT_EQ(window.windowTitle(), "Rotate At Any Chosen Angle");
  show(window);
  const Size grown = {74, 74};
  EXPECT_TRUE(same(sampleOf(window), turned(picture, grown, 45, true, -1, kWhite)));
  click(window, "cmd45");
  EXPECT_EQ(control<QComboBox>(window, "cboRotateAngle")->currentText(), "90");
  type(window, "cboRotateAngle", "-12,5");
  click(window, "ckbAntialias");
  click(window, "ckbResizeCanvas");
  EXPECT_TRUE(same(sampleOf(window), turned(picture, {60, 40}, -12.5, false, -1, kWhite)));
  desktop.expectColor(QColor(0, 0, 255));
  QTest::mouseClick(control<ColorButton>(window, "picFill"), Qt::LeftButton);
  type(window, "cboRotateAngle", "0");
  pick(window, 30, 20);
  const std::int64_t picked = pixelAt(picture, 30, 20).colour();
  EXPECT_EQ(pixelAt(sampleOf(window), 30, 20).colour(), rgb(0, 0, 255)) << "the picked colour is see-through";
  for (const char* nonsense : {"abc", "361", "nan", ""}) {
    type(window, "cboRotateAngle", *nonsense ? nonsense : " ");
    desktop.expect("The angle takes a number from -360 to 360.");
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible()) << nonsense;
  }
  type(window, "cboRotateAngle", "7");
  const clsDIB wanted = turned(picture, {60, 40}, 7, false, picked, rgb(0, 0, 255));
  EXPECT_TRUE(same(sampleOf(window), wanted));
  EXPECT_TRUE(same(proceed(window), wanted));

  frmRuvoRotate region({picture, true}, nullptr);
  EXPECT_FALSE(control<QCheckBox>(region, "ckbResizeCanvas")->isEnabled()) << "a region keeps its size";
  EXPECT_EQ(proceed(region).size(), picture.size());
}

TEST_F(EffectWindowTest, RotateAsksBeforeAPictureThatCanNotGrow) {
  picture = plainDib(5000, 2, kBlack);
  frmRuvoRotate window({picture}, nullptr);
  show(window);
  EXPECT_FALSE(control<QCheckBox>(window, "ckbResizeCanvas")->isChecked());
  click(window, "ckbResizeCanvas");
  const QString question =
      "Full rotation operation will result in max width/height or area in excess of\nthe maximum allowable.  Rotated "
      "image will be at the original size.\n\n(32760 x 32760)\n\nProceed still?";
  desktop.expect(question).answer(desktop::Answer::No);
  click(window, "cmdProceed");
  EXPECT_TRUE(window.isVisible());
  desktop.expect(question).answer(desktop::Answer::Yes);
  EXPECT_TRUE(same(proceed(window), turned(picture, {5000, 2}, 45, true, -1, kWhite)));
}

}  // namespace
}  // namespace ruvo
