// Showing icons: on a ground that tells what is see-through, magnified to be pointed at, and small as they will be.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "image/clsDIB.h"

namespace ruvo {

// A copy of a 32-bit surface; byte 3 is alpha when DIBhasAlpha says so.
QImage imageOf(const clsDIB& dib);

// A square field with a picture in its middle, on one colour or (without one) on a chequered ground. A picture that is
// too large is shown smaller.
class IconField : public QWidget {
 public:
  IconField(const QString& name, int side, std::optional<QColor> ground, QWidget* parent);
  void setPicture(const QImage& picture);
  // Shown when there is no picture.
  void setWords(const QString& words);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<QColor> ground_;
  QImage picture_;
  QString words_;
};

// An icon magnified so that its pixels can be told apart and clicked. With the keyboard the arrows go from pixel to
// pixel, Space is the left click and Shift+Space the right one.
class MagnifiedIcon : public QWidget {
 public:
  MagnifiedIcon(const QString& name, QWidget* parent);
  // What is shown, with its transparency.
  void setPicture(const QImage& picture);
  // Marked with a cross; none for an icon.
  void setHotSpot(std::optional<QPoint> spot);
  // The whole of the magnified picture within the widget.
  QRect place() const;

  // An icon pixel was clicked.
  std::function<void(QPoint)> leftClicked;
  std::function<void(QPoint)> rightClicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int magnification() const;
  QRect placeOf(QPoint pixel) const;
  void click(QPoint pixel, bool left) const;
  void paintGrid(QPainter& painter) const;
  void paintHotSpot(QPainter& painter) const;

  QImage picture_;
  std::optional<QPoint> spot_;
  QPoint current_;  // where the keyboard is
};

}  // namespace ruvo
