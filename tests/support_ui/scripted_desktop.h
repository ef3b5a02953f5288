// A desktop that answers from a script. A question that was not expected fails the test, and so does one that was
// expected and never asked.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QMimeData>
#include <QPointer>
#include <deque>

#include "platform/desktop/clipboard_picture.h"
#include "platform/desktop/desktop.h"

namespace ruvo::test {

class ScriptedDesktop : public desktop::Desktop {
 public:
  ScriptedDesktop() : previous_(desktop::setDesktop(this)) {}
  ~ScriptedDesktop() override {
    desktop::setDesktop(previous_);
    for (const auto& step : script_)
      ADD_FAILURE() << "never asked: " << step.kind << " \"" << step.text.toStdString() << '"';
  }

  // expect("Proceed still?").answer(desktop::Answer::Yes). A part of the message text is enough.
  struct Expectation {
    ScriptedDesktop& owner;
    std::size_t index;
    void answer(desktop::Answer answer) { owner.script_[index].answer = answer; }
  };
  Expectation expect(const QString& textPart) { return add("message", textPart); }
  void expectOpen(const QString& path) { script_[add("open", "").index].path = path; }
  // `proposed` is a part of the name that the program must propose.
  void expectSave(const QString& path, const QString& proposed = "") {
    script_[add("save", proposed).index].path = path;
  }
  void expectFolder(const QString& path) { script_[add("folder", "").index].path = path; }
  void expectColor(std::optional<QColor> colour) { script_[add("colour", "").index].colour = colour; }

  void expectPrint(desktop::PrintAnswer answer) { script_[add("print", "").index].printAnswer = answer; }

  // The whole text of each message shown, in order.
  QStringList messages;
  // What the clipboard offers; read as the real one is.
  std::unique_ptr<QMimeData> clipboardData = std::make_unique<QMimeData>();
  QImage clipboard;  // what the program put there last
  std::int64_t ramKb = 1 << 22;
  int bitsPerPixel = 32;
  QStringList opened;

  desktop::Answer message(QWidget*, const QString& text, desktop::Icon, desktop::Buttons buttons) override {
    messages << text;
    const Step step = take("message", text);
    return buttons == desktop::Buttons::Ok ? desktop::Answer::Ok : step.answer;
  }
  QString openFile(QWidget*, const QString& title, const QString&, const QString& filter) override {
    lastFilter = filter;
    return take("open", title).path;
  }
  QString saveFile(QWidget*, const QString&, const QString& proposed, const QString& filter, const QString&) override {
    lastFilter = filter;
    lastProposed = proposed;
    return take("save", proposed).path;
  }
  QString pickFolder(QWidget*, const QString& title, const QString&) override { return take("folder", title).path; }
  std::optional<QColor> pickColor(QWidget*, const QColor&) override { return take("colour", "").colour; }
  bool clipboardHasPicture() override { return desktop::holdsPicture(*clipboardData); }
  void putOnClipboard(const QImage& picture) override {
    clipboard = picture;
    copyElsewhere([&](QMimeData& data) { data.setImageData(picture); });
  }
  imaging::LoadResult clipboardPicture(std::int64_t maxPixels) override {
    return desktop::pictureOf(*clipboardData, maxPixels);
  }
  void clearClipboard() override {
    copyElsewhere([](QMimeData&) {});
  }
  void watchClipboard(QObject* watcher, std::function<void()> changed) override {
    watchers_.push_back({watcher, changed});
  }
  // As when another program copies: `fill` puts in what it offers.
  void copyElsewhere(const std::function<void(QMimeData&)>& fill) {
    clipboardData = std::make_unique<QMimeData>();
    fill(*clipboardData);
    for (const auto& [watcher, changed] : watchers_) {
      if (watcher) changed();
    }
  }
  std::int64_t freeRamKb() override { return ramKb; }
  int screenBitsPerPixel() override { return bitsPerPixel; }
  desktop::PrintAnswer print(QWidget*, const desktop::PrintedList& list) override {
    printed = list;
    return take("print", list.title).printAnswer;
  }
  bool open(const QString& fileOrAddress) override {
    opened << fileOrAddress;
    return true;
  }

  desktop::PrintedList printed;  // the last one
  QString lastFilter;
  QString lastProposed;

 private:
  struct Step {
    std::string kind;
    QString text;
    desktop::Answer answer = desktop::Answer::No;
    QString path;
    std::optional<QColor> colour;
    desktop::PrintAnswer printAnswer = desktop::PrintAnswer::Failed;
  };

  Expectation add(const char* kind, const QString& text) {
    script_.push_back({kind, text, desktop::Answer::No, {}, {}, {}});
    return {*this, script_.size() - 1};
  }
  Step take(const std::string& kind, const QString& text) {
    if (script_.empty() || script_.front().kind != kind || !text.contains(script_.front().text)) {
      ADD_FAILURE() << "not expected: " << kind << " \"" << text.toStdString() << '"';
      return {kind, text, desktop::Answer::No, {}, {}, {}};
    }
    Step step = script_.front();
    script_.pop_front();
    return step;
  }

  Desktop* previous_;
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> watchers_;
  std::deque<Step> script_;
};

}  // namespace ruvo::test
