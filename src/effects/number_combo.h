// A list of usual numbers into which any other within its range can be typed.
#pragma once

#include <QComboBox>
#include <optional>
#include <vector>

class QSlider;

namespace ruvo {

class NumberCombo : public QComboBox {
  Q_OBJECT

 public:
  struct Range {
    double low;
    double high;
    int decimals = 0;  // as many may be typed
  };
  // `what` names the number when it is refused.
  NumberCombo(const QString& name, const QString& what, const Range& range, const std::vector<double>& usual,
              QWidget* parent);
  // A first item that stands for no number, which has this value.
  void offerNone(const QString& text, double value);

  // Nothing for a text that is no number of the range.
  std::optional<double> value() const;
  // The nearest number of the range; reports no change.
  void setValue(double value);
  // A slider over the whole range that moves with the number, and the number with it.
  QSlider* makeSlider(const QString& name, QWidget* parent);
  // Why the text can not be taken; empty when it can.
  QString refusal() const;

 Q_SIGNALS:
  void valueChanged(double value);  // by the user, to a number that can be taken

 private:
  QString textOf(double value) const;
  void moveSlider();

  QString what_;
  Range range_;
  QString noneText_;
  double none_ = 0;
  QSlider* slider_ = nullptr;
};

// Why the first text among these that is no number of its range can not be taken, with the focus on it; empty when all
// can.
QString refusalOf(const std::vector<NumberCombo*>& numbers);
// The numbers from low to high.
std::vector<double> evenNumbers(double low, double high, double step);

}  // namespace ruvo
