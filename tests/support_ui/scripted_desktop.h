// A desktop that answers from a script. A question that was not expected fails the test, and so does one that was
// expected and never asked.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <deque>

#include "platform/desktop/desktop.h"

namespace ruvo::test {

class ScriptedDesktop : public desktop::Desktop {
 public:
  ScriptedDesktop() : previous_(desktop::setDesktop(this)) {}
  ~ScriptedDesktop() override {
    desktop::setDesktop(previous_);
    for (const auto& step : script_) ADD_FAILURE() << "never asked: " << step.kind << " \"" << step.text.toStdString() << '"';
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
  void expectSave(const QString& path, const QString& proposed = "") { script_[add("save", proposed).index].path = path; }
  void expectFolder(const QString& path) { script_[add("folder", "").index].path = path; }
  void expectColor(std::optional<QColor> colour) { script_[add("colour", "").index].colour = colour; }

  void expectPrint(desktop::PrintAnswer answer) { script_[add("print", "").index].printAnswer = answer; }

  // The whole text of each message shown, in order.
  QStringList messages;
  bool clipboardPicture = false;
  QImage clipboard;  // what was put there
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
  void putOnClipboard(const QImage& picture) override { clipboard = picture; }
  bool clipboardHasPicture() override { return clipboardPicture; }
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
  std::deque<Step> script_;
};

}  // namespace ruvo::test
