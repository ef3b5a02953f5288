#include "effects/frmRuvoColorTheme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "dialogs/color_button.h"
#include "dialogs/named_controls.h"
#include "effects/number_combo.h"

namespace ruvo {

frmRuvoColorTheme::frmRuvoColorTheme(const EffectSubject& subject, QWidget* parent)
    : EffectWindow("frmRuvoColorTheme", tr("Color Theme"), subject, parent) {
  addWays();
  auto* form = new QFormLayout;
  hue_ = addNumber(*form, tr("&Hue (0 to 360)"),
                   new NumberCombo("cboHue", tr("Hue"), {0, kMostHue}, evenNumbers(0, kMostHue, 30), this),
                   &ColorTheme::hue);
  form->addRow(hue_->makeSlider("hsrHue", this));
  const std::vector<double> tenths = evenNumbers(0, kMostTheme, kMostTheme / 10);
  cboLumination_ = addNumber(*form, tr("&Lumination % of 240"),
                             new NumberCombo("cboLumination", tr("Lumination"), {0, kMostTheme}, tenths, this),
                             &ColorTheme::lumination);
  cboSaturation_ = addNumber(*form, tr("&Saturation % of 240"),
                             new NumberCombo("cboSaturation", tr("Saturation"), {0, kMostTheme}, tenths, this),
                             &ColorTheme::saturation);
  controls()->addLayout(form);
  addColour();
  auto* only = namedCheckBox("ckbColorizeNonGray", tr("Colorize &non-grayscaled parts"), this);
  connect(only, &QCheckBox::toggled, this, [this](bool on) {
    theme_.onlyNonGrey = on;
    choiceChanged();
  });
  controls()->addWidget(only);
  controls()->addStretch();
  for (NumberCombo* box : {cboLumination_, cboSaturation_}) box->offerNone(tr("as it is"), kThemeKeeps);
  showTheme();
}

NumberCombo* frmRuvoColorTheme::addNumber(QFormLayout& form, const QString& text, NumberCombo* number,
                                          double ColorTheme::*member) {
  form.addRow(text, number);
  connect(number, &NumberCombo::valueChanged, this, [this, member](double value) {
    theme_.*member = value;
    showTheme();
    choiceChanged();
  });
  return number;
}

void frmRuvoColorTheme::addWays() {
  cmdUseHLS_ = namedButton("cmdUseHLS", tr("&Use HLS"), this);
  cmdUseRGB_ = namedButton("cmdUseRGB", tr("Use R&GB"), this);
  cmdUseRGB_->setToolTip(tr("As an alternative, but less satisfatory"));
  auto* ways = new QButtonGroup(this);
  auto* row = new QHBoxLayout;
  for (QPushButton* way : {cmdUseHLS_, cmdUseRGB_}) {
    way->setCheckable(true);
    ways->addButton(way);
    row->addWidget(way);
  }
  row->addStretch();
  cmdUseHLS_->setChecked(true);
  connect(cmdUseRGB_, &QPushButton::toggled, this, [this](bool on) {
    theme_.byRGB = on;
    choiceChanged();
  });
  controls()->addLayout(row);
}

void frmRuvoColorTheme::addColour() {
  picColorTheme_ = new ColorButton("picColorTheme", kWhite, this);
  connect(picColorTheme_, &ColorButton::colourChosen, this, [this](Colour colour) {
    theme_ = withColour(theme_, colour);
    showTheme();
    choiceChanged();
  });
  lblRGB_ = namedLabel("lblRGB", {}, this);
  auto* row = new QHBoxLayout;
  row->addWidget(picColorTheme_);
  row->addWidget(new QLabel(tr("Equiv RGB value"), this));
  row->addWidget(lblRGB_);
  row->addStretch();
  controls()->addLayout(row);
}

// A text that is no number stays to be refused.
void frmRuvoColorTheme::showTheme() {
  const auto show = [](NumberCombo* number, double value) {
    if (number->currentText().isEmpty() || number->value().value_or(value) != value) number->setValue(value);
  };
  show(hue_, theme_.hue);
  show(cboLumination_, theme_.lumination);
  show(cboSaturation_, theme_.saturation);
  const Colour colour = equivalentColour(theme_);
  picColorTheme_->setColour(colour);
  lblRGB_->setText(QStringLiteral("%1, %2, %3").arg(redOf(colour)).arg(greenOf(colour)).arg(blueOf(colour)));
}

bool frmRuvoColorTheme::apply(clsDIB& picture, double, const Progress& progress) {
  const EffectStep step = effectStep(theme_);
  return step.effect->apply(picture, EffectInput(step.values), progress);
}

QString frmRuvoColorTheme::refusal() {
  return refusalOf({hue_, cboLumination_, cboSaturation_});
}

}  // namespace ruvo
