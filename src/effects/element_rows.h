// Three rows of numbers, for red, green and blue.
#pragma once

#include <QObject>
#include <array>
#include <vector>

class QGridLayout;
class QWidget;

namespace ruvo {

class NumberCombo;

class ElementRows : public QObject {
  Q_OBJECT

 public:
  static constexpr int kElements = 3;
  static constexpr double kMost = 255;
  using Values = std::array<double, kElements>;
  enum Column { kLabel, kNumber, kSlider, kBeside };

  // Adds "cboElement(0)" to (2), each with its label of that array name, to the grid.
  ElementRows(const QString& labels, double standard, QGridLayout& grid, QWidget* window);
  // A slider for each, named "hsrElement(0)" to (2).
  void addSliders(QGridLayout& grid, QWidget* window);

  void addBeside(int element, QWidget* widget, QGridLayout& grid);

  // Texts that are no numbers count as what was there before.
  const Values& values() const { return values_; }
  void setValues(const Values& values);
  std::vector<NumberCombo*> numbers() const { return {numbers_.begin(), numbers_.end()}; }

 Q_SIGNALS:
  void changed();  // by the user

 private:
  Values values_;
  std::array<NumberCombo*, kElements> numbers_;
  int firstRow_;
};

}  // namespace ruvo
