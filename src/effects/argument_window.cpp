#include "effects/argument_window.h"

#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "effects/effect_controls.h"
#include "effects/model/reduced_copy.h"
#include "effects/sample_panel.h"

namespace ruvo {

ArgumentWindow::ArgumentWindow(const QString& name, const Effect& effect, const EffectSubject& subject,
                               EffectHost& host, QWidget* parent)
    : ArgumentWindow(name, effect, {effect.arguments.begin(), effect.arguments.end()}, subject, host, parent) {}

ArgumentWindow::ArgumentWindow(const QString& name, const Effect& effect, std::vector<EffectArgument> arguments,
                               const EffectSubject& subject, EffectHost& host, QWidget* parent)
    : EffectWindow(name, tr(effect.title), subject, parent),
      effect_(effect),
      arguments_(std::move(arguments)),
      host_(host) {
  auto* form = new QFormLayout;
  const auto last = host.remembered.find(name.toStdString());
  entered_ = new EffectControls(arguments_, last == host.remembered.end() ? standardValues(effect) : last->second, host,
                                form, this);
  controls()->addLayout(form);
  controls()->addStretch();
  connect(entered_, &EffectControls::changed, this, &ArgumentWindow::choiceChanged);
  connect(sample(), &SamplePanel::colourPicked, entered_, &EffectControls::takeColour);
}

bool ArgumentWindow::apply(clsDIB& picture, double scale, const Progress& progress) {
  if (!entered_->missingPicture().isEmpty()) return false;
  std::vector<EffectValue> values = valuesAt(scale);
  if (values.empty() && !entered_->values().empty()) return false;
  EffectInput input(std::move(values));
  input.scale = scale;
  input.keepSize = subject().region;
  return effect_.apply(picture, input, progress);
}

// Nothing when there is no memory for it.
std::vector<EffectValue> ArgumentWindow::valuesAt(double scale) {
  std::vector<EffectValue> values = entered_->values();
  if (scale == 1) return values;
  for (EffectValue& value : values) {
    if (!value.picture) continue;
    if (reduced_.of != value.picture || reduced_.scale != scale) {
      auto copy = std::make_shared<clsDIB>();
      if (!reducedCopy(*value.picture, scale, *copy)) return {};
      reduced_ = {value.picture, std::move(copy), scale};
    }
    value.picture = reduced_.copy;
  }
  return values;
}

QString ArgumentWindow::refusal() {
  const QString missing = entered_->missingPicture();
  return missing.isEmpty() ? QString() : tr("Please load an image first:  %1").arg(missing);
}

void ArgumentWindow::accept() {
  EffectWindow::accept();
  if (result() == Accepted) host_.remembered[objectName().toStdString()] = entered_->values();
}

}  // namespace ruvo
