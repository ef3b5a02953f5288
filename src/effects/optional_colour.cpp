#include "effects/optional_colour.h"

#include <QCheckBox>
#include <QHBoxLayout>

#include "dialogs/color_button.h"
#include "dialogs/named_controls.h"
#include "effects/model/effect.h"

namespace ruvo {

OptionalColour::OptionalColour(const QString& check, const QString& button, const QString& text, double colour,
                               Colour first, QWidget* parent)
    : QWidget(parent), on_(namedCheckBox(check, text, this)) {
  const bool none = colour < 0;
  button_ = new ColorButton(button, none ? first : static_cast<Colour>(colour), this);
  on_->setChecked(!none);
  button_->setEnabled(!none);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(on_);
  layout->addWidget(button_);
  layout->addStretch();
  setFocusProxy(on_);
  setToolTip(tr("A right click on the sample takes the color there"));
  connect(on_, &QCheckBox::toggled, this, [this](bool on) {
    button_->setEnabled(on);
    Q_EMIT changed();
  });
  connect(button_, &ColorButton::colourChosen, this, &OptionalColour::changed);
}

QWidget* OptionalColour::takeCheckBox() {
  layout()->removeWidget(on_);
  on_->setToolTip(toolTip());
  return on_;
}

double OptionalColour::value() const {
  return on_->isChecked() ? static_cast<double>(button_->colour()) : kNoColour;
}

void OptionalColour::take(Colour colour) {
  button_->setColour(colour);
  if (on_->isChecked()) {
    Q_EMIT changed();
  } else {
    on_->setChecked(true);
  }
}

}  // namespace ruvo
