#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include "document/frmRuvoResize.h"
#include "document_fixture.h"
#include "formats/ico_bytes.h"
#include "support_ui/control.h"

namespace ruvo {
namespace {

using test::control;
using test::DocumentTest;

class DocumentResize : public DocumentTest {
 protected:
  // Picks a row of the Resize menu and does this in the window that it opens.
  void resize(int index, const std::function<void(QWidget&)>& act) {
    QTimer::singleShot(0, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
      dialog->close();
    });
    EXPECT_TRUE(document->triggerMenu("mnuResizeSub", index));
  }
};

void type(QWidget& dialog, const char* name, const char* text) {
  auto* field = control<QLineEdit>(dialog, name);
  field->selectAll();
  QTest::keyClicks(field, text);
}
QString newSize(QWidget& dialog) {
  return control<QLabel>(dialog, "lblNewSize")->text();
}

TEST(FrmRuvoResize, WhatIsSetLastCountsAndFieldsKeepTheShape) {
  frmRuvoResize dialog({640, 480}, true);
  EXPECT_TRUE(control<QRadioButton>(dialog, "optMethod(1)")->isChecked());
  EXPECT_EQ(dialog.findChild<QLabel*>("lblNoGDIPlus"), nullptr);
  EXPECT_EQ(frmRuvoResize({4, 3}, false).findChild<QLabel*>("lblNoGDIPlus")->text(), kNoImagingNote);
  type(dialog, "txbHeight", "2x4.0-");
  EXPECT_EQ(newSize(dialog), "New size:  320 x 240");
  control<QCheckBox>(dialog, "ckbAutoAspectRatio")->click();
  type(dialog, "txbWidth", "100");
  EXPECT_EQ(newSize(dialog), "New size:  100 x 240");
  control<QCheckBox>(dialog, "ckbAutoAspectRatio")->click();
  EXPECT_EQ(newSize(dialog), "New size:  100 x 75");
  auto* area = control<QComboBox>(dialog, "cboPercent(0)");
  area->setCurrentIndex(area->findText("400 %"));
  EXPECT_TRUE(control<QRadioButton>(dialog, "optMethod(0)")->isChecked());
  EXPECT_EQ(newSize(dialog), "New size:  1280 x 960");
  control<QRadioButton>(dialog, "optMethod(2)")->click();
  EXPECT_EQ(newSize(dialog), "New size:  640 x 480");
}

TEST_F(DocumentResize, ABadSizeIsRefusedInWordsAndTheWindowStays) {
  openPlain();
  resize(0, [&](QWidget& dialog) {
    control<QCheckBox>(dialog, "ckbAutoAspectRatio")->click();
    for (const auto& [width, words] : {std::pair{"32761", "The width or height will exceed the maxiuum allowed"},
                                       {"0", "Width or height below the minimum set (1 pixels)"}}) {
      type(dialog, "txbWidth", width);
      desktop.expect(words);
      control(dialog, "cmdProceed")->click();
      EXPECT_TRUE(dialog.isVisible());
    }
    // Back at the size that it has, which is no change.
    type(dialog, "txbWidth", "4");
    control(dialog, "cmdProceed")->click();
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_TRUE(main.state.dialogCancelled);
  EXPECT_FALSE(changed());
  EXPECT_EQ(undoFiles().size(), 1u);
}

TEST_F(DocumentResize, EachModeIsOneStateAndCanBeUndone) {
  ASSERT_TRUE(open(write("many.png", colourful())));
  const auto before = test::rowsOf(picture());
  constexpr Size kWanted[] = {{60, 45}, {60, 45}, {40, 30}, {40, 30}, {60, 45}, {60, 45}};
  for (int mode = 0; mode < 6; ++mode) {
    main.panels[kPanelPixel] = "something";
    resize(0, [&](QWidget& dialog) {
      control<QComboBox>(dialog, "cboResizeMode")->setCurrentIndex(mode);
      auto* sides = control<QComboBox>(dialog, "cboPercent(1)");
      sides->setCurrentIndex(sides->findText("150 %"));
      control(dialog, "cmdProceed")->click();
    });
    EXPECT_EQ(picture().size(), kWanted[mode]) << mode;
    EXPECT_EQ(undoFiles().size(), 2u);
    EXPECT_TRUE(changed());
    EXPECT_EQ(main.panels[kPanelPixel], "");
    document->mnuEditUndo_Click();
    EXPECT_EQ(test::rowsOf(picture()), before);
    document->LoadOpenFile(path("many.png"), 3, false);
  }
}

TEST_F(DocumentResize, AdjustEdgeShowsTheSizeAndMovesTheEdges) {
  openPlain();
  resize(2, [&](QWidget& dialog) {
    control<QSpinBox>(dialog, "txbLeft")->setValue(-4);
    EXPECT_EQ(newSize(dialog), "New size:  0 x 3");
    desktop.expect("Width or height below the minimum set (1 pixels)");
    control(dialog, "cmdProceed")->click();
    EXPECT_TRUE(dialog.isVisible());
    control<QSpinBox>(dialog, "txbLeft")->setValue(-2);
    control<QSpinBox>(dialog, "txbBottom")->setValue(2);
    control(dialog, "cmdProceed")->click();
  });
  EXPECT_EQ(picture().size(), (Size{2, 5}));
  EXPECT_EQ(colourAt(1, 2), "#ff0000");
  EXPECT_EQ(colourAt(1, 3), "#ffffff");
  EXPECT_EQ(undoFiles().size(), 2u);
}

// What is see-through is white at first; in red it shows whether a reduction spares it.
TEST_F(DocumentResize, AnIconsMaskGoesWithAChangeOfSize) {
  test::IcoData image{4, 3, 24};
  image.rest.assign(4 * 3 * 3, 100);
  for (int row = 0; row < 3; ++row) image.rest.insert(image.rest.end(), {0xC0, 0, 0, 0});
  const auto bytes = test::icoFile({{4, 3, image.bytes()}});
  ASSERT_TRUE(open(writeBytes("masked.ico", QByteArray(reinterpret_cast<const char*>(bytes.data()), bytes.size()))));
  replaceWith(Qt::red);
  proceed("mnuColorReductionBWSub", 0);
  EXPECT_EQ(colourAt(0, 0) + colourAt(1, 2), "#ff0000#ff0000");
  EXPECT_EQ(colourAt(3, 0), "#ffffff");
  resize(2, [&](QWidget& dialog) {
    control<QSpinBox>(dialog, "txbLeft")->setValue(1);
    control<QSpinBox>(dialog, "txbRight")->setValue(-1);
    control(dialog, "cmdProceed")->click();
  });
  EXPECT_EQ(colourAt(0, 0) + colourAt(1, 0), "#ffffff#ff0000");
  proceed("mnuColorReductionBWSub", 0);
  EXPECT_NE(colourAt(1, 0), "#ff0000");
}

}  // namespace
}  // namespace ruvo
