// The animation window as the main window owns it.
#include <QMenuBar>
#include <QSignalSpy>

#include "animation/frmRuvoGIFani.h"
#include "base/file_io.h"
#include "base/paths.h"
#include "canvas/ucCanvas.h"
#include "formats/gif_bytes.h"
#include "shell/main_window_fixture.h"

namespace ruvo {
namespace {

using namespace test;
using desktop::Answer;
using Paths = std::vector<std::filesystem::path>;

class MainWindowAnimation : public MainWindowTest {
 protected:
  QString gifFile(const QString& name) {
    const auto path = folder.path() / name.toStdString();
    EXPECT_TRUE(replaceFile(path, GifBytes(12, 9)
                                      .control(0, 10)
                                      .image(Rows(9, "121212121212"))
                                      .control(0, 20)
                                      .image(Rows(9, "212121212121"))
                                      .extension(0xFE, {std::string(60, 'x')})
                                      .bytes()));
    return QString::fromStdString(path.string());
  }
  frmRuvoGIFani* animation() { return static_cast<frmRuvoGIFani*>(window->animationWindow()); }
  void trigger(const QString& name) {
    for (QAction* action : window->findChildren<QAction*>(name))
      if (action->isEnabled() && action->isVisible()) return action->trigger();
    ADD_FAILURE() << "no command " << name.toStdString();
  }
};

TEST_F(MainWindowAnimation, ThereIsOneWindowAndEveryWayLeadsToIt) {
  desktop.expectOpen(gifFile("a.gif"));
  trigger("mnuAnimatedGIFNew(2)");
  frmRuvoGIFani* first = animation();
  ASSERT_NE(first, nullptr);
  EXPECT_TRUE(first->isVisible() && first->isWindow() && !first->isModal());
  desktop.expectOpen(gifFile("b.gif"));
  click("cmdGIFaniOpen");
  EXPECT_EQ(animation(), first);
  EXPECT_EQ(first->session().title(), "b");
  // A document's own menu, which lists the same history.
  frmRuvoPaint& document = openNew();
  ASSERT_TRUE(document.triggerMenu("mnuFileHistoryGIFani", 2));
  EXPECT_EQ(first->session().title(), "a");
  desktop.expectOpen("");
  ASSERT_TRUE(document.triggerMenu("mnuAnimatedGIFNew", 2));
  std::filesystem::remove(folder.path() / "b.gif");
  desktop.expect("b.gif\nFile not found.");
  ASSERT_TRUE(document.triggerMenu("mnuFileHistoryGIFani", 2));
  EXPECT_FALSE(document.triggerMenu("mnuAnimatedGIFNew", 0));
}

TEST_F(MainWindowAnimation, WhatIsNoAnimationOpensNoWindow) {
  desktop.expect("Not a valid animated GIF or failed to load.\n");
  window->openAnimation(pictureFile("picture.bmp"));
  EXPECT_EQ(animation(), nullptr);
  EXPECT_TRUE(historyGifAni.list().value_or(Paths()).empty());
}

TEST_F(MainWindowAnimation, TheMainWindowClosesOnlyWithIt) {
  window->openAnimation(gifFile("a.gif"));
  animation()->session().setUnsaved(SessionWork::Series);
  desktop.expect("You have not saved changes yet.  Proceed still?").answer(Answer::No);
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible() && animation()->isVisible());
  openNew();
  state.documents[0].changed = true;
  desktop.expect("Proceed to close all windows?").answer(Answer::No);
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(animation()->isVisible()) << "a document keeps the program open";
  desktop.expect("Proceed to close all windows?").answer(Answer::Yes);
  desktop.expect("You have not saved changes yet.  Proceed still?").answer(Answer::Yes);
  EXPECT_TRUE(window->close());
  EXPECT_EQ(animation(), nullptr);
}

TEST_F(MainWindowAnimation, TheSelectedFrameBecomesADocumentAndTheNextSessionStandsWhereThisOneStood) {
  window->openAnimation(gifFile("a.gif"));
  animation()->setGeometry(40, 30, 700, 500);
  const QSize size = animation()->size();
  desktop.expect("Load current frame to program main screen").answer(Answer::Yes);
  animation()->cmdGIFaniMain_Click(0);
  EXPECT_EQ(animation(), nullptr);
  ASSERT_NE(window->activeDocument(), nullptr);
  EXPECT_EQ(frameOf(*window->activeDocument()).windowTitle(), "Untitled_0_Frame");
  EXPECT_TRUE(history.list().value_or(Paths()).empty()) << "it is from no file of its own";
  EXPECT_FALSE(fileExists(folder.path() / "tmpSelFrame.gif"));
  EXPECT_EQ(settings.read("GIFani Screen Pos", "Width"), std::to_string(size.width() * 15));
  window->openAnimation(gifFile("a.gif"));
  EXPECT_EQ(animation()->size(), size);
}

TEST_F(MainWindowAnimation, InSdiModeTheSelectedFrameTakesTheDocumentsPlace) {
  state.options.sdiOnly = true;
  frmRuvoPaint& document = openNew();
  window->openAnimation(gifFile("a.gif"));
  desktop.expect("Load current frame to program main screen").answer(Answer::Yes);
  animation()->cmdGIFaniMain_Click(0);
  EXPECT_EQ(window->activeDocument(), &document);
  EXPECT_EQ(document.canvas()->DIB().DIBWidth(), 12);
  EXPECT_EQ(frameOf(document).windowTitle(), "Untitled_0_Frame");
}

}  // namespace
}  // namespace ruvo
