#include <gtest/gtest.h>

#include "base/limits.h"
#include "effects/filter/clsDIBFilter.h"
#include "effects/model/color_theme.h"
#include "effects/model/contrast_steps.h"
#include "effects/model/rotation.h"
#include "support/pictures.h"

namespace ruvo {
namespace {

using enum ContrastProcess;

clsDIB photo() {
  return test::dibOf(
      9, 7, [](int x, int y) { return Pixel32::plain(rgb(20 * x + 3 * y, 250 - 25 * y, (x * y * 37) % 256)); });
}
bool same(const clsDIB& a, const clsDIB& b) {
  return a.size() == b.size() &&
         std::equal(a.DIBBitsPtr(), a.DIBBitsPtr() + a.DIBSize(), b.DIBBitsPtr(), b.DIBBitsPtr() + b.DIBSize());
}
clsDIB after(const EffectSteps& steps) {
  clsDIB dib = photo();
  EXPECT_TRUE(steps.apply(dib, 1, false, {}));
  return dib;
}

TEST(EffectSteps, AreAppliedInTurnWithOneProgressAndCanBeStopped) {
  EffectSteps steps;
  EXPECT_TRUE(same(after(steps), photo()));
  steps.setLive({effectStep("negative", {}), effectStep("fade", {50})});
  steps.take();
  steps.setLive({effectStep("brighten", {20})});
  clsDIB wanted = photo();
  clsDIBFilter().Negative(wanted);
  clsDIBFilter().Fade(wanted, 50);
  clsDIB faded;
  clsDIB::CloneDIB(wanted, faded, kWhite, false);
  clsDIBFilter().BrightenDarken(wanted, 0.2f);
  EXPECT_TRUE(same(after(steps), wanted));

  std::vector<int> told;
  clsDIB dib = photo();
  EXPECT_TRUE(steps.apply(dib, 1, false, {[&](int percent) { told.push_back(percent); }, {}, {}}));
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_EQ(told.back(), 100);
  EXPECT_FALSE(steps.apply(dib, 1, false, {{}, {}, [&] { return told.back() == 100; }}));
  steps.setLive({});
  EXPECT_TRUE(same(after(steps), faded)) << "the step stays";
  EXPECT_TRUE(steps.undo());
  EXPECT_FALSE(steps.undo());
  EXPECT_TRUE(steps.none());
}

TEST(ContrastSteps, ToneIsKeptWhenAnotherProcessIsChosenAndThePreviewOfTheOthersIsNot) {
  ContrastSteps model;
  ContrastChoices now = model.choices();
  now.contrast = 50;
  now.brightness = -20;
  model.choose(now);
  clsDIB wanted = photo();
  clsDIBFilter().Contrast(wanted, 1.5f, 0);
  clsDIBFilter().BrightenDarken(wanted, -0.2f);
  EXPECT_TRUE(same(after(model.steps()), wanted));

  now.process = Soften;
  model.choose(now);
  EXPECT_EQ(model.steps().taken(), 1u);
  EXPECT_EQ(model.choices().contrast, 0) << "it would be added twice";
  clsDIB soft;
  clsDIB::CloneDIB(wanted, soft, kWhite, false);
  clsDIBFilter().Soften(soft);
  EXPECT_TRUE(same(after(model.steps()), soft));

  now = model.choices();
  now.process = Gamma;
  now.gamma = 2;
  model.choose(now);
  clsDIBFilter().Gamma(wanted, 2);
  EXPECT_TRUE(same(after(model.steps()), wanted)) << "not softened";
  EXPECT_TRUE(model.undo());
  EXPECT_EQ(model.choices().gamma, 1);
  EXPECT_TRUE(model.undo());
  EXPECT_TRUE(same(after(model.steps()), photo()));
  EXPECT_FALSE(model.canUndo());
}

TEST(ContrastSteps, AnAppliedStepIsWhatWasSeenAndCanBeAppliedAgain) {
  ContrastSteps model;
  ContrastChoices now;
  now.process = Sharpen;
  now.sharpen = 2;
  now.sharpenWeight = 0.5;
  model.choose(now);
  model.exclude(static_cast<double>(rgb(0, 250, 0)));
  const clsDIB seen = after(model.steps());
  clsDIB wanted = photo();
  for (int i = 0; i < 2; ++i) clsDIBFilter().Sharpen(wanted, 0.5f, rgb(0, 250, 0));
  EXPECT_TRUE(same(seen, wanted));
  model.applyStep(Sharpen);
  EXPECT_TRUE(same(after(model.steps()), seen));
  model.exclude(kNoColour);
  EXPECT_TRUE(same(after(model.steps()), seen)) << "of what is live only";
  model.applyStep(Sharpen);
  EXPECT_EQ(model.steps().taken(), 2u);
  model.applyStep(Fade);
  EXPECT_EQ(model.choices().process, Fade);
  for (int i = 0; i < 2; ++i) clsDIBFilter().Sharpen(wanted, 0.5f);
  clsDIBFilter().Fade(wanted, 10);
  EXPECT_TRUE(same(after(model.steps()), wanted));
}

TEST(ColorTheme, ComesToOneColourAndTheTintThatItGivesGreys) {
  EXPECT_EQ(equivalentColour({.hue = 0, .lumination = 120, .saturation = 240}), rgb(255, 0, 0));
  EXPECT_EQ(equivalentColour({.hue = 120, .saturation = 240}), rgb(0, 255, 0)) << "lumination of the pixels: half";
  EXPECT_EQ(equivalentColour({.hue = 360, .lumination = 240}), kWhite);
  const ColorTheme blue = withColour({}, rgb(0, 0, 255));
  EXPECT_EQ(blue.hue, 240);
  EXPECT_EQ(blue.saturation, 240);
  EXPECT_EQ(blue.lumination, kThemeKeeps);
  EXPECT_EQ(withColour({.lumination = 10}, rgb(0, 0, 255)).lumination, 120);

  clsDIB dib = test::plainDib(2, 1, rgb(100, 100, 100));
  const EffectStep tint = effectStep(ColorTheme{.hue = 240, .saturation = 240, .byRGB = true});
  ASSERT_TRUE(tint.effect->apply(dib, EffectInput(tint.values), {}));
  EXPECT_EQ(test::pixelAt(dib, 0, 0).colour(), rgb(15, 15, 255));
}

TEST(RotatePicture, GrowsWithinTheLimitsAndTurnsToTheLeft) {
  clsDIB dib = test::dibOf({"...", "..#", "..."});
  ASSERT_TRUE(rotatePicture(dib, {.angle = 90, .fill = rgb(255, 0, 0)}, {}));
  EXPECT_PICTURE(test::rowsOf(dib), ({"???", "???", ".#."})) << "from above the middle to its left";

  clsDIB hundred = test::plainDib(100, 100, kBlack, 32, true);
  ASSERT_TRUE(rotatePicture(hundred, {.angle = 45, .grow = true}, {}));
  EXPECT_EQ(hundred.size(), (Size{143, 143}));
  EXPECT_TRUE(hundred.BottomUp());
  EXPECT_EQ(test::pixelAt(hundred, 0, 0).colour(), kWhite);

  clsDIB strip = test::plainDib(5000, 2, kBlack);
  ASSERT_TRUE(rotatePicture(strip, {.angle = 1, .grow = true}, {}));
  EXPECT_EQ(strip.size(), (Size{5000, 2})) << "its square has more than 25 million pixels";
  EXPECT_FALSE(rotatePicture(strip, {.angle = 1}, {{}, {}, [] { return true; }}));
  EXPECT_EQ(strip.size(), (Size{5000, 2})) << "stopped: still there";
  EXPECT_NE(rotationQuestion().find("in excess of\nthe maximum allowable.  Rotated"), std::string::npos);
}

}  // namespace
}  // namespace ruvo
