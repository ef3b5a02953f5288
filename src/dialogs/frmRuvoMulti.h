// The choice among the images of an icon file that has several.
#pragma once

#include <QDialog>

#include "formats/clsICO.h"

class QListWidget;
class QPushButton;

namespace ruvo {

class IconField;

class frmRuvoMulti : public QDialog {
 public:
  // The file must outlive the dialog.
  frmRuvoMulti(const clsICO& file, QWidget* parent = nullptr);

  // The highlighted image.
  int index() const;
  // Refuses an image that could not be read, in words, and stays.
  void accept() override;

  // Shows the dialog and answers the number of the chosen image, or -1. Of a cursor it is the first, unasked.
  static int choose(QWidget* parent, const clsICO& file);

 private:
  QWidget* buildPreview();
  QWidget* buildButtons();
  void step(int by);
  void showHighlighted();

  const clsICO& file_;
  QListWidget* list_ = nullptr;
  IconField* picture_ = nullptr;
  QPushButton* up_ = nullptr;
  QPushButton* down_ = nullptr;
};

}  // namespace ruvo
