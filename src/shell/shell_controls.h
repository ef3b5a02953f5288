// The small controls that only the main window's panels have, beside those that every window has.
#pragma once

#include <functional>

#include "dialogs/named_controls.h"
#include "platform/theme/controls.h"
#include "platform/theme/theme.h"

namespace ruvo::shell {

using theme::combo;
using theme::divider;
using theme::ElidedLabel;
using theme::fromQColor;
using theme::label;
using theme::LabelKind;
using theme::Panel;
using theme::PictureButton;
using theme::toQColor;

// Sizes in logical pixels that several panels share.
using theme::kIconSide;
inline constexpr int kPanelMargin = 9;

// A tile of an option frame: the option itself (`opt...`), and in it the picture (`img...`) that may be clicked as
// well.
class PictureOption : public PictureButton {
 public:
  PictureOption(const QString& optionName, const QString& pictureName, const QString& picture, const QString& caption,
                QWidget* parent);
};

// A filled rectangle that shows a colour and reports clicks of either button.
class ColorBox : public QWidget {
 public:
  ColorBox(const QString& name, const QString& tip, Colour colour, QWidget* parent);
  Colour BackColor() const { return colour_; }
  void setBackColor(Colour colour);

  std::function<void()> leftClicked;
  std::function<void()> rightClicked;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Colour colour_;
};

}  // namespace ruvo::shell
