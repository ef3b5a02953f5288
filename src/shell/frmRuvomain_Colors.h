// `fraBrushAndColors` of the main window: brush size, first and second colour, and the buttons that open the palettes.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "base/colour.h"

class QComboBox;
class QToolButton;

namespace ruvo::shell {

class ColorBox;

enum class PaletteKind { Chart, Palette256, WebSafe };

// The three palette buttons of a colour box: `cmdPalette256`, `cmdPaletteWebSafe`, `cmdColorChart` with its index.
std::array<QToolButton*, 3> paletteButtons(int box, QWidget* parent,
                                           const std::function<void(PaletteKind, int)>& asked);

class BrushAndColors : public QWidget {
 public:
  BrushAndColors(QWidget* parent, const std::function<void(PaletteKind, int box)>& paletteAsked);

  ColorBox& box(int index) { return *boxes_[static_cast<std::size_t>(index)]; }
  const ColorBox& box(int index) const { return *boxes_[static_cast<std::size_t>(index)]; }

  int brushSizeIndex() const;
  // Outside 0 to kBrushSizeCount - 1 it takes the default.
  void setBrushSizeIndex(int index);

  // `byKeys`: chosen with the keys of the box, which is to keep them.
  std::function<void(bool byKeys)> brushSizeChanged;
  std::function<void()> swapClicked;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildColors(const std::function<void(PaletteKind, int)>& paletteAsked);
  void buildBrushSize();
  void updateSteppers();

  std::array<ColorBox*, 2> boxes_{};
  QWidget* wells_ = nullptr;
  QComboBox* brushSize_ = nullptr;
  std::array<QToolButton*, 2> adjust_{};
  bool sizeByKeys_ = false;
};

}  // namespace ruvo::shell
