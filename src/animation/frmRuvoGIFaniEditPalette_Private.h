// The parts of "Edit Palette": its controls, and what it does by topic.
#pragma once

#include <optional>

#include "animation/frmRuvoGIFaniEditPalette.h"
#include "animation/model/palette_texts.h"
#include "animation/model/work_copy.h"

class QComboBox;
class QLabel;
class QTabWidget;
class QVBoxLayout;

namespace ruvo {

class ColorSwatch;
class DeleteEntryPanel;
class PaletteGrid;
class PaletteStage;

struct frmRuvoGIFaniEditPalette::Private {
  Private(frmRuvoGIFaniEditPalette& owner, std::filesystem::path file, MainWindowLink& main)
      : window(owner), link(main), work(std::move(file)) {}

  frmRuvoGIFaniEditPalette& window;
  MainWindowLink& link;
  WorkCopy work;
  int selected = -1;   // index that colours and transparency are about
  int shownFrame = 0;  // the last one

  PaletteStage* stage = nullptr;
  PaletteGrid* grid = nullptr;
  QLabel* type = nullptr;
  QLabel* entries = nullptr;
  QLabel* transparent = nullptr;
  QLabel* hover = nullptr;
  QTabWidget* tabs = nullptr;
  ColorSwatch* selectedColor = nullptr;
  ColorSwatch* transparentColor = nullptr;
  QComboBox* transparencyScope = nullptr;
  QComboBox* transparencyAction = nullptr;
  QComboBox* deleteScope = nullptr;
  DeleteEntryPanel* deletion = nullptr;

  // --- Building (frmRuvoGIFaniEditPalette_Build.cpp)
  void build(int frame);
  QWidget* buildPalette();
  QWidget* buildTools();
  QWidget* buildColors();
  void addSelectedColor(QVBoxLayout* column);
  void addTransparency(QVBoxLayout* column);
  QWidget* buildDeletion();

  // --- Showing and choosing
  int frame() const;
  bool deleting() const;
  bool deletesGlobal() const;
  FramePalette shownPalette() const;  // that of the deletion's scope while an entry is to be deleted
  void frameShown();
  void show();
  void showHover(int index);
  void choose(int index, Qt::MouseButton button);
  void chooseOnPicture(int index, Qt::MouseButton button);
  void changed();

  // --- The buttons
  bool refused(const std::optional<std::string>& words);
  std::optional<Colour> pickColor(Colour current);
  void changeColor();
  void addEntry();
  void setTransparency();
  void selectTransparent();
  void changeTransparentColor();
  void moveTransparency();
  void clearUnused();
  void deleteEntry();
  void savePalette();
};

}  // namespace ruvo
