#include "effects/number_combo.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <cmath>

namespace ruvo {
namespace {

constexpr int kMostDigits = 9;
constexpr int kShownItems = 20;
constexpr int kLeastCharacters = 6;
constexpr int kSliderWidth = 130;

}  // namespace

NumberCombo::NumberCombo(const QString& name, const QString& what, const Range& range, const std::vector<double>& usual,
                         QWidget* parent)
    : QComboBox(parent), what_(what), range_(range) {
  setObjectName(name);
  setAccessibleName(what);
  setEditable(true);
  setInsertPolicy(NoInsert);
  // It would put the rest of a usual number behind what is typed.
  setCompleter(nullptr);
  setMaxVisibleItems(kShownItems);
  setMinimumContentsLength(kLeastCharacters);
  lineEdit()->setMaxLength(kMostDigits);
  for (const double number : usual) addItem(textOf(number));
  connect(this, &QComboBox::currentTextChanged, this, [this] {
    moveSlider();
    if (const auto number = value()) Q_EMIT valueChanged(*number);
  });
}

void NumberCombo::offerNone(const QString& text, double value) {
  const QSignalBlocker quiet(this);
  noneText_ = text;
  none_ = value;
  lineEdit()->setMaxLength(std::max(kMostDigits, static_cast<int>(text.size())));
  insertItem(0, text);
}

QString NumberCombo::textOf(double value) const {
  return QString::number(std::round(value * std::pow(10, range_.decimals)) / std::pow(10, range_.decimals));
}

std::optional<double> NumberCombo::value() const {
  const QString text = currentText().trimmed();
  if (!noneText_.isEmpty() && text == noneText_) return none_;
  bool ok = false;
  const double number = QString(text).replace(',', '.').toDouble(&ok);
  // Words for what is no number are read as such, too.
  if (!ok || !(number >= range_.low && number <= range_.high)) return std::nullopt;
  if (range_.decimals == 0 && number != std::floor(number)) return std::nullopt;
  return number;
}

void NumberCombo::setValue(double value) {
  const QSignalBlocker quiet(this);
  const bool isNone = !noneText_.isEmpty() && value == none_;
  const QString text = isNone ? noneText_ : textOf(std::clamp(value, range_.low, range_.high));
  setCurrentIndex(findText(text));
  setEditText(text);
  moveSlider();
}

QString NumberCombo::refusal() const {
  if (value()) return {};
  const QString kind = range_.decimals == 0 ? tr("a whole number") : tr("a number");
  return tr("%1 takes %2 from %3 to %4.").arg(what_, kind, textOf(range_.low), textOf(range_.high));
}

QSlider* NumberCombo::makeSlider(const QString& name, QWidget* parent) {
  const double steps = std::pow(10, range_.decimals);
  slider_ = new QSlider(Qt::Horizontal, parent);
  slider_->setObjectName(name);
  slider_->setAccessibleName(what_);
  slider_->setMinimumWidth(kSliderWidth);
  slider_->setRange(qRound(range_.low * steps), qRound(range_.high * steps));
  moveSlider();
  connect(slider_, &QSlider::valueChanged, this, [this, steps](int place) {
    setValue(place / steps);
    Q_EMIT valueChanged(place / steps);
  });
  return slider_;
}

void NumberCombo::moveSlider() {
  const auto number = value();
  if (!slider_ || !number) return;
  const QSignalBlocker quiet(slider_);
  slider_->setValue(qRound(*number * std::pow(10, range_.decimals)));
}

QString refusalOf(const std::vector<NumberCombo*>& numbers) {
  for (NumberCombo* number : numbers) {
    const QString why = number->refusal();
    if (why.isEmpty()) continue;
    number->setFocus();
    number->lineEdit()->selectAll();
    return why;
  }
  return {};
}

std::vector<double> evenNumbers(double low, double high, double step) {
  std::vector<double> all;
  for (double number = low; number <= high; number += step) all.push_back(number);
  return all;
}

}  // namespace ruvo
