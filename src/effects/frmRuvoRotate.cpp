#include "effects/frmRuvoRotate.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/color_button.h"
#include "dialogs/named_controls.h"
#include "effects/filter/rotation_size.h"
#include "effects/number_combo.h"
#include "effects/optional_colour.h"
#include "effects/sample_panel.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/texts.h"

namespace ruvo {
namespace {

constexpr double kFirstAngle = 45;
constexpr double kAngleStep = 45;
constexpr int kAngleDecimals = 2;

std::vector<double> usualAngles() {
  std::vector<double> all = {-180, -135, -90, -60, -45, -30, -15, -10, -5, -2, -1, 0};
  for (std::size_t i = all.size() - 1; i-- > 0;) all.push_back(-all[i]);
  return all;
}

}  // namespace

frmRuvoRotate::frmRuvoRotate(const EffectSubject& subject, QWidget* parent)
    : EffectWindow("frmRuvoRotate", tr("Rotate At Any Chosen Angle"), subject, parent) {
  sample()->pickWhatIsSeen();
  addAngle();
  auto* grow = namedCheckBox("ckbResizeCanvas", tr("&Resize to fit (if not exceeding max)"), this);
  // A region keeps its size.
  grow->setEnabled(!subject.region);
  connect(grow, &QCheckBox::toggled, this, [this](bool on) {
    choices_.grow = on;
    choiceChanged();
  });
  grow->setChecked(!subject.region && mayGrow());
  auto* antialias = namedCheckBox("ckbAntialias", tr("&Antialiasing"), this);
  connect(antialias, &QCheckBox::toggled, this, [this](bool on) {
    choices_.antialias = on;
    choiceChanged();
  });
  antialias->setChecked(true);
  controls()->addWidget(grow);
  controls()->addWidget(antialias);
  addColours();
  controls()->addStretch();
}

void frmRuvoRotate::addAngle() {
  cboRotateAngle_ = new NumberCombo("cboRotateAngle", tr("The angle"), {-kMostAngle, kMostAngle, kAngleDecimals},
                                    usualAngles(), this);
  choices_.angle = kFirstAngle;
  cboRotateAngle_->setValue(kFirstAngle);
  connect(cboRotateAngle_, &NumberCombo::valueChanged, this, [this](double angle) {
    choices_.angle = angle;
    choiceChanged();
  });
  auto* cmd45 = namedButton("cmd45", tr("+ &45°"), this);
  cmd45->setToolTip(tr("Another 45 degrees"));
  connect(cmd45, &QPushButton::clicked, this, &frmRuvoRotate::turnOn);
  auto* label = new QLabel(tr("A&ngle in degrees:"), this);
  label->setBuddy(cboRotateAngle_);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(cboRotateAngle_, 1);
  row->addWidget(cmd45);
  controls()->addLayout(row);
  controls()->addWidget(new QLabel(tr("Above 0 turns to the left, below 0 to the right."), this));
}

void frmRuvoRotate::addColours() {
  auto* transparent =
      new OptionalColour("ckbTransparent", "picTransparent", tr("&Transparent color"), kNoColour,
                         clsDIB::GetTopPixelColor(subject().picture, !subject().picture.BottomUp()), this);
  connect(transparent, &OptionalColour::changed, this, [this, transparent] {
    choices_.transparent = static_cast<std::int64_t>(transparent->value());
    choiceChanged();
  });
  connect(sample(), &SamplePanel::colourPicked, transparent, &OptionalColour::take);
  auto* fill = new ColorButton("picFill", choices_.fill, this);
  connect(fill, &ColorButton::colourChosen, this, [this](Colour colour) {
    choices_.fill = colour;
    choiceChanged();
  });
  auto* label = new QLabel(tr("Fi&ll color:"), this);
  label->setBuddy(fill);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(fill);
  row->addStretch();
  controls()->addWidget(transparent);
  controls()->addLayout(row);
}

// Round again from the whole turn.
void frmRuvoRotate::turnOn() {
  double angle = choices_.angle + kAngleStep;
  if (angle > kMostAngle) angle -= kMostAngle;
  cboRotateAngle_->setValue(angle);
  choices_.angle = angle;
  choiceChanged();
}

bool frmRuvoRotate::mayGrow() const {
  return rotationMayGrow(subject().picture.size());
}

bool frmRuvoRotate::apply(clsDIB& picture, double, const Progress& progress) {
  Rotation rotation = choices_;
  rotation.grow = rotation.grow && mayGrow();
  return rotatePicture(picture, rotation, progress);
}

QString frmRuvoRotate::refusal() {
  return refusalOf({cboRotateAngle_});
}

bool frmRuvoRotate::confirm() {
  if (!choices_.grow || mayGrow()) return true;
  return desktop::desktop().message(this, qt(rotationQuestion()), desktop::Icon::Question, desktop::Buttons::YesNo) ==
         desktop::Answer::Yes;
}

}  // namespace ruvo
