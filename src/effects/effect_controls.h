// The controls of an effect's arguments, one row each: number with a slider, colour, list, check box, picture.
#pragma once

#include <QObject>
#include <functional>
#include <span>
#include <vector>

#include "effects/effect_subject.h"

class QFormLayout;
class QWidget;

namespace ruvo {

class OptionalColour;

// Controls are named by kind and argument: "hsrLineWidth" and "txbLineWidth" for the number "line-width", "picX" for a
// colour ("ckbX" before it where it can be none), "cboX" for a list, "ckbX" for a switch, "cmdX" for a picture.
class EffectControls : public QObject {
  Q_OBJECT

 public:
  // Adds its rows to `form`. Values beyond an argument's range can not be entered.
  EffectControls(std::span<const EffectArgument> arguments, std::vector<EffectValue> values, EffectHost& host,
                 QFormLayout* form, QWidget* window);

  const std::vector<EffectValue>& values() const { return values_; }
  // Shows another number in the control of argument `i`, as if it had been entered.
  void setNumber(std::size_t i, double number);
  // Another range for it, into which the number is brought.
  void setRange(std::size_t i, double low, double high);
  // Label of the first picture that is still to be chosen; empty when none is.
  QString missingPicture() const;
  // A colour picked on the sample goes to the colour that can be none; false when there is no such argument.
  bool takeColour(Colour colour);

 Q_SIGNALS:
  void changed();

 private:
  void set(std::size_t i, double number);
  QWidget* number(std::size_t i);
  QWidget* colour(std::size_t i);
  QWidget* optionalColour(std::size_t i);
  QWidget* list(std::size_t i);
  QWidget* check(std::size_t i);
  QWidget* picture(std::size_t i);

  std::span<const EffectArgument> arguments_;
  std::vector<EffectValue> values_;
  EffectHost& host_;
  QWidget* window_;
  std::vector<std::function<void(double)>> show_;  // of each number
  std::vector<std::function<void(double, double)>> limit_;
  OptionalColour* pickable_ = nullptr;             // what a colour picked on the sample goes to
};

// "line-width" with "hsr" is "hsrLineWidth".
QString controlNameOf(const char* prefix, const char* argument);

}  // namespace ruvo
