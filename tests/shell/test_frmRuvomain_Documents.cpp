// What the main window does with documents: routing, modes, options, histories, closing.
#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>

#include "canvas/ucCanvas.h"
#include "document/menu_table.h"
#include "shell/main_window_fixture.h"

namespace ruvo::test {
namespace {

using Documents = MainWindowTest;

QStringList barOf(QMenuBar& bar) {
  QStringList names;
  for (QAction* action : bar.actions())
    if (action->isVisible()) names << action->text();
  return names;
}

QAction* actionOf(QMenuBar& bar, const QString& name) {
  return bar.parentWidget()->findChild<QAction*>(name);
}

TEST_F(Documents, EachTakesTheToolsAndEveryChangeOfThem) {
  click("imgTools(13)");
  control<QComboBox>("cboSprayDensity").setCurrentIndex(2);
  frmRuvoPaint& document = openNew();
  const CanvasSettings& drawn = document.canvas()->settings();
  EXPECT_EQ(document.canvas()->CanvasOp(), 14);
  EXPECT_EQ(drawn.SprayDensity, 2);
  control<QComboBox>("cboPaintBrushTranslucencyPercent").setCurrentIndex(4);
  EXPECT_EQ(drawn.PaintBrushTranslucencyPercent, 80);
  click("optFillPattern(7)");
  EXPECT_EQ(drawn.FillPattern, 7);
  control<QComboBox>("cboMagnify").setCurrentIndex(2);
  EXPECT_EQ(drawn.Magnify, 3);
  // A value that is only shown is not told.
  window->setMagnify(5);
  EXPECT_EQ(drawn.Magnify, 3);
  click("imgTools(18)");
  EXPECT_EQ(document.canvas()->CanvasOp(), 18);
}

TEST_F(Documents, ModesShowTheirFrameAndBringMagnificationOne) {
  QWidget& paint = control<QWidget>("fraPaintMagnify");
  QWidget& view = control<QWidget>("fraViewMagnify");
  EXPECT_TRUE(paint.isVisible());
  EXPECT_FALSE(view.isVisible());
  EXPECT_FALSE(control("cmdMode(1)").isVisible());
  control<QCheckBox>("ckbFitIn").setChecked(true);
  click("imgTools(0)");
  frmRuvoPaint& document = openNew();
  control<QComboBox>("cboMagnify").setCurrentIndex(3);

  click("cmdMode(0)");
  EXPECT_TRUE(view.isVisible());
  EXPECT_TRUE(window->toolbox().viewMode);
  EXPECT_EQ(window->toolbox().magnify, 1);
  EXPECT_TRUE(document.canvas()->settings().FitInView);
  EXPECT_EQ(document.canvas()->CanvasOp(), 18);
  EXPECT_FALSE(control("imgTools(0)").isEnabled());

  click("cmdMode(1)");
  EXPECT_FALSE(document.canvas()->settings().FitInView);
  EXPECT_EQ(document.canvas()->settings().Magnify, 1);
  EXPECT_EQ(document.canvas()->CanvasOp(), 0);
  EXPECT_TRUE(control("imgTools(0)").isEnabled());
}

TEST_F(Documents, ButtonsNeedADocument) {
  for (int i = 0; i < 6; ++i) EXPECT_FALSE(control(QString("cmdZoom(%1)").arg(i)).isEnabled());
  window->setEditButtons({true, true, true, true, true});
  for (int i = 0; i < 13; ++i) EXPECT_TRUE(control(QString("cmdEditTB(%1)").arg(i)).isEnabled()) << i;
  window->MDI_disableAllButtonsOnToolBar();
  for (int i = 0; i < 13; ++i) EXPECT_FALSE(control(QString("cmdEditTB(%1)").arg(i)).isEnabled()) << i;
  openNew();
  EXPECT_TRUE(control("cmdZoom(0)").isEnabled());
  EXPECT_TRUE(control("cmdEditTB(7)").isEnabled());
  EXPECT_FALSE(control("cmdEditTB(1)").isEnabled());  // nothing to undo yet
}

TEST_F(Documents, PastingFollowsWhatOtherProgramsCopy) {
  const auto enabled = [&](const char* name) { return window->findChild<QAction*>(name)->isEnabled(); };
  EXPECT_FALSE(enabled("mnuEditPaste"));
  desktop.copyElsewhere([](QMimeData& data) { data.setImageData(QImage(30, 20, QImage::Format_RGB32)); });
  EXPECT_FALSE(enabled("mnuEditPasteTransparent") || enabled("mnuEditCopy")) << "they need a document";
  window->findChild<QAction*>("mnuEditPaste")->trigger();
  EXPECT_EQ(panel(kPanelNetSize), "30 x 20");
  click("cmdEditTB(6)");
  EXPECT_TRUE(window->activeDocument()->canvas()->PasteOn() && control("imgTools(14)").isChecked());
  desktop.copyElsewhere([](QMimeData& data) { data.setText("words"); });
  EXPECT_FALSE(control("cmdEditTB(5)").isEnabled());
}

TEST_F(Documents, MenusAreTheActiveDocumentsOwn) {
  const QStringList own = barOf(*window->menuBar());
  EXPECT_FALSE(own.contains("&Inquiry"));
  frmRuvoPaint& document = openNew();
  EXPECT_TRUE(barOf(*window->menuBar()).contains("&Inquiry"));
  EXPECT_EQ(window->menuBar()->actions().first()->menu(), document.menus().first());
  frameOf(document).close();
  EXPECT_EQ(barOf(*window->menuBar()), own);
  EXPECT_EQ(window->activeDocument(), nullptr);
  EXPECT_EQ(window->documentCount(), 0);
  EXPECT_EQ(panel(kPanelNetSize), "");
}

TEST_F(Documents, SlotsOfClosedWindowsAreUsedAgain) {
  frmRuvoPaint& first = openNew();
  frmRuvoPaint& second = openNew();
  EXPECT_EQ(second.slot(), 1);
  frameOf(first).close();
  EXPECT_EQ(window->activeDocument(), &second);
  EXPECT_EQ(openNew().slot(), 0);
  // The one used before comes forward when the active one goes.
  frameOf(*window->activeDocument()).close();
  EXPECT_EQ(window->activeDocument(), &second);
}

TEST_F(Documents, FileThatCanNotBeOpenedLeavesNoWindow) {
  frmRuvoPaint& before = openNew();
  desktop.expect("File not found");
  window->openDocument(PendingOpen::FileOpen, "/nowhere/missing.png");
  EXPECT_EQ(window->documentCount(), 1);
  EXPECT_EQ(window->activeDocument(), &before);
}

TEST_F(Documents, TitleShowsTheShortenedPathAsItIs) {
  frmRuvoPaint& document = openNew();
  window->setDocumentCaption(&document, "/a/...../x[*].png", "/a/b/c/d/x[*].png");
  EXPECT_EQ(frameOf(document).windowTitle(), "/a/...../x[*][*].png");  // doubled: Qt shows one
}

TEST_F(Documents, SettingsComeBackAtTheNextStart) {
  control<QComboBox>("cboBrushSize").setCurrentIndex(7);
  for (int level = 0; level <= 4; ++level)
    EXPECT_FALSE(actionOf(*window->menuBar(), QString("mnuSubMonitorRAM(%1)").arg(level))->isChecked()) << level;
  std::filesystem::create_directory(folder / "palettes");
  const QString palettes = QString::fromStdString((folder / "palettes").string());
  window->setLastFolder("PAL", palettes);
  window->mnuOptionsSub_Click(1);
  window->mnuOptionsSub_Click(4);
  window->mnuSubMonitorRAM_Click(3);
  window->mnuOptionsSessionOnlySub_Click(0);
  EXPECT_EQ(panel(kPanelMode), "SDI");
  EXPECT_TRUE(actionOf(*window->menuBar(), "mnuSubMonitorRAM(3)")->isChecked());
  EXPECT_FALSE(actionOf(*window->menuBar(), "mnuSubMonitorRAM(0)")->isChecked());
  ASSERT_TRUE(window->close());
  state.options = {};
  start();
  EXPECT_EQ(window->toolbox().brushSize, 8);
  EXPECT_TRUE(state.options.sdiOnly);
  EXPECT_FALSE(state.options.remindColorSetting);
  EXPECT_EQ(state.options.watchRam, 3);
  EXPECT_FALSE(state.options.alternativeMarquee);
  EXPECT_EQ(panel(kPanelMode), "SDI");
  EXPECT_EQ(window->lastFolder("PAL"), palettes);
}

TEST_F(Documents, TheWindowsMenuListsThemAndBringsOneUp) {
  frmRuvoPaint& first = openNew();
  window->setDocumentCaption(&first, "/a/R & B.png", "/a/R & B.png");
  frameOf(first).showMinimized();
  frmRuvoPaint& second = openNew();
  QMenu* menu = nullptr;
  for (QMenu* candidate : second.menus())
    if (candidate->objectName() == "mnuWindows") menu = candidate;
  ASSERT_NE(menu, nullptr);
  const qsizetype commands = menu->actions().size();
  for (int opening = 0; opening < 2; ++opening) Q_EMIT menu->aboutToShow();
  const QList<QAction*> rows = menu->actions().mid(commands);
  ASSERT_EQ(rows.size(), 3);
  EXPECT_EQ(rows[1]->text(), "&1 /a/R && B.png");
  EXPECT_FALSE(rows[1]->isChecked());
  EXPECT_TRUE(rows[2]->isChecked());
  rows[1]->trigger();
  EXPECT_EQ(window->activeDocument(), &first);
  EXPECT_FALSE(frameOf(first).isMinimized());
  // In a cascade each keeps a size that shows its picture, and the one on top stays there.
  window->arrangeWindows(0);
  EXPECT_GT(first.canvas()->width(), 40);
  EXPECT_GT(second.canvas()->height(), 30);
  EXPECT_GT(frameOf(first).x(), frameOf(second).x());
}

TEST_F(Documents, HistoryOfTheMainMenuOpensOrTellsWhatIsMissing) {
  const QString file = pictureFile("one.bmp");
  window->addToFileHistory(file);
  window->addToFileHistory("/nowhere/two.bmp");
  QAction* first = actionOf(*window->menuBar(), "mnuFileHistory(1)");
  EXPECT_EQ(first->text(), "&1 /nowhere/two.bmp");
  desktop.expect("/nowhere/two.bmp\nFile not found.");
  first->trigger();
  EXPECT_EQ(window->documentCount(), 0);
  actionOf(*window->menuBar(), "mnuFileHistory(2)")->trigger();
  ASSERT_EQ(window->documentCount(), 1);
  EXPECT_EQ(window->activeDocument()->canvas()->DIB().DIBWidth(), 12);
  EXPECT_EQ(panel(kPanelNetSize), "12 x 9");
}

TEST_F(Documents, HistoryOfADocumentOpensAnotherWindowOrReusesTheOnlyOne) {
  window->addToFileHistory(pictureFile("one.bmp"));
  openNew();
  window->openFromHistory(0);
  EXPECT_EQ(window->documentCount(), 2);
  state.options.sdiOnly = true;
  state.documents[1].changed = true;
  desktop.expect("Current picture not saved yet.  Proceed still?").answer(desktop::Answer::No);
  window->openFromHistory(0);
  EXPECT_TRUE(state.documents[1].changed);
  desktop.expect("Proceed still?").answer(desktop::Answer::Yes);
  window->openFromHistory(0);
  EXPECT_EQ(window->documentCount(), 2);
  EXPECT_FALSE(state.documents[1].changed);
}

// Shortcuts of two actions in one window cancel each other out.
TEST_F(Documents, NoShortcutOfAWindowIsTakenTwice) {
  QWidget& frame = frameOf(openNew());
  QMap<QString, QString> owners;
  QList<QAction*> actions = frame.findChildren<QAction*>() + static_cast<QMdiSubWindow&>(frame).systemMenu()->actions();
  for (QAction* action : QSet<QAction*>(actions.begin(), actions.end())) {
    for (const QKeySequence& keys : action->shortcuts()) {
      EXPECT_FALSE(owners.contains(keys.toString())) << keys.toString().toStdString();
      owners[keys.toString()] = action->text();
    }
  }
  EXPECT_TRUE(owners.contains("Ctrl+W"));
}

TEST_F(Documents, CloseAllStopsAtTheFirstNo) {
  openNew();
  openNew();
  openNew();
  state.documents[1].changed = true;
  desktop.expect("Current picture not saved yet.").answer(desktop::Answer::No);
  window->closeAllDocuments();
  EXPECT_EQ(window->documentCount(), 2);
}

}  // namespace
}  // namespace ruvo::test
