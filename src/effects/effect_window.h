// The frame of every effect window: a live sample beside the controls, Proceed, Cancel and a progress bar. Proceed works
// on a copy; Cancel stops it, and the picture is as before.
#pragma once

#include <QDialog>

#include "effects/effect_subject.h"

class QPushButton;
class QVBoxLayout;

namespace ruvo {

class SamplePanel;
class ucProgress;

class EffectWindow : public QDialog {
  Q_OBJECT

 public:
  // `name` is the window's own (objectName).
  EffectWindow(const QString& name, const QString& title, const EffectSubject& subject, QWidget* parent);

  // What Proceed has made; once the window was accepted.
  clsDIB takeResult() { return std::move(result_); }
  void accept() override;
  void reject() override;

 protected:
  // Changes a picture of 32 bits as chosen: the subject's copy, or a reduced sample of it with `scale` below 1. May give
  // it another size. False when it was stopped or there is no memory.
  virtual bool apply(clsDIB& picture, double scale, const Progress& progress) = 0;
  // Why the choices can not be taken; empty when they can.
  virtual QString refusal() { return {}; }
  // Asks what has to be asked before the run; false ends it, and the choices can be changed.
  virtual bool confirm() { return true; }
  // False leaves the picture as it is at Proceed, as Cancel does.
  virtual bool changesAnything() const { return true; }

  const EffectSubject& subject() const { return subject_; }
  // Where the window's own controls go, above the progress bar and the buttons.
  QVBoxLayout* controls() const { return controls_; }
  SamplePanel* sample() const { return sample_; }
  // The sample is made anew; windows call it once their controls stand, too.
  void choiceChanged();

  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void orderTabs();
  bool runOnCopy(clsDIB& work);
  void setRunning(bool running);

  EffectSubject subject_;
  clsDIB result_;
  QWidget* side_;
  QVBoxLayout* controls_;
  SamplePanel* sample_;
  ucProgress* progress_;
  QPushButton* cmdProceed_;
  bool tabsOrdered_ = false;
  bool running_ = false;
  bool stopped_ = false;
  bool closing_ = false;
};

}  // namespace ruvo
