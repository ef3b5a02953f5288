#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include "document_fixture.h"
#include "support_ui/control.h"

namespace ruvo {
namespace {

using test::control;

class DocumentText : public test::DocumentTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(open(write("white.png", plain(200, 120, Qt::white))));
    main.state.text.family = "DejaVu Sans";
    main.tools.firstColor = rgb(255, 0, 0);
  }
  ucCanvas& canvas() { return *document->canvas(); }
  std::size_t states() { return undoFiles().size(); }
  // Runs `act`, in which the text window opens, types a text and clicks the button; null presses Escape. Says what the
  // window held at first.
  template <typename Act>
  QString inWindow(Act act, const QString& text, const char* button = "cmdProceed") {
    QString held = "(no window)";
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, [&] {
      auto* window = QApplication::activeModalWidget();
      if (!window) return;
      turns.stop();
      EXPECT_EQ(window->objectName(), "frmRuvoText");
      auto* field = control<QPlainTextEdit>(*window, "txbText");
      held = field->toPlainText();
      field->setPlainText(text);
      if (button) {
        control(*window, button)->click();
      } else {
        QTest::keyClick(field, Qt::Key_Escape);
      }
    });
    turns.start(0);
    act();
    return held;
  }
  QString addText(const QString& text, const char* button = "cmdProceed") {
    return inWindow([this] { EXPECT_TRUE(document->triggerMenu("mnuTextSub", 0)); }, text, button);
  }
  QString rightClick(QPoint at, const QString& text, const char* button = "cmdProceed") {
    return inWindow(
        [&] {
          drag(at, at, Qt::RightButton);
          // The click is over before the window opens.
          EXPECT_FALSE(canvas().held());
          QCoreApplication::processEvents();
        },
        text, button);
  }
  Rect box() {
    Rect found;
    EXPECT_TRUE(canvas().GetRegionData(found.left, found.top, found.right, found.bottom));
    return found;
  }
  int redPixels() {
    int found = 0;
    for (int y = 0; y < picture().DIBHeight(); ++y) {
      for (int x = 0; x < picture().DIBWidth(); ++x) found += test::pixelAt(picture(), x, y).colour() == rgb(255, 0, 0);
    }
    return found;
  }
};

TEST_F(DocumentText, FloatsIsMovedChangedByARightClickAndLandsAsOneState) {
  addText("Hm");
  ASSERT_TRUE(canvas().PasteOnText() && canvas().RegionSoft() && changed());
  EXPECT_EQ(main.tools.tool, 14);
  EXPECT_EQ(states(), 1u);
  drag({10, 20}, {50, 45});
  const Rect moved = box();
  EXPECT_EQ((Point{moved.left, moved.top}), (Point{40, 25}));
  const int small = redPixels();
  EXPECT_GT(small, 100);
  EXPECT_EQ(rightClick({60, 40}, "Hm Hm"), "Hm");
  EXPECT_EQ((Point{box().left, box().top}), (Point{40, 25}));
  EXPECT_GT(redPixels(), small * 3 / 2);
  EXPECT_EQ(rightClick({60, 40}, "lost", nullptr), "Hm Hm");
  const int large = redPixels();
  EXPECT_EQ(states(), 1u);
  document->Do_imgToolsClick(0);
  EXPECT_FALSE(canvas().PasteOnText());
  EXPECT_EQ(redPixels(), large);
  EXPECT_EQ(states(), 2u);
  document->mnuEditUndo_Click();
  EXPECT_EQ(redPixels(), 0);
}

TEST_F(DocumentText, EscapeAndAnEmptyTextLeaveThePictureBitForBit) {
  const auto bits = [this] {
    return QByteArray(reinterpret_cast<const char*>(picture().DIBBitsPtr()), static_cast<int>(picture().DIBSize()));
  };
  replaceWith(QColor(250, 240, 10));
  main.tools.firstColor = kBlack;
  const QByteArray before = bits();
  const std::size_t statesBefore = states();
  addText("Some", nullptr);
  addText(" \n ");
  EXPECT_FALSE(canvas().HasRegion());
  addText("Some");
  EXPECT_NE(bits(), before);
  QTest::keyClick(canvas().findChild<QWidget*>("picDisp"), Qt::Key_Escape);
  EXPECT_TRUE(!canvas().HasRegion() && bits() == before);
  // Proceed with no text left takes the floating one away.
  addText("Some");
  rightClick({10, 20}, "");
  EXPECT_TRUE(!canvas().HasRegion() && bits() == before && states() == statesBefore);
  main.tools.viewMode = true;
  document->Do_UpdateModeChange();
  document->updateEditButtons();
  EXPECT_FALSE(document->triggerMenu("mnuTextSub", 0));
}

TEST_F(DocumentText, TheNextTextBeginsWithTheLastChoicesInTheToolboxColours) {
  addText("First");
  EXPECT_EQ(addText("Second"), "First") << "and the first one has landed";
  EXPECT_EQ(states(), 2u);
  EXPECT_EQ(main.state.text.text, "Second");
  main.tools.firstColor = rgb(0, 0, 255);
  document->Do_imgToolsClick(0);
  const int reds = redPixels();
  addText("Third");
  EXPECT_LE(redPixels(), reds);
  EXPECT_EQ(main.state.text.colour, rgb(0, 0, 255));
  addText("Kept");
  EXPECT_TRUE(document->triggerMenu("mnuEditCleansePaintSub", 1));
  EXPECT_FALSE(picture().DIBhasAlpha());
  EXPECT_TRUE(desktop.clipboard.hasAlphaChannel()) << "other programs get the soft letters";
}

TEST_F(DocumentText, AsAStampItCoversOrDoesNot) {
  inWindow([this] { document->Do_cmdStampLoadClick(1); }, "lost", nullptr);
  EXPECT_FALSE(canvas().StampPresent());
  desktop.expect("Non-transparent area smaller than the minimum size\nof 2 x 2 pixels");
  main.state.text.size = 4;
  inWindow([this] { document->Do_cmdStampLoadClick(1); }, ".");
  EXPECT_FALSE(canvas().StampPresent());
  main.state.text.size = 36;
  inWindow([this] { document->Do_cmdStampLoadClick(1); }, "S");
  ASSERT_TRUE(canvas().StampPresent() && main.calls.contains("showCustomPictures"));
  EXPECT_TRUE(main.state.text.antialias) << "texts on pictures stay soft";
  const auto& stamp = canvas().DIBStamp();
  const auto& mask = canvas().DIBStampMask();
  ASSERT_EQ(stamp.size(), mask.size());
  for (int y = 0; y < stamp.DIBHeight(); ++y) {
    for (int x = 0; x < stamp.DIBWidth(); ++x) {
      const Colour cut = test::pixelAt(mask, x, y).colour();
      ASSERT_TRUE(cut == kBlack || cut == kWhite);
      ASSERT_EQ(test::pixelAt(stamp, x, y).colour(), cut == kWhite ? kBlack : rgb(255, 0, 0));
    }
  }
  document->Do_imgToolsClick(12);
  drag({100, 60}, {100, 60});
  EXPECT_GT(redPixels(), 50);
  EXPECT_EQ(states(), 2u);
}

}  // namespace
}  // namespace ruvo
