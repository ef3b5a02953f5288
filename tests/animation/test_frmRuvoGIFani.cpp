#include "animation/frmRuvoGIFani.h"

#include <QCheckBox>
#include <QLabel>
#include <QMenuBar>
#include <QSignalSpy>
#include <QtTest>

#include "animation/film_strip.h"
#include "animation/gif_field.h"
#include "animation/panel_fixture.h"
#include "animation/session_menus.h"
#include "base/paths.h"

namespace ruvo {
namespace {

using namespace test;

constexpr const char* kUnsavedQuestion = "You have not saved changes yet.  Proceed still?";

class AnimationWindow : public PanelTest {
 protected:
  AnimationWindow() {
    link_.state.tempFolder = temp_ / "t";
    std::filesystem::create_directory(link_.state.tempFolder);
    start();
  }
  void start() {
    window_ = std::make_unique<frmRuvoGIFani>(link_);
    QObject::connect(window_.get(), &frmRuvoGIFani::sessionEnded, [this](const QString& file) { ended_ << file; });
  }
  void openThree() {
    ASSERT_TRUE(window_->openFile(pathText(written("three.gif", threeFrames())), true));
    window_->show();
  }
  static QString pathText(const std::filesystem::path& path) { return QString::fromStdString(utf8Of(path)); }

  GifSession& session() { return window_->session(); }
  void run(int command) { press(*window_, QString("cmdGIFaniMain(%1)").arg(command)); }
  bool enabled(int command) { return offered(*window_, QString("cmdGIFaniMain(%1)").arg(command)); }
  QString label(const QString& name) { return control<QLabel>(*window_, name)->text(); }
  template <typename T = QWidget>
  T& find(const QString& name) {
    return *control<T>(*window_, name);
  }
  bool panelOpen(int index) { return find(QString("fraOperation(%1)").arg(index)).isVisible(); }
  void menu(const QString& name) {
    auto* action = window_->menuBar()->findChild<QAction*>(name);
    if (!action) action = window_->findChild<QAction*>(name);
    ASSERT_NE(action, nullptr) << name.toStdString();
    action->trigger();
  }

