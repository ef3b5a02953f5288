#include <QLabel>
#include <QTimer>

#include "effect_fixture.h"
#include "effects/argument_window.h"
#include "effects/model/effect_table.h"
#include "effects/model/pixel_cover.h"

namespace ruvo {
namespace {

using namespace test;

// Runs until it is stopped, where it is told to.
class EndlessWindow : public EffectWindow {
 public:
  EndlessWindow(const EffectSubject& subject) : EffectWindow("frmEndless", "Endless", subject, nullptr) {}
  bool endless = true;
  int runs = 0;

 protected:
  bool apply(clsDIB& picture, double scale, const Progress& progress) override {
    if (!progress.step) return true;
    ++runs;
    clsDIB::ColorBackGroundDIB(picture, kBlack);
    for (int i = 0; endless && !progress.stopped(); ++i) progress.report(i % 100);
    return scale == 1 && !progress.stopped();
  }
};

class ManyValues {
 public:
  static constexpr const char* kChoices[] = {"None", "Half"};
  static bool apply(clsDIB& picture, const EffectInput& input, const Progress&) {
    seen = {input.real(0), input.real(1), static_cast<double>(input.colour(2)),
            input.real(3), input.real(4), input.real(5)};
    keepSize = input.keepSize;
    scale = input.scale;
    clsDIB::ColorBackGroundDIB(picture, input.colour(2));
    return true;
  }
  static inline std::vector<double> seen;
  static inline bool keepSize = false;
  static inline double scale = 0;
  static constexpr EffectArgument kArguments[] = {
      {"line-width", "&Line width", EffectValueKind::Whole, 1, 50, 3, "pixels"},
      {"angle", "&Angle", EffectValueKind::Real, -1, 1, 0.25},
      {"ink", "&Ink", EffectValueKind::PlainColour, 0, kWhite, rgb(255, 0, 0)},
      {"spare", "&Spare", EffectValueKind::ColourOrNone, kNoColour, kWhite, kNoColour},
      {"how", "&How", EffectValueKind::Choice, 0, 1, 0, "", kChoices},
      {"smooth", "S&mooth", EffectValueKind::Switch, 0, 1, 1}};
  static constexpr Effect kEffect = {"many", "Many Values", "For a test", kArguments, apply};
};

TEST_F(EffectWindowTest, CancelEndsARunAndThenTheWindow) {
  EndlessWindow window({picture});
  const clsDIB before = copyOf(picture);
  show(window);
  for (const auto& end : {std::function<void()>([&] { click(window, "cmdCancel"); }),
                          std::function<void()>([&] { QTest::keyClick(&window, Qt::Key_Escape); })}) {
    QTimer::singleShot(0, &window, [&] {
      EXPECT_FALSE(control(window, "cmdProceed")->isEnabled());
      window.accept();
      end();
    });
    click(window, "cmdProceed");
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(control(window, "cmdProceed")->isEnabled());
  }
  EXPECT_EQ(window.runs, 2) << "never two at a time";
  QTimer::singleShot(0, &window, [&] { window.close(); });
  click(window, "cmdProceed");
  EXPECT_FALSE(window.isVisible()) << "closed by its frame, once the run has ended";
  EXPECT_EQ(window.result(), QDialog::Rejected);
  EXPECT_TRUE(same(picture, before));

  window.endless = false;
  show(window);
  QTest::keyClick(&window, Qt::Key_Return);
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_EQ(pixelAt(window.takeResult(), 9, 9).colour(), kBlack);
  EXPECT_TRUE(same(picture, before));
}

TEST_F(EffectWindowTest, ControlsFollowTheArguments) {
  EffectHost host;
  ArgumentWindow window("frmMany", ManyValues::kEffect, {picture, true}, host, nullptr);
  show(window);
  EXPECT_EQ(window.focusWidget(), control<QSlider>(window, "hsrLineWidth")) << "its own controls come first";
  const double red = rgb(255, 0, 0), none = kNoColour;
  EXPECT_EQ(ManyValues::seen, (std::vector<double>{3, 0.25, red, none, 0, 1}));
  EXPECT_TRUE(ManyValues::keepSize);
  EXPECT_EQ(pixelAt(sampleOf(window), 0, 0).colour(), rgb(255, 0, 0));

  control<QSlider>(window, "hsrLineWidth")->setValue(20);
  EXPECT_EQ(control<QDoubleSpinBox>(window, "txbLineWidth")->value(), 20);
  control<QDoubleSpinBox>(window, "txbAngle")->setValue(7);
  EXPECT_EQ(control<QSlider>(window, "hsrAngle")->value(), 100) << "no further than its range";
  desktop.expectColor(QColor(0, 255, 0));
  QTest::mouseClick(control<ColorButton>(window, "picInk"), Qt::LeftButton);
  EXPECT_EQ(pixelAt(sampleOf(window), 0, 0).colour(), rgb(0, 255, 0));
  pick(window, 2, 3);
  EXPECT_TRUE(control<QCheckBox>(window, "ckbSpare")->isChecked());
  control<QComboBox>(window, "cboHow")->setCurrentIndex(1);
  click(window, "ckbSmooth");
  const double white = kWhite, green = rgb(0, 255, 0);
  EXPECT_EQ(ManyValues::seen, (std::vector<double>{20, 1, green, white, 1, 0})) << "the picture's colour was picked";

  // The mnemonic of a number's label leads into its field.
  QTest::keyClick(&window, Qt::Key_L, Qt::AltModifier);
  EXPECT_TRUE(control<QDoubleSpinBox>(window, "txbLineWidth")->hasFocus());
  proceed(window);
  ArgumentWindow again("frmMany", ManyValues::kEffect, {picture}, host, nullptr);
  EXPECT_EQ(control<QDoubleSpinBox>(again, "txbLineWidth")->value(), 20) << "what was entered last";
}

TEST_F(EffectWindowTest, RowsAreNotSqueezedOnASmallScreen) {
  EffectHost host;
  ArgumentWindow window("frmRuvoAddCube", *effectOf("cube"), {picture}, host, nullptr);
  show(window);
  for (const auto* label : window.findChildren<QLabel*>()) EXPECT_GE(label->width(), label->sizeHint().width());
  for (const auto* slider : window.findChildren<QSlider*>()) EXPECT_GE(slider->width(), slider->minimumWidth());
}

TEST_F(EffectWindowTest, AGradientOnWhatFloatsKeepsItsOutline) {
  Pixel32* row = pixelRow(picture.surface(), 0);
  for (int x = 0; x < picture.DIBWidth(); ++x) row[x].alpha = x == 0 ? 255 : x == 1 ? 90 : 0;
  picture.setDIBhasAlpha(true);
  EffectHost host;
  ArgumentWindow window("frmRuvoGradient", *effectOf("gradient"), {picture, true}, host, nullptr);
  show(window);
  const Pixel32 before = row[1];
  const clsDIB result = proceed(window);
  const Pixel32* after = pixelRow(result.surface(), 0);
  EXPECT_NE(after[1].colour(), before.colour());
  EXPECT_EQ(after[0].alpha, 255);
  EXPECT_EQ(after[1].alpha, 90);
  EXPECT_EQ(after[2].alpha, 0);
}

TEST_F(EffectWindowTest, TheSampleIsReducedOrAtFullSize) {
  picture = plainDib(2000, 1000, rgb(1, 2, 3));
  EffectHost host;
  ArgumentWindow window("frmMany", ManyValues::kEffect, {picture}, host, nullptr);
  show(window);
  const Size reduced = sampleOf(window).size();
  EXPECT_LT(reduced.width, 1000);
  EXPECT_NEAR(ManyValues::scale, reduced.width / 2000.0, 1e-9);
  EXPECT_NEAR(reduced.width, 2.0 * reduced.height, 2);
  click(window, "ckbShowFullSize");
  EXPECT_EQ(sampleOf(window).size(), (Size{2000, 1000}));
  EXPECT_EQ(ManyValues::scale, 1);
  desktop.expectColor(QColor(9, 9, 9));
  QTest::mouseClick(control<ColorButton>(window, "picInk"), Qt::LeftButton);
  EXPECT_EQ(pixelAt(sampleOf(window), 0, 0).colour(), rgb(255, 0, 0)) << "a large one waits until the hand rests";
  EXPECT_TRUE(QTest::qWaitFor([&] { return pixelAt(sampleOf(window), 0, 0).colour() == rgb(9, 9, 9); }));
}

TEST_F(EffectWindowTest, APictureHasToBeChosenFirst) {
  EffectHost host;
  std::shared_ptr<const clsDIB> chosen;
  host.loadPicture = [&](QWidget*) { return chosen; };
  ArgumentWindow window("frmRuvoTile", *effectOf("tile"), {picture}, host, nullptr);
  show(window);
  EXPECT_TRUE(same(sampleOf(window), picture));
  desktop.expect("Please load an image first:  Tile");
  click(window, "cmdProceed");
  EXPECT_TRUE(window.isVisible());
  click(window, "cmdTile");
  EXPECT_TRUE(same(sampleOf(window), picture)) << "cancelled";
  chosen = std::make_shared<clsDIB>(plainDib(3, 3, kBlack));
  click(window, "cmdTile");
  EXPECT_TRUE(same(sampleOf(window), plainDib(60, 40, kBlack)));
  EXPECT_TRUE(same(proceed(window), plainDib(60, 40, kBlack)));
}

}  // namespace
}  // namespace ruvo
