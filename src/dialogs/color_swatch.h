// A small framed rectangle in a colour.
#pragma once

#include <QWidget>

#include "base/colour.h"

namespace ruvo {

class ColorSwatch : public QWidget {
 public:
  ColorSwatch(const QString& name, Colour colour, QWidget* parent);
  Colour colour() const { return colour_; }
  void setColour(Colour colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Colour colour_;
};

}  // namespace ruvo
