#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QTableWidget>

#include "animation/frmRuvoGIFaniDataSummary.h"
#include "animation/frmRuvoGIFaniDiscrepReport.h"
#include "animation/palette_grid.h"
#include "animation/panel_fixture.h"

namespace ruvo::test {
namespace {

using ReportWindowTest = PanelTest;

TEST_F(ReportWindowTest, DiscrepanciesAreListed) {
  gif().setFrameLeft(3, 21);
  frmRuvoGIFaniDiscrepReport window(gif(), nullptr);
  window.show();
  EXPECT_EQ(window.windowTitle(), "Report on GIF data discrepancy");
  const auto* report = control<QPlainTextEdit>(window, "txbReport");
  EXPECT_TRUE(report->isReadOnly());
  EXPECT_TRUE(report->toPlainText().contains("Frame 3: Frame Left is coded greater than"));
  press(window, "cmdOK");
  EXPECT_EQ(window.result(), QDialog::Accepted);
}

TEST_F(ReportWindowTest, TheSummaryFollowsItsListAndButtons) {
  frmRuvoGIFaniDataSummary window(gif(), 2, nullptr);
  window.show();
  EXPECT_EQ(control<QLabel>(window, "lblBgd")->text(), "Bgd:  20 x 16");
  auto* list = control<QTableWidget>(window, "lisDataSummary");
  ASSERT_EQ(list->rowCount(), 3);
  EXPECT_EQ(list->currentRow(), 1);
  const auto remarks = [&] { return control<QLabel>(window, "lblRemarks")->text(); };
  EXPECT_EQ(remarks(), "20 x 16   [0, 0]\n(No transparent color)");
  press(window, "cmdUpDown(1)");
  EXPECT_EQ(list->currentRow(), 2);
  EXPECT_EQ(control<QComboBox>(window, "cboFrame")->currentText(), "3");
  EXPECT_EQ(remarks(), "20 x 16   [0, 0]\nTransp index 3   RGB(0, 0, 255)");
  EXPECT_FALSE(offered(window, "cmdUpDown(1)"));

  // Moving over the palette tells about a box and moves nothing.
  auto* grid = control<PaletteGrid>(window, "picPalette");
  const QRect place = grid->geometry();
  Q_EMIT grid->hovered(255);
  EXPECT_EQ(control<QLabel>(window, "lblPaletteEntry")->text(), "Index  255     (Outside applicable palette entries) ");
  window.layout()->activate();
  EXPECT_EQ(grid->geometry(), place);

  // A frame smaller than the background is shown by itself, or at its place.
  gif().setFrameLeft(2, 10);
  const auto shown = [&](QPoint offset) {
    auto* picture = control<QWidget>(window, "picDisp");
    return picture->grab().toImage().pixelColor(picture->rect().center() + offset);
  };
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1, 0)).center());
  EXPECT_EQ(control<QComboBox>(window, "cboFrame")->currentText(), "2");
  press(window, "optFrameDispSize(1)");
  EXPECT_EQ(shown({5, 0}), QColor(255, 0, 0));
  EXPECT_NE(shown({-5, 0}), QColor(255, 0, 0));
  press(window, "optFrameDispSize(0)");
  EXPECT_EQ(shown({-4, 0}), QColor(255, 0, 0));
}

TEST_F(ReportWindowTest, TheListIsPrinted) {
  frmRuvoGIFaniDataSummary window(gif(), 1, nullptr);
  window.show();
  desktop_.expectPrint(desktop::PrintAnswer::Printed);
  press(window, "cmdPrint");
  ASSERT_EQ(desktop_.printed.rows.size(), 3);
  EXPECT_TRUE(desktop_.printed.rows[2].contains("Transp: Y"));
}

}  // namespace
}  // namespace ruvo::test
