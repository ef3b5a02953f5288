// The panel with which a GIF or a PNG is saved by choice: transparency, interlace, background, opacity. Colours are
// picked from the picture by a right click.
#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <optional>

#include "document/model/save_panel.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace ruvo {

class ColorSwatch;
class ucCanvas;

class frmRuvoFileSaveGIForPNG : public QDialog {
  Q_OBJECT

 public:
  // `picture` is copied; `proposed` is a whole path with the format's extension.
  frmRuvoFileSaveGIForPNG(SavePanelMode mode, const clsDIB& picture, const QString& proposed,
                          QWidget* parent = nullptr);

  // The path to save to; empty when the panel was left without one.
  QString path() const { return path_; }
  GifChoices gifChoices() const;
  PngChoices pngChoices() const;
  // What Proceed does with a path before the panel closes: the words of a refusal, which keep it open, or nothing.
  std::function<std::string(const QString& path)> save;
  void accept() override;

 private:
  QWidget* buildPicture(const clsDIB& picture);
  QWidget* buildGifFrame();
  QWidget* buildPngFrame();
  void addTransparencyRows(QVBoxLayout* column);
  QWidget* buildSaveTo();
  void chooseFile();
  void pick(Colour colour, Point pixel);
  void showEnabled();

  const SavePanelMode mode_;
  const QString folder_;  // of the proposed file
  QString path_;
  QString agreed_;  // a path that the file picker gave, so that replacing it is agreed on
  Point transparentPixel_;
  ucCanvas* canvas_ = nullptr;
  QLineEdit* saveTo_ = nullptr;
  QCheckBox* interlaced_ = nullptr;
  QCheckBox* transparency_ = nullptr;
  ColorSwatch* transparentColour_ = nullptr;
  QComboBox* bitsPerPixel_ = nullptr;
  QCheckBox* background_ = nullptr;
  ColorSwatch* backgroundColour_ = nullptr;
  QButtonGroup* kind_ = nullptr;
  QComboBox* opacity_ = nullptr;
  QLabel* opacityLabel_ = nullptr;
  QCheckBox* exclude_ = nullptr;
  ColorSwatch* excluded_ = nullptr;
  QWidget* backgroundButton_ = nullptr;
  QLabel* hint_ = nullptr;  // how a colour is picked; enabled while one is wanted
};

}  // namespace ruvo
