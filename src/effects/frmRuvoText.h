// The text window: what to write, in which font, size, style and colours, with a sample that follows every change. It only
// chooses; whoever opens it writes the text. The same window makes a stamp of a text, which knows no half transparency.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "base/geometry.h"
#include "effects/model/text_choices.h"
#include "effects/text_picture.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFontComboBox;
class QLabel;
class QLayout;
class QPlainTextEdit;

namespace ruvo {

class ColorButton;
class TextSample;
class clsDIB;

class frmRuvoText : public QDialog {
  Q_OBJECT

 public:
  enum class Use { OnPicture, Stamp };
  // Where the text will lie; without a picture the sample is white.
  struct Place {
    const clsDIB* picture = nullptr;
    Point corner;
  };

  frmRuvoText(Use use, const TextChoices& choices, const Place& place, QWidget* parent = nullptr);
  ~frmRuvoText() override;

  // As the controls stand; nothing while the size is none.
  std::optional<TextChoices> choices() const;
  // Proceed: stays open, in words, with what can not be written.
  void accept() override;

  // Shows the window; true, with `choices` as they are wanted, when a text is to be written. It may be empty.
  static bool ask(Use use, TextChoices& choices, const Place& place, QWidget* parent);

 private:
  QLayout* buildText();
  QLayout* buildFont(const TextChoices& choices);
  QLayout* buildStyle(const TextChoices& choices);
  QLayout* buildColors(const TextChoices& choices);
  QLayout* buildNotes();
  QLayout* buildButtons();
  QString sizeTyped() const;
  std::optional<std::string> refusal() const;
  void choicesChanged();

  const Use use_;
  QPlainTextEdit* text_ = nullptr;
  QFontComboBox* font_ = nullptr;
  QComboBox* size_ = nullptr;
  QCheckBox *bold_ = nullptr, *italic_ = nullptr, *underline_ = nullptr, *strikeThru_ = nullptr;
  QButtonGroup* align_ = nullptr;
  QCheckBox *antialias_ = nullptr, *filled_ = nullptr;
  ColorButton *color_ = nullptr, *backColor_ = nullptr;
  QLabel *measure_ = nullptr, *note_ = nullptr;
  std::unique_ptr<TextPicture> picture_;
  TextSample* sample_ = nullptr;
};

}  // namespace ruvo
