#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "document_fixture.h"
#include "effects/filter/clsDIBFilter.h"
#include "support_ui/control.h"

namespace ruvo {
namespace {

using test::control;
using test::DocumentTest;

class DocumentEffects : public DocumentTest {
 protected:
  void SetUp() override { ASSERT_TRUE(open(write("photo.bmp", colourful()))); }
  ucCanvas& canvas() { return *document->canvas(); }
  void select(int tool) {
    document->Do_imgToolsClick(tool);
    QPoint corner;
    canvas().GetPicdispStartPos(corner.rx(), corner.ry());
    auto* display = canvas().findChild<QWidget*>("picDisp");
    QTest::mousePress(display, Qt::LeftButton, {}, corner + QPoint(10, 10));
    QMouseEvent move(QEvent::MouseMove, corner + QPoint(19, 17), display->mapToGlobal(corner + QPoint(19, 17)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(display, &move);
    QTest::mouseRelease(display, Qt::LeftButton, {}, corner + QPoint(19, 17));
  }
  // Picks a menu item and acts in the window that it opens.
  void run(const char* menu, int index, const char* window, const std::function<void(QWidget&)>& act) {
    bool acted = false;
    QTimer::singleShot(0, qApp, [&] {
      auto* shown = QApplication::activeModalWidget();
      ASSERT_NE(shown, nullptr);
      EXPECT_EQ(shown->objectName(), window);
      acted = true;
      act(*shown);
      // A test that fails must not wait for a person.
      if (shown->isVisible()) shown->close();
    });
    EXPECT_TRUE(document->triggerMenu(menu, index));
    EXPECT_TRUE(acted);
  }
  static void press(QWidget& window, const char* name) { control(window, name)->click(); }
  std::size_t states() { return undoFiles().size(); }
  static clsDIB copyOf(const clsDIB& dib) {
    clsDIB copy;
    clsDIB::CloneDIB(dib, copy, kWhite, dib.BottomUp());
    return copy;
  }
  static int difference(const clsDIB& a, const clsDIB& b) {
    if (a.size() != b.size()) return 999;
    return test::farthest(&a.surface(), [&b](int x, int y) { return test::pixelAt(b, x, y); });
  }
};

TEST_F(DocumentEffects, ProceedIsOneStateAndCancelNone) {
  clsDIB wanted = copyOf(picture());
  clsDIBFilter().Contrast(wanted, 1.5f, 0);
  run("mnuEffectsSub", 0, "frmRuvoContrast", [](QWidget& window) {
    control<QComboBox>(window, "cboContrast")->setEditText("50");
    press(window, "cmdCancel");
  });
  EXPECT_FALSE(changed());
  EXPECT_EQ(states(), 1u);
  run("mnuEffectsSub", 0, "frmRuvoContrast", [](QWidget& window) {
    control<QComboBox>(window, "cboContrast")->setEditText("50");
    press(window, "cmdProceed");
  });
  EXPECT_EQ(difference(picture(), wanted), 0);
  EXPECT_TRUE(changed());
  EXPECT_EQ(states(), 2u);
  EXPECT_TRUE(document->triggerMenu("mnuEffectsSub", 7));
  clsDIBFilter().Negative(wanted);
  EXPECT_EQ(difference(picture(), wanted), 0) << "at once, without a window";
  EXPECT_TRUE(document->triggerMenu("mnuEffectsDarkenSub", 1));
  clsDIBFilter().BrightenDarken(wanted, -0.2f);
  EXPECT_EQ(difference(picture(), wanted), 0);
  EXPECT_EQ(states(), 4u);
}

TEST_F(DocumentEffects, CancelInTheMiddleOfARunLeavesThePicture) {
  picture() =
      test::dibOf(2000, 1500, [](int x, int y) { return Pixel32::plain(rgb(x % 256, y % 256, (x ^ y) % 256)); });
  const clsDIB before = copyOf(picture());
  run("mnuEffectsSub", 0, "frmRuvoContrast", [](QWidget& window) {
    control<QComboBox>(window, "cboSoften")->setEditText("20");
    for (int i = 0; i < 3; ++i) press(window, "cmdAdjSoften");
    QTimer::singleShot(0, &window, [&window] { press(window, "cmdCancel"); });
    press(window, "cmdProceed");
    EXPECT_TRUE(window.isVisible()) << "only the run has ended";
  });
  EXPECT_EQ(difference(picture(), before), 0);
  EXPECT_FALSE(changed());
}

TEST_F(DocumentEffects, ARegionIsChangedAlone) {
  const clsDIB before = copyOf(picture());
  clsDIB negative = copyOf(picture());
  clsDIBFilter().Negative(negative);
  select(14);
  EXPECT_TRUE(document->triggerMenu("mnuEffectsSub", 7));
  EXPECT_EQ(colourAt(9, 10), QColor(27, 40, 19).name());
  EXPECT_EQ(test::pixelAt(picture(), 12, 12).colour(), test::pixelAt(negative, 12, 12).colour());
  EXPECT_TRUE(canvas().HasRegion() && changed());
  EXPECT_EQ(states(), 2u);
  run("mnuEffectsSub", 3, "frmRuvoSwapEle", [](QWidget& window) { press(window, "cmdProceed"); });
  const Colour was = test::pixelAt(negative, 12, 12).colour();
  EXPECT_EQ(test::pixelAt(picture(), 12, 12).colour(), rgb(blueOf(was), greenOf(was), redOf(was)));
  EXPECT_EQ(states(), 3u);
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(document->triggerMenu("mnuEditUndo"));
  EXPECT_EQ(difference(picture(), before), 0);
}

TEST_F(DocumentEffects, AFloatingPasteIsChangedWhereItFloats) {
  desktop.copyElsewhere([](QMimeData& data) { data.setImageData(plain(12, 9, Qt::blue)); });
  document->updateEditButtons();
  ASSERT_TRUE(document->triggerMenu("mnuEditPaste"));
  run("mnuEffectsSub", 2, "frmRuvoAdjEle", [](QWidget& window) {
    control<QComboBox>(window, "cboElement(1)")->setEditText("255");
    press(window, "cmdProceed");
  });
  EXPECT_TRUE(canvas().PasteOn());
  EXPECT_EQ(colourAt(3, 3), "#00ffff");
  EXPECT_EQ(states(), 1u) << "a state once it is put down";
  EXPECT_EQ(colourAt(20, 20), QColor(60, 80, 40).name());
}

TEST_F(DocumentEffects, ASecondPictureIsLaidWithItsAlpha) {
  QImage second(2, 1, QImage::Format_ARGB32);
  second.setPixelColor(0, 0, QColor(0, 0, 0, 0));
  second.setPixelColor(1, 0, Qt::red);
  const clsDIB before = copyOf(picture());
  desktop.expectOpen(write("second.png", second));
  run("mnuLayerSub", 0, "frmRuvoLayerOp", [](QWidget& window) {
    press(window, "cmdPicture");
    press(window, "cmdProceed");
  });
  int changes = 0;
  for (int y = 0; y < before.DIBHeight(); ++y) {
    for (int x = 0; x < before.DIBWidth(); ++x)
      changes += test::pixelAt(picture(), x, y) != test::pixelAt(before, x, y);
  }
  EXPECT_EQ(changes, 1);
}

TEST_F(DocumentEffects, AnyAngleTurnsThePictureOrTheRegion) {
  run("mnuRotateSub", 5, "frmRuvoRotate", [](QWidget& window) { press(window, "cmdProceed"); });
  EXPECT_EQ(picture().size(), (Size{52, 52}));
  EXPECT_EQ(colourAt(0, 0), "#ffffff");
  EXPECT_EQ(states(), 2u);
  EXPECT_TRUE(document->triggerMenu("mnuEditUndo"));
  EXPECT_EQ(picture().size(), (Size{40, 30}));
  main.tools.viewMode = true;
  document->Do_UpdateModeChange();
  run("mnuRotateSub", 5, "frmRuvoRotate", [](QWidget& window) { press(window, "cmdProceed"); });
  EXPECT_EQ(picture().size(), (Size{52, 52})) << "in the view mode too";
  main.tools.viewMode = false;
  document->Do_UpdateModeChange();
  EXPECT_TRUE(document->triggerMenu("mnuEditUndo"));
  select(15);
  run("mnuRotateSub", 5, "frmRuvoRotate", [](QWidget& window) { press(window, "cmdProceed"); });
  EXPECT_EQ(picture().size(), (Size{40, 30}));
  EXPECT_EQ(colourAt(10, 10), QColor(30, 40, 20).name()) << "outside the oval";
  EXPECT_TRUE(canvas().RegionMoveReady());
  int left = 0, top = 0, right = 0, bottom = 0;
  EXPECT_TRUE(canvas().GetRegionData(left, top, right, bottom));
  EXPECT_GT(bottom - top, 8) << "the flat oval stands slanting now, in a box of its own";
}

TEST_F(DocumentEffects, ARegionsShadowFallsOnThePictureAround) {
  ASSERT_TRUE(open(write("plain.bmp", plain(60, 50, QColor(250, 240, 230)))));
  select(15);
  const clsDIB before = copyOf(picture());
  const auto shadow = [this] {
    run("mnuEffectsSub", 22, "frmRuvoAddShadow", [](QWidget& window) { press(window, "cmdProceed"); });
  };
  shadow();
  EXPECT_EQ(states(), 2u);
  EXPECT_TRUE(canvas().HasRegion() && !canvas().RegionMoveReady()) << "the marquee stays";
  EXPECT_EQ(test::pixelAt(picture(), 15, 13).colour(), rgb(250, 240, 230)) << "what throws it";
  EXPECT_LT(test::pixelAt(picture(), 19, 17).red, 250) << "a corner beside the oval";
  EXPECT_LT(test::pixelAt(picture(), 23, 21).red, 250);
  EXPECT_EQ(test::pixelAt(picture(), 2, 2).colour(), rgb(250, 240, 230));

  document->mnuEditUndo_Click();
  EXPECT_EQ(difference(picture(), before), 0);
  select(15);
  ASSERT_TRUE(canvas().PrepareRegionDragging());
  shadow();
  int left = 0, top = 0, right = 0, bottom = 0;
  ASSERT_TRUE(canvas().GetRegionData(left, top, right, bottom));
  EXPECT_GT(right, 19);
  EXPECT_LT(test::pixelAt(picture(), 23, 21).red, 250) << "it floats with the region";
  EXPECT_EQ(states(), 2u);
  QTest::keyClick(canvas().findChild<QWidget*>("picDisp"), Qt::Key_Escape);
  EXPECT_EQ(difference(picture(), before), 0);
  EXPECT_TRUE(canvas().GetRegionData(left, top, right, bottom));
  EXPECT_EQ(right, 19) << "the marquee as it was";
}

}  // namespace
}  // namespace ruvo
