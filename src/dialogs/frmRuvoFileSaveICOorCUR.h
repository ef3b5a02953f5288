// Saves a picture as an icon or a cursor: size, how the picture is taken, transparency, hot spot, and what comes of
// them before it is written.
#pragma once

#include <QDialog>

#include "dialogs/model/icon_save_rules.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;

namespace ruvo {

class IconField;
class MagnifiedIcon;

class frmRuvoFileSaveICOorCUR : public QDialog {
 public:
  // The picture (not empty) must outlive the dialog. `proposed` is the path that the picker starts from; `largerSizes`
  // offers an icon's larger sizes too.
  frmRuvoFileSaveICOorCUR(IconKind kind, const clsDIB& picture, const QString& proposed, bool largerSizes = false,
                          QWidget* parent = nullptr);

  const IconChoices& choices() const { return choices_; }
  // Asks for the file and writes it; stays open when there is none or it could not be written.
  void accept() override;
  // The file that was written, empty before.
  const QString& savedPath() const { return saved_; }

  // Shows the dialog and answers the path of the file that was written, empty for none.
  static QString save(QWidget* parent, IconKind kind, const clsDIB& picture, const QString& proposed,
                      bool largerSizes = false);

 private:
  QWidget* buildMagnified();
  QWidget* buildOptions(bool largerSizes);
  void addHotSpot(QFormLayout& form);
  QWidget* buildPreviews(bool largerSizes);
  QWidget* buildButtons();
  // From the controls to the choices and all pictures.
  void takeChoices();
  // Apart from the others, for it changes no pixel: a large picture takes a while to bring to the icon's size.
  void takeHotSpot();
  void showResult();
  void pickTransparent(Point pixel);
  void pickHotSpot(Point pixel);
  QString askForPath();

  IconKind kind_;
  const clsDIB& picture_;
  QString proposed_;
  QString saved_;
  IconChoices choices_;
  MagnifiedIcon* magnified_ = nullptr;
  QComboBox* size_ = nullptr;  // none for a cursor
  QComboBox* how_ = nullptr;
  QCheckBox* transparent_ = nullptr;
  IconField* colour_ = nullptr;
  QLabel* colourText_ = nullptr;
  std::array<QComboBox*, 2> hotSpot_{};  // x and y, none for an icon
  IconField* onLight_ = nullptr;
  IconField* onDark_ = nullptr;
  IconField* mask_ = nullptr;
};

}  // namespace ruvo
