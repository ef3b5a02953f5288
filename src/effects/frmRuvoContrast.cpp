#include "effects/frmRuvoContrast.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "effects/number_combo.h"
#include "effects/optional_colour.h"
#include "effects/sample_panel.h"

namespace ruvo {
namespace {

constexpr NumberCombo::Range kPercent = {-100, 100};
constexpr NumberCombo::Range kGamma = {0.1, 10, 2};
constexpr NumberCombo::Range kTimes = {1, kMostTimes};
constexpr NumberCombo::Range kWeight = {0, 20, 2};
constexpr NumberCombo::Range kFade = {0, 100};

// Columns of the grid; the first indents what belongs to a process.
enum Column { kIndent, kLabel, kField, kUnit, kBeside, kColumns };
constexpr int kIndentWidth = 22;

}  // namespace

frmRuvoContrast::frmRuvoContrast(const EffectSubject& subject, QWidget* parent)
    : StepWindow("frmRuvoContrast", tr("Contrast, Brightness, Sharpness"), subject, parent),
      optProcess_(new QButtonGroup(this)) {
  auto* grid = new QGridLayout;
  grid->setColumnMinimumWidth(kIndent, kIndentWidth);
  grid->setColumnStretch(kBeside, 1);
  addTones(*grid);
  addStepped(*grid);
  connect(optProcess_, &QButtonGroup::idClicked, this, [this](int id) { choose(static_cast<ContrastProcess>(id)); });

  exclude_ = new OptionalColour("ckbExcludeColor", "picExcludeColor", tr("E&xclude color"), kNoColour, kWhite, this);
  connect(exclude_, &OptionalColour::changed, this, [this] {
    model_.exclude(exclude_->value());
    choiceChanged();
  });
  connect(sample(), &SamplePanel::colourPicked, exclude_, &OptionalColour::take);
  cmdUndo_ = namedButton("cmdUndo", tr("&Undo Step"), this);
  connect(cmdUndo_, &QPushButton::clicked, this, [this] {
    model_.undo();
    showChoices();
    choiceChanged();
  });
  lblSteps_ = new QLabel(this);
  auto* undo = new QHBoxLayout;
  undo->addWidget(cmdUndo_);
  undo->addWidget(lblSteps_, 1);

  controls()->addLayout(grid);
  controls()->addWidget(exclude_);
  controls()->addLayout(undo);
  controls()->addStretch();
  showChoices();
}

void frmRuvoContrast::addTones(QGridLayout& grid) {
  using enum ContrastProcess;
  const std::vector<double> tens = evenNumbers(kPercent.low, kPercent.high, 10);
  addProcess(Contrast, tr("&Contrast and brightness"), grid);
  auto* contrast = addNumber(Contrast, &ContrastChoices::contrast,
                             new NumberCombo("cboContrast", tr("Contrast"), kPercent, tens, this));
  addRow(grid, tr("C&ontrast:"), contrast, tr("%"), contrast->makeSlider("hsrContrast", this));
  auto* brightness = addNumber(Contrast, &ContrastChoices::brightness,
                               new NumberCombo("cboBrightness", tr("Brightness"), kPercent, tens, this));
  addRow(grid, tr("&Brightness:"), brightness, tr("%"), brightness->makeSlider("hsrBrightness", this));

  addProcess(Gamma, tr("&Gamma correction"), grid);
  const std::vector<double> usual = {0.3, 0.5, 0.6, 0.7, 0.8, 0.9, 1, 1.1, 1.2, 1.4, 1.6, 1.8, 2, 2.2, 2.5, 3};
  auto* gamma =
      addNumber(Gamma, &ContrastChoices::gamma, new NumberCombo("cboGamma", tr("Gamma"), kGamma, usual, this));
  addRow(grid, tr("G&amma:"), gamma, {}, nullptr);
}

void frmRuvoContrast::addStepped(QGridLayout& grid) {
  using enum ContrastProcess;
  const std::vector<double> few = evenNumbers(1, 10, 1);
  addProcess(Soften, tr("&Soften"), grid);
  auto* soften =
      addNumber(Soften, &ContrastChoices::soften, new NumberCombo("cboSoften", tr("Soften"), kTimes, few, this));
  addRow(grid, tr("Sof&ten:"), soften, tr("times"), applyButton("cmdAdjSoften", Soften));

  addProcess(Sharpen, tr("S&harpen"), grid);
  auto* weight = addNumber(
      Sharpen, &ContrastChoices::sharpenWeight,
      new NumberCombo("cboSharpenWeight", tr("Weight"), kWeight, {0, 0.25, 0.5, 0.75, 1, 1.5, 2, 3, 4, 5}, this));
  addRow(grid, tr("&Weight:"), weight, {}, nullptr);
  auto* sharpen =
      addNumber(Sharpen, &ContrastChoices::sharpen, new NumberCombo("cboSharpen", tr("Sharpen"), kTimes, few, this));
  addRow(grid, tr("Sha&rpen:"), sharpen, tr("times"), applyButton("cmdAdjSharpen", Sharpen));

  addProcess(Fade, tr("Fa&de to white"), grid);
  auto* fade = addNumber(Fade, &ContrastChoices::fade,
                         new NumberCombo("cboFade", tr("Fade"), kFade, evenNumbers(5, 100, 5), this));
  addRow(grid, tr("Fad&e:"), fade, tr("%"), applyButton("cmdAdjFade", Fade));
}

void frmRuvoContrast::addProcess(ContrastProcess process, const QString& text, QGridLayout& grid) {
  const int index = static_cast<int>(process);
  auto* option = new QRadioButton(text, this);
  option->setObjectName(controlName("optProcess", index));
  optProcess_->addButton(option, index);
  grid.addWidget(option, grid.rowCount(), kIndent, 1, kColumns);
}

NumberCombo* frmRuvoContrast::addNumber(ContrastProcess process, double ContrastChoices::*member, NumberCombo* number) {
  number->setValue(model_.choices().*member);
  numbers_.push_back({process, member, number});
  connect(number, &NumberCombo::valueChanged, this, [this, process, member](double value) {
    ContrastChoices now = model_.choices();
    now.process = process;
    now.*member = value;
    model_.choose(now);
    showChoices();
    choiceChanged();
  });
  return number;
}

void frmRuvoContrast::addRow(QGridLayout& grid, const QString& text, NumberCombo* number, const QString& unit,
                             QWidget* beside) {
  const int row = grid.rowCount();
  auto* label = new QLabel(text, this);
  label->setBuddy(number);
  grid.addWidget(label, row, kLabel);
  grid.addWidget(number, row, kField);
  if (!unit.isEmpty()) grid.addWidget(new QLabel(unit, this), row, kUnit);
  if (beside) grid.addWidget(beside, row, kBeside);
}

QPushButton* frmRuvoContrast::applyButton(const char* name, ContrastProcess process) {
  auto* button = namedButton(name, tr("Apply Step"), this);
  button->setToolTip(tr("Keeps it; more can be applied on top"));
  connect(button, &QPushButton::clicked, this, [this, process] {
    model_.applyStep(process);
    showChoices();
    choiceChanged();
  });
  return button;
}

void frmRuvoContrast::choose(ContrastProcess process) {
  ContrastChoices now = model_.choices();
  now.process = process;
  model_.choose(now);
  showChoices();
  choiceChanged();
}

// A text that is no number stays to be refused.
void frmRuvoContrast::showChoices() {
  const ContrastChoices& choices = model_.choices();
  optProcess_->button(static_cast<int>(choices.process))->setChecked(true);
  for (const Bound& bound : numbers_) {
    const auto shown = bound.number->value();
    if (shown && *shown != choices.*bound.member) bound.number->setValue(choices.*bound.member);
  }
  cmdUndo_->setEnabled(model_.canUndo());
  lblSteps_->setText(tr("Steps applied:  %1").arg(model_.steps().taken()));
}

QString frmRuvoContrast::refusal() {
  std::vector<NumberCombo*> all;
  for (const Bound& bound : numbers_) all.push_back(bound.number);
  return refusalOf(all);
}

}  // namespace ruvo
