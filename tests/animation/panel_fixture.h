// A panel over a real session, and a window that only records what the panel asks of it.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QTest>
#include <algorithm>

#include "animation/session_panel.h"
#include "base/file_io.h"
#include "formats/gif_bytes.h"
#include "support/temp_folder.h"
#include "support_ui/fake_main_window.h"
#include "support_ui/scripted_desktop.h"

namespace ruvo::test {

class RecordingHost : public SessionHost {
 public:
  explicit RecordingHost(const std::filesystem::path& temp) : session_(temp) {}

  int frame = 1;
  bool running = false;
  int pattern = 0;
  int refreshes = 0;
  int sizesShown = 0;
  int locks = 0;  // now
  int worksDone = 0;

  GifSession& session() override { return session_; }
  MainWindowLink& link() override { return link_; }
  QWidget* window() override { return nullptr; }
  int selectedFrame() const override { return frame; }
  void selectFrame(int wanted) override { frame = wanted; }
  bool animating() const override { return running; }
  void startAnimation() override { running = session_.gif().FramesCount() > 1; }
  void stopAnimation() override { running = false; }
  void refreshAll(int wanted) override {
    ++refreshes;
    frame = std::clamp(wanted, 1, session_.gif().FramesCount());
  }
  void refreshFrame() override { ++refreshes; }
  void showFileSize() override { ++sizesShown; }
  void setPattern(int item) override { pattern = item; }
  Progress beginWork() override {
    ++locks;
    return {};
  }
  void endWork() override {
    --locks;
    ++worksDone;
  }

 private:
  FakeMainWindow link_;
  GifSession session_;
};

class PanelTest : public testing::Test {
 protected:
  TempFolder temp_;
  ScriptedDesktop desktop_;
  RecordingHost host_{temp_.path()};

  clsGIF& gif() { return host_.session().gif(); }
  // Three frames of 20 x 16 with the global table: the second with a table of its own (the same colours) and a delay of
  // 300, the third see-through at index 3 but for its middle.
  static GifBytes threeFrames() {
    const Rows whole(16, std::string(20, '1'));
    Rows middle(16, std::string(20, '3'));
    for (int y = 4; y < 8; ++y) middle[static_cast<std::size_t>(y)].replace(5, 6, "222222");
    return GifBytes(20, 16)
        .control(0, 10)
        .image(whole)
        .control(5 << 2, 300)
        .image(whole, 0, 0, 0x81 | 64, kFourColours)
        .control(1, 20, 3)
        .image(middle)
        .extension(0xFE, {"A remark"});
  }
  std::filesystem::path written(const std::string& name, const GifBytes& bytes) {
    const std::filesystem::path file = temp_ / name;
    EXPECT_TRUE(replaceFile(file, bytes.bytes()));
    return file;
  }
  void SetUp() override { ASSERT_EQ(host_.session().open(written("a.gif", threeFrames())), ""); }

  template <typename T>
  static T* control(QWidget& window, const QString& name) {
    auto* found = window.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
  }
  static bool offered(QWidget& window, const QString& name) { return control<QWidget>(window, name)->isEnabled(); }
  // Where a check box has its box too.
  static void press(QWidget& window, const QString& name) {
    auto* button = control<QAbstractButton>(window, name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
  }
  static void choose(QWidget& window, const QString& box, int item) {
    control<QComboBox>(window, box)->setCurrentIndex(item);
  }
  void agree(const QString& question) { desktop_.expect(question).answer(desktop::Answer::Yes); }
  void disagree(const QString& question) { desktop_.expect(question).answer(desktop::Answer::No); }
};

// With the panel open.
template <typename Panel>
class OpenPanelTest : public PanelTest {
 protected:
  void SetUp() override {
    PanelTest::SetUp();
    ASSERT_TRUE(panel_.openPanel());
  }
  Panel panel_{host_, nullptr};
};

}  // namespace ruvo::test
