// An icon that a function paints, at any size, scale and mode.
#pragma once

#include <QIconEngine>
#include <QPainter>
#include <functional>

namespace ruvo::theme {

class PaintedIcon : public QIconEngine {
 public:
  // Paints into the rectangle; painter state need not be put back.
  using Paint = std::function<void(QPainter&, const QRectF&, QIcon::Mode)>;
  explicit PaintedIcon(Paint paint) : paint_(std::move(paint)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    paint_(*painter, QRectF(rect), mode);
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new PaintedIcon(*this); }

 private:
  Paint paint_;
};

}  // namespace ruvo::theme
