// Contrast, brightness, gamma, softening, sharpening and fading, in steps.
#pragma once

#include <functional>
#include <vector>

#include "effects/model/contrast_steps.h"
#include "effects/step_window.h"

class QButtonGroup;
class QGridLayout;
class QLabel;

namespace ruvo {

class NumberCombo;
class OptionalColour;

class frmRuvoContrast : public StepWindow {
  Q_OBJECT

 public:
  frmRuvoContrast(const EffectSubject& subject, QWidget* parent);

 protected:
  const EffectSteps& steps() const override { return model_.steps(); }
  QString refusal() override;

 private:
  void addProcess(ContrastProcess process, const QString& text, QGridLayout& grid);
  // A row with the process's number, bound to `member`.
  NumberCombo* addNumber(ContrastProcess process, double ContrastChoices::*member, NumberCombo* number);
  void addRow(QGridLayout& grid, const QString& text, NumberCombo* number, const QString& unit, QWidget* beside);
  void addTones(QGridLayout& grid);
  void addStepped(QGridLayout& grid);
  QPushButton* applyButton(const char* name, ContrastProcess process);
  void choose(ContrastProcess process);
  void showChoices();

  struct Bound {
    ContrastProcess process;
    double ContrastChoices::*member;
    NumberCombo* number;
  };
  ContrastSteps model_;
  std::vector<Bound> numbers_;
  QButtonGroup* optProcess_;
  OptionalColour* exclude_;
  QPushButton* cmdUndo_;
  QLabel* lblSteps_;
};

}  // namespace ruvo
