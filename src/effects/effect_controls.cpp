#include "effects/effect_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <cmath>

#include "dialogs/color_button.h"
#include "dialogs/named_controls.h"
#include "effects/optional_colour.h"

namespace ruvo {
namespace {

constexpr int kRealDecimals = 2;
constexpr int kSliderWidth = 130;
constexpr int kFieldWidth = 104;

QString labelOf(const EffectArgument& argument) {
  return QObject::tr(argument.label);
}

}  // namespace

QString controlNameOf(const char* prefix, const char* argument) {
  QString name = QString::fromLatin1(prefix);
  for (const QString& word : QString::fromLatin1(argument).split('-')) name += word.left(1).toUpper() + word.mid(1);
  return name;
}

EffectControls::EffectControls(std::span<const EffectArgument> arguments, std::vector<EffectValue> values,
                               EffectHost& host, QFormLayout* form, QWidget* window)
    : QObject(window),
      arguments_(arguments),
      values_(std::move(values)),
      host_(host),
      window_(window),
      show_(arguments.size()),
      limit_(arguments.size()) {
  using Make = QWidget* (EffectControls::*)(std::size_t);
  const auto maker = [](EffectValueKind kind) -> Make {
    switch (kind) {
      case EffectValueKind::PlainColour:
        return &EffectControls::colour;
      case EffectValueKind::ColourOrNone:
        return &EffectControls::optionalColour;
      case EffectValueKind::Choice:
        return &EffectControls::list;
      case EffectValueKind::Switch:
        return &EffectControls::check;
      case EffectValueKind::Picture:
        return &EffectControls::picture;
      default:
        return &EffectControls::number;
    }
  };
  for (std::size_t i = 0; i < arguments_.size(); ++i) {
    QWidget* made = (this->*maker(arguments_[i].kind))(i);
    const EffectValueKind kind = arguments_[i].kind;
    // A check box carries the label itself.
    if (kind == EffectValueKind::Switch) {
      form->addRow(made);
    } else if (kind == EffectValueKind::ColourOrNone) {
      form->addRow(static_cast<OptionalColour*>(made)->takeCheckBox(), made);
    } else {
      auto* label = new QLabel(labelOf(arguments_[i]) + QStringLiteral(":"), window);
      label->setBuddy(made->focusProxy() ? made->focusProxy() : made);
      form->addRow(label, made);
    }
  }
}

void EffectControls::set(std::size_t i, double number) {
  if (values_[i].number == number) return;
  values_[i].number = number;
  Q_EMIT changed();
}

// The slider moves in steps of the number's last decimal.
QWidget* EffectControls::number(std::size_t i) {
  const EffectArgument& argument = arguments_[i];
  const bool whole = argument.kind == EffectValueKind::Whole;
  const double steps = whole ? 1 : std::pow(10, kRealDecimals);
  // What was entered for another picture may be out of range for this one.
  values_[i].number = std::clamp(values_[i].number, argument.low, argument.high);
  auto* row = new QWidget(window_);
  auto* slider = new QSlider(Qt::Horizontal, row);
  slider->setObjectName(controlNameOf("hsr", argument.name));
  slider->setRange(qRound(argument.low * steps), qRound(argument.high * steps));
  slider->setMinimumWidth(kSliderWidth);
  auto* field = new QDoubleSpinBox(row);
  field->setObjectName(controlNameOf("txb", argument.name));
  field->setMinimumWidth(kFieldWidth);
  field->setDecimals(whole ? 0 : kRealDecimals);
  field->setRange(argument.low, argument.high);
  field->setSingleStep(whole ? 1 : std::max(1 / steps, (argument.high - argument.low) / 100));
  if (*argument.unit) field->setSuffix(QStringLiteral(" %1").arg(tr(argument.unit)));
  field->setValue(values_[i].number);
  slider->setValue(qRound(values_[i].number * steps));

  connect(slider, &QSlider::valueChanged, field, [field, steps](int value) {
    if (qRound(field->value() * steps) != value) field->setValue(value / steps);
  });
  connect(field, &QDoubleSpinBox::valueChanged, this, [this, i, slider, steps](double value) {
    slider->setValue(qRound(value * steps));
    set(i, value);
  });
  show_[i] = [field](double value) { field->setValue(value); };
  limit_[i] = [field, slider, steps](double low, double high) {
    field->setRange(low, high);
    slider->setRange(qRound(low * steps), qRound(high * steps));
  };
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(slider, 1);
  layout->addWidget(field);
  row->setFocusProxy(field);
  return row;
}

QWidget* EffectControls::colour(std::size_t i) {
  auto* row = new QWidget(window_);
  auto* button = new ColorButton(controlNameOf("pic", arguments_[i].name), static_cast<Colour>(values_[i].number), row);
  connect(button, &ColorButton::colourChosen, this, [this, i](Colour colour) { set(i, colour); });
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(button);
  layout->addStretch();
  row->setFocusProxy(button);
  return row;
}

QWidget* EffectControls::optionalColour(std::size_t i) {
  const char* name = arguments_[i].name;
  if (pickable_) pickable_->setToolTip({});  // a picked colour goes to the last
  pickable_ = new OptionalColour(controlNameOf("ckb", name), controlNameOf("pic", name), labelOf(arguments_[i]),
                                 values_[i].number, kWhite, window_);
  connect(pickable_, &OptionalColour::changed, this, [this, i, row = pickable_] { set(i, row->value()); });
  return pickable_;
}

QWidget* EffectControls::list(std::size_t i) {
  const EffectArgument& argument = arguments_[i];
  QStringList items;
  for (const char* choice : argument.choices) items << tr(choice);
  auto* box = namedComboBox(controlNameOf("cbo", argument.name), items, window_);
  box->setCurrentIndex(qRound(values_[i].number));
  connect(box, &QComboBox::currentIndexChanged, this, [this, i](int index) { set(i, index); });
  return box;
}

QWidget* EffectControls::check(std::size_t i) {
  auto* box = namedCheckBox(controlNameOf("ckb", arguments_[i].name), labelOf(arguments_[i]), window_);
  box->setChecked(values_[i].number != 0);
  connect(box, &QCheckBox::toggled, this, [this, i](bool on) { set(i, on); });
  return box;
}

QWidget* EffectControls::picture(std::size_t i) {
  const auto sizeText = [](const EffectValue& value) {
    return value.picture ? QStringLiteral("%1 x %2").arg(value.picture->DIBWidth()).arg(value.picture->DIBHeight())
                         : tr("(none yet)");
  };
  auto* row = new QWidget(window_);
  auto* load = namedButton(controlNameOf("cmd", arguments_[i].name), tr("&Load image ...."), row);
  auto* size = new QLabel(sizeText(values_[i]), row);
  connect(load, &QPushButton::clicked, this, [this, i, size, sizeText] {
    std::shared_ptr<const clsDIB> chosen = host_.loadPicture(window_);
    if (!chosen) return;
    values_[i].picture = std::move(chosen);
    size->setText(sizeText(values_[i]));
    Q_EMIT changed();
  });
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(load);
  layout->addWidget(size, 1);
  row->setFocusProxy(load);
  return row;
}

void EffectControls::setNumber(std::size_t i, double number) {
  if (show_.at(i)) show_[i](number);
}

void EffectControls::setRange(std::size_t i, double low, double high) {
  if (limit_.at(i)) limit_[i](low, high);
}

QString EffectControls::missingPicture() const {
  for (std::size_t i = 0; i < arguments_.size(); ++i) {
    if (arguments_[i].kind == EffectValueKind::Picture && !values_[i].picture)
      return labelOf(arguments_[i]).remove('&');
  }
  return {};
}

bool EffectControls::takeColour(Colour colour) {
  if (!pickable_) return false;
  pickable_->take(colour);
  return true;
}

}  // namespace ruvo
