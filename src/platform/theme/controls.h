// The small controls that windows are made of, in the program's look. Every control carries its fixed name as
// objectName.
#pragma once

#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include "base/colour.h"

class QComboBox;
class QFrame;

namespace ruvo::theme {

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
  bool event(QEvent* event) override;
  void nextCheckState() override {}
};

QColor toQColor(Colour colour);
Colour fromQColor(const QColor& colour);

// A thin line between groups.
QFrame* divider(Qt::Orientation orientation, QWidget* parent);
// A combo box with its items and first selection, of a fixed width or (0) as wide as its place.
QComboBox* combo(const QString& name, const QStringList& items, int first, int width, QWidget* parent);
enum class LabelKind { Plain, Heading, Quiet };
QLabel* label(const QString& text, QWidget* parent, LabelKind kind = LabelKind::Plain);

// A label that shows as much of its text as there is room for; the whole text is its tool tip when some is left out.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent);
  // It gives way to its neighbours.
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
};

}  // namespace ruvo::theme
