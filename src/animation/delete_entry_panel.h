// Deletion of a palette entry as both palette windows offer it: which entry goes, which one its pixels get, and the
// button that asks for it (`cmdDeleteColor`, with `picColorToDelete`).
#pragma once

#include <QWidget>

#include "animation/model/edit_palette_rules.h"
#include "animation/model/palette_texts.h"

class QLabel;
class QVBoxLayout;

namespace ruvo {

class ColorSwatch;
class PaletteGrid;
class WorkCopy;

class DeleteEntryPanel : public QWidget {
  Q_OBJECT

 public:
  explicit DeleteEntryPanel(QWidget* parent);

  // A left click chooses the entry to delete, a right click its replacement; a box without an entry is none.
  void choose(int index, Qt::MouseButton button);
  void clearChoice();
  // Shows the choice on the palette that it is about, that of the frame. With another table nothing is chosen yet.
  void showOn(PaletteGrid& grid, const FramePalette& palette, int frame);
  // Room above the button, for what else a window lets choose.
  QVBoxLayout* choices() { return choices_; }

  // Refuses, asks and deletes; `window` tells which words. True when the model changed.
  bool run(WorkCopy& work, bool global, int frame, PaletteWindow window);

 Q_SIGNALS:
  void proceed();

 private:
  struct Row {
    ColorSwatch* swatch = nullptr;
    QLabel* label = nullptr;
    int index = -1;
  };
  Row makeRow(const QString& text, const char* swatch);
  void showRow(const Row& row, const FramePalette& palette);

  QVBoxLayout* choices_ = nullptr;
  Row deleted_;
  Row replacement_;
  int table_ = -1;  // that was shown last: the frame that owns it, 0 for the global one
  int entries_ = 0;
};

// The colour of an entry; the swatch is empty for an index outside the palette.
void showEntryColor(ColorSwatch& swatch, const FramePalette& palette, int index);

}  // namespace ruvo
