// The small controls that the main window's panels are made of. Every control carries its fixed name as objectName; a
// member of a control array is named "array(index)".
#pragma once

#include <QAbstractButton>
#include <QToolButton>
#include <QWidget>
#include <functional>

#include "base/colour.h"
#include "dialogs/named_controls.h"
#include "shell/theme.h"

class QBoxLayout;
class QComboBox;
class QFrame;
class QLabel;

namespace ruvo::shell {

using ruvo::controlName;

// Sizes in logical pixels that several panels share.
using theme::kIconSide;
inline constexpr int kPanelMargin = 9;

// A plain ground with a border on one side, or a frame with round corners.
class Panel : public QWidget {
 public:
  enum class Border { Top, Right, Bottom, Frame };
  Panel(Border border, QWidget* parent) : QWidget(parent), border_(border) {}

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Border border_;
};

// A flat button with a picture. A click only reports: whether it looks pressed (checked) is set by the code that
// decides.
class PictureButton : public QToolButton {
 public:
  PictureButton(const QString& name, const QString& picture, const QString& tip, QWidget* parent);

 protected:
  void nextCheckState() override {}
};

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

QColor toQColor(Colour colour);
Colour fromQColor(const QColor& colour);

// A thin line between groups.
QFrame* divider(Qt::Orientation orientation, QWidget* parent);
// A combo box with its items and first selection, of a fixed width or (0) as wide as its place.
QComboBox* combo(const QString& name, const QStringList& items, int first, int width, QWidget* parent);
enum class LabelKind { Plain, Heading, Quiet };
QLabel* label(const QString& text, QWidget* parent, LabelKind kind = LabelKind::Plain);

}  // namespace ruvo::shell
