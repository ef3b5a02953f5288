// A colour that may be none: a check box that turns it on and a button that chooses it.
#pragma once

#include <QWidget>

#include "base/colour.h"

class QCheckBox;

namespace ruvo {

class ColorButton;

class OptionalColour : public QWidget {
  Q_OBJECT

 public:
  // The controls' names; `text` stands behind the check box. `colour` as in value(), `first` is what is offered when it
  // is none.
  OptionalColour(const QString& check, const QString& button, const QString& text, double colour, Colour first,
                 QWidget* parent);
  // Hands over the check box with its text to stand elsewhere, as the label of a row.
  QWidget* takeCheckBox();
  // Packed, or kNoColour.
  double value() const;
  // Turns it on, in that colour; as when the user had chosen it.
  void take(Colour colour);

 Q_SIGNALS:
  void changed();  // by the user

 private:
  QCheckBox* on_;
  ColorButton* button_;
};

}  // namespace ruvo
