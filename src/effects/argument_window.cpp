#include "effects/argument_window.h"

#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "effects/effect_controls.h"
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
  EffectInput input(entered_->values());
  input.scale = scale;
  input.keepSize = subject().region;
  return effect_.apply(picture, input, progress);
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