  FakeMainWindow link_;
  std::unique_ptr<frmRuvoGIFani> window_;
  QStringList ended_;
};

TEST_F(AnimationWindow, AnOpenedFileFillsEveryListAndLabel) {
  openThree();
  EXPECT_EQ(find<QComboBox>("cboFrame").count(), 3);
  EXPECT_TRUE(find<QComboBox>("cboFrameData").itemText(1).contains("Delay: 300"));
  EXPECT_TRUE(label("lblInfoOrigFile").contains("3 frames   (Bgr size:  20 x 16    Global exists:  Y"));
  EXPECT_TRUE(label("lblCurrentFrameCount").contains("3"));
  EXPECT_TRUE(label("lblRunningTime").contains("3.30 s"));
  EXPECT_TRUE(label("lblFileSize").startsWith("File size:   "));
  EXPECT_EQ(link_.animationHistory.size(), 1);
  EXPECT_EQ(window_->selectedFrame(), 1);
  // What can not be opened leaves the session as it is.
  desktop_.expect("Not an animated GIF or failed to load this GIF");
  EXPECT_FALSE(window_->openFile(pathText(temp_ / "missing.gif")));
  EXPECT_EQ(session().gif().FramesCount(), 3);
  link_.state.fileHistoryGifAni[1] = temp_ / "gone.gif";
  desktop_.expect("gone.gif\nFile not found.");
  menu("mnuFileHistoryGIFani(2)");
  menu("mnuFileHistoryGIFani(1)");
  EXPECT_EQ(link_.animationHistory.size(), 2);
}

TEST_F(AnimationWindow, WithoutFramesOnlyExitActs) {
  window_->show();
  for (int command = 0; command < kSessionCommandCount; ++command)
    if (command != kExitSession) window_->cmdGIFaniMain_Click(command);
  EXPECT_TRUE(desktop_.messages.isEmpty());
  desktop_.expect("No frames yet.");
  press(*window_, "cmdListDataSummary");
  disagree("Exit the Animated GIF Main Screen?");
  run(kExitSession);
  EXPECT_TRUE(window_->isVisible());
  agree("Exit the Animated GIF Main Screen?");
  run(kExitSession);
  EXPECT_EQ(ended_, QStringList{""});
}

TEST_F(AnimationWindow, ListsButtonsFilmAndKeysSelectTheSameFrame) {
  openThree();
  QStringList seen;
  const std::function<void()> ways[] = {[&] { choose(*window_, "cboFrameData", 2); },
                                        [&] { choose(*window_, "cboFrame", 0); },
                                        [&] { press(*window_, "cmdNext"); },
                                        [&] { QTest::keyClick(window_.get(), Qt::Key_Right); },
                                        [&] { QTest::keyClick(window_.get(), Qt::Key_Right); },
                                        [&] { QTest::keyClick(&find("picFilm"), Qt::Key_Up); },
                                        [&] { QTest::keyClick(&find("picDisp"), Qt::Key_Home); }};
  for (const auto& way : ways) {
    way();
    seen << QString("%1%2%3%4")
                .arg(window_->selectedFrame())
                .arg(find<QComboBox>("cboFrameData").currentIndex() + 1)
                .arg(find<FilmStrip>("FilmStrip").selected())
                .arg(find<GifField>("picDisp").frame());
  }
  EXPECT_EQ(seen.join(' '), "3333 1111 2222 3333 3333 2222 1111");
  EXPECT_FALSE(find("cmdPrevious").isEnabled());
  EXPECT_TRUE(label("lblRunningTime").contains("Frame 1:"));
}

TEST_F(AnimationWindow, PlaysAndStops) {
  openThree();
  choose(*window_, "cboFrame", 1);
  run(kAnimate);
  EXPECT_TRUE(window_->animating());
  EXPECT_FALSE(enabled(kAnimate));
  EXPECT_TRUE(enabled(kStopAnimation));
  QSignalSpy ticked(&find<GifField>("picDisp"), &GifField::ticked);
  EXPECT_TRUE(ticked.wait());
  EXPECT_EQ(find<QComboBox>("cboFrame").currentIndex(), 1) << "lists stay while it runs";
  run(kStopAnimation);
  EXPECT_FALSE(window_->animating());
  QTest::keyClick(window_.get(), Qt::Key_Space);
  EXPECT_TRUE(window_->animating());
  choose(*window_, "cboFrame", 2);
  EXPECT_FALSE(window_->animating()) << "a selection stops it";
  window_->startAnimation();
  run(kEditSeries);
  EXPECT_FALSE(window_->animating());
  // One frame has nothing to play.
  ASSERT_TRUE(window_->openFile(pathText(
      written("one.gif", GifBytes(9, 9).image(Rows(9, "121212121")).extension(0xFE, {std::string(99, 'x')})))));
  EXPECT_FALSE(panelOpen(3));
  QTest::keyClick(window_.get(), Qt::Key_Space);
  EXPECT_FALSE(window_->animating());
  EXPECT_FALSE(enabled(kAnimate));
}

TEST_F(AnimationWindow, OnePanelIsOpenAtATimeAndADragInTheFilmUsesTheSeriesPanel) {
  openThree();
  run(kMinimise);
  EXPECT_TRUE(panelOpen(1));
  run(kChangeSettings);
  EXPECT_TRUE(!panelOpen(1) && panelOpen(2));
  const QString question = "Proceed to move current frame from position 3 to position 2?";
  disagree(question);
  Q_EMIT find<FilmStrip>("FilmStrip").moveAsked(3, 2);
  EXPECT_TRUE(!panelOpen(2) && panelOpen(3));
  EXPECT_FALSE(session().unsaved());
  agree(question);
  Q_EMIT find<FilmStrip>("FilmStrip").moveAsked(3, 2);
  EXPECT_EQ(session().gif().FrameDelay(2), 20);
  EXPECT_EQ(window_->selectedFrame(), 2);
  EXPECT_EQ(find<QComboBox>("cboBgdPattern").currentIndex(), 1);
  press(*window_, "cmdEditImageSeries(10)");
  EXPECT_EQ(session().gif().FrameDelay(2), 300);
  EXPECT_FALSE(session().unsaved());
  press(*window_, "cmdEditImageSeries(4)");
  EXPECT_TRUE(!panelOpen(3) && panelOpen(2)) << "Edit Setting";
  run(kResizeSeries);
  EXPECT_TRUE(!panelOpen(2) && panelOpen(4));
}

TEST_F(AnimationWindow, BrightensDarkensAndTakesItBack) {
  openThree();
  const Colour before = session().gif().GlobalPaletteColor(0);
  disagree("Current frame uses global palette.  Proceed to darken global palette?");
  press(*window_, "cmdPaletteBrightenDarken(1)");
  EXPECT_FALSE(find("cmdPaletteBrightenDarken(2)").isEnabled());
  agree("Proceed to darken global palette?");
  press(*window_, "cmdPaletteBrightenDarken(1)");
  EXPECT_EQ(session().gif().GlobalPaletteColor(1), rgb(229, 0, 0));
  choose(*window_, "cboFrame", 1);
  press(*window_, "cmdPaletteBrightenDarken(0)");
  EXPECT_EQ(session().gif().LocalPaletteColor(2, 0), rgb(1, 2, 3)) << "1.1, 2.2 and 3.3, truncated";
  EXPECT_TRUE(session().unsaved());
  press(*window_, "cmdPaletteBrightenDarken(2)");
  EXPECT_EQ(session().gif().GlobalPaletteColor(0), before);
  EXPECT_EQ(session().gif().GlobalPaletteColor(1), rgb(255, 0, 0));
  EXPECT_FALSE(session().unsaved() || find("cmdPaletteBrightenDarken(2)").isEnabled());
}

TEST_F(AnimationWindow, SavingProposesANameAndEndsTheUnsavedWork) {
  openThree();
  run(kEditSeries);
  press(*window_, "cmdEditImageSeries(3)");
  EXPECT_TRUE(label("lblCurrentFrameCount").endsWith("4"));
  EXPECT_TRUE(label("lblInfoOrigFile").contains(" 3 frames ")) << "as long as the file is what it was";
  desktop_.expectSave(pathText(temp_ / "no folder" / "x.gif"), "three_X.gif");
  desktop_.expect("Failed to save to ");
  run(kSaveFile);
  EXPECT_TRUE(session().unsaved());
  desktop_.expectSave(pathText(temp_ / "other.gif"), "three_X.gif");
  run(kSaveFile);
  EXPECT_FALSE(session().unsaved());
  EXPECT_TRUE(label("lblFile").endsWith("other.gif"));
  EXPECT_TRUE(label("lblInfoOrigFile").contains(" 4 frames "));
  EXPECT_TRUE(link_.animationHistory.last().endsWith("other.gif"));
  clsGIF saved;
  EXPECT_EQ(saved.LoadFromGIFFile(temp_ / "other.gif"), kGifOk);
  EXPECT_EQ(saved.FramesCount(), 4);
}

TEST_F(AnimationWindow, FramesGoToFilesAndToTheClipboard) {
  openThree();
  choose(*window_, "cboFrame", 2);
  desktop_.expectSave(pathText(temp_ / "frame.gif"), "three_3.gif");
  run(kExportFrame);
  clsGIF frame;
  ASSERT_EQ(frame.LoadFromGIFFile(temp_ / "frame.gif"), kGifOk);
  EXPECT_TRUE(frame.FrameUseTransparentColor(1));
  find<QCheckBox>("ckbSaveAsTransparent").setChecked(false);
  desktop_.expectSave(pathText(temp_ / "no folder" / "frame.gif"));
  desktop_.expect("Failed to select this frame.");
  run(kExportFrame);

  std::filesystem::create_directory(temp_ / "all");
  desktop_.expectFolder(pathText(temp_ / "all"));
  agree("Proceed to extract all frames?");
  desktop_.expect("Saved individual files in ");
  run(kExportAll);
  EXPECT_TRUE(fileExists(temp_ / "all" / "three_03.gif"));
  EXPECT_TRUE(link_.folders["GIFaniExtractFolder"].endsWith("all"));
  // A folder where a frame's file should be.
  std::filesystem::remove(temp_ / "all" / "three_02.gif");
  std::filesystem::create_directories(temp_ / "all" / "three_02.gif" / "x");
  desktop_.expectFolder(pathText(temp_ / "all"));
  agree("will be replaced");
  desktop_.expect("Failed to extract frame 2 to file.\nOperation aborted.");
  run(kExportAll);

  run(kCopyFrame);
  EXPECT_EQ(desktop_.clipboard.size(), QSize(20, 16));
  EXPECT_EQ(desktop_.clipboard.pixelColor(8, 5), Qt::green);
  EXPECT_EQ(desktop_.clipboard.pixelColor(0, 0), Qt::blue) << "its transparent color";
}

TEST_F(AnimationWindow, TheBrowserGetsAPageAndInquiriesAreAnswered) {
  openThree();
  run(kBrowserView);
  ASSERT_EQ(desktop_.opened.size(), 1);
  EXPECT_TRUE(desktop_.opened[0].startsWith("file:///"));
  desktop_.expect("Version:   89a");
  menu("mnuInquirySub(1)");
  desktop_.expect("Pixel Aspect Ratio: 0.5");
  menu("mnuInquirySub(2)");
}

TEST_F(AnimationWindow, NothingUnsavedIsLostWithoutAQuestion) {
  openThree();
  session().setUnsaved(SessionWork::Settings);
  disagree(kUnsavedQuestion);
  EXPECT_FALSE(window_->close());
  disagree(kUnsavedQuestion);
  EXPECT_FALSE(window_->openFile(pathText(temp_ / "three.gif")));
  disagree(kUnsavedQuestion);
  run(kSelectBack);
  EXPECT_TRUE(window_->isVisible() && ended_.isEmpty());
  // The system asks the program to end: nobody is asked.
  link_.state.closingConfirmed = true;
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(ended_.size(), 1);
  EXPECT_FALSE(fileExists(link_.state.tempFolder / "tmpRestore.tmp"));
}

TEST(SessionMenus, EveryRowHasAParentBeforeItAndEveryButtonKeysOfItsOwn) {
  QStringList names;
  for (const MenuRow& row : sessionMenuTable()) {
    EXPECT_TRUE(!*row.parent || names.contains(row.parent)) << row.control;
    names << row.control;
  }
  QStringList keys;
  for (const SessionCommandRow& row : sessionCommands()) {
    if (!*row.shortcut) continue;
    EXPECT_FALSE(QKeySequence(row.shortcut).toString().isEmpty()) << row.shortcut;
    EXPECT_FALSE(keys.contains(row.shortcut)) << row.shortcut;
    keys << row.shortcut;
  }
}

}  // namespace
}  // namespace ruvo
