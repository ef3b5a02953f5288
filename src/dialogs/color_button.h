// A swatch that is clicked, or pressed by Space, to choose another colour.
#pragma once

#include "dialogs/color_swatch.h"

namespace ruvo {

class ColorButton : public ColorSwatch {
  Q_OBJECT

 public:
  ColorButton(const QString& name, Colour colour, QWidget* parent);

 Q_SIGNALS:
  void colourChosen(ruvo::Colour colour);  // by the user

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void choose();
};

}  // namespace ruvo
