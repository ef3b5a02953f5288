// A small window with a grid of swatches; a click on one chooses its colour and closes the window.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "base/colour.h"

namespace ruvo {

class PalettePicker : public QWidget {
 public:
  enum class Kind {
    Colours256,  // sixteen greys, then fifteen shades of sixteen hues
    WebSafe,     // the 216 colours whose channels are multiples of 0x33
  };

  // `current` is marked if the palette has it. The window deletes itself when it closes.
  PalettePicker(Kind kind, Colour current, QWidget* parent, std::function<void(Colour)> chosen);
  // Shows the window at a place of the screen, moved so far that all of it is on the screen.
  void showBeside(const QPoint& place);

  static std::vector<Colour> colours(Kind kind);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void choose(int index);
  int swatchAt(const QPoint& place) const;
  QRect swatchRect(int index) const;

  std::vector<Colour> colours_;
  Colour current_;
  int columns_;
  int hovered_ = -1;
  std::function<void(Colour)> chosen_;
};

}  // namespace ruvo
