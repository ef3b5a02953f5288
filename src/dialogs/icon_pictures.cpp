#include "dialogs/icon_pictures.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace ruvo {
namespace {

constexpr int kMagnifiedSide = 320;
constexpr int kSmallestGridded = 6;  // pixels smaller than this are not parted by lines
constexpr int kChequer = 8;

void paintChequer(QPainter& painter, const QRect& area, int cell = kChequer) {
  // The same in both themes: it stands for "nothing here", not for a part of the window.
  painter.fillRect(area, QColor("#FFFFFF"));
  for (int y = area.top(); y <= area.bottom(); y += cell) {
    const bool odd = (y - area.top()) / cell % 2 != 0;
    for (int x = area.left() + (odd ? cell : 0); x <= area.right(); x += 2 * cell) {
      painter.fillRect(QRect(x, y, cell, cell) & area, QColor("#CBD2DA"));
    }
  }
}

void paintEdge(QPainter& painter, const QWidget& widget, const QRect& around) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(widget.palette().color(QPalette::Mid));
  painter.drawRect(around.adjusted(0, 0, -1, -1));
}

}  // namespace

QImage imageOf(const clsDIB& dib) {
  if (dib.empty() || dib.surface().depth() != 32) return {};
  QImage image(dib.DIBWidth(), dib.DIBHeight(), QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    const auto* from = reinterpret_cast<const Pixel32*>(dib.surface().pictureRow(y));
    auto* to = reinterpret_cast<Pixel32*>(image.scanLine(y));
    std::copy_n(from, image.width(), to);
    for (int x = 0; x < image.width() && !dib.DIBhasAlpha(); ++x) to[x].alpha = 255;
  }
  return image;
}

IconField::IconField(const QString& name, int side, std::optional<QColor> ground, QWidget* parent)
    : QWidget(parent), ground_(ground) {
  setObjectName(name);
  setFixedSize(side, side);
}

void IconField::setPicture(const QImage& picture) {
  picture_ = picture;
  update();
}

void IconField::setWords(const QString& words) {
  words_ = words;
  update();
}

void IconField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect inner = rect().adjusted(1, 1, -1, -1);
  if (picture_.isNull()) {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(inner.adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, words_);
  } else {
    if (ground_)
      painter.fillRect(inner, *ground_);
    else
      paintChequer(painter, inner);
    QSize size = picture_.size();
    const bool fits = size.width() <= inner.width() && size.height() <= inner.height();
    if (!fits) size.scale(inner.size(), Qt::KeepAspectRatio);
    QRect place(QPoint(), size);
    place.moveCenter(inner.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !fits);
    painter.drawImage(place, picture_);
  }
  paintEdge(painter, *this, rect());
}

MagnifiedIcon::MagnifiedIcon(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setFixedSize(kMagnifiedSide + 2, kMagnifiedSide + 2);
  setCursor(Qt::CrossCursor);
  setFocusPolicy(Qt::StrongFocus);
}

void MagnifiedIcon::setPicture(const QImage& picture) {
  if (picture.size() != picture_.size()) current_ = {};
  picture_ = picture;
  update();
}

void MagnifiedIcon::setHotSpot(std::optional<QPoint> spot) {
  spot_ = spot;
  update();
}

int MagnifiedIcon::magnification() const {
  return picture_.isNull() ? 1 : std::max(1, kMagnifiedSide / std::max(picture_.width(), picture_.height()));
}

QRect MagnifiedIcon::place() const {
  const QSize size = picture_.size() * magnification();
  return {(width() - size.width()) / 2, (height() - size.height()) / 2, size.width(), size.height()};
}

QRect MagnifiedIcon::placeOf(QPoint pixel) const {
  const int scale = magnification();
  return {place().topLeft() + pixel * scale, QSize(scale, scale)};
}

void MagnifiedIcon::click(QPoint pixel, bool left) const {
  const auto& clicked = left ? leftClicked : rightClicked;
  if (clicked && picture_.rect().contains(pixel)) clicked(pixel);
}

void MagnifiedIcon::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (!place().contains(at)) return;
  const QPoint within = at - place().topLeft();
  current_ = {within.x() / magnification(), within.y() / magnification()};
  if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton) {
    click(current_, event->button() == Qt::LeftButton);
  }
}

void MagnifiedIcon::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Space) return click(current_, !event->modifiers().testFlag(Qt::ShiftModifier));
  const QPoint step(int(key == Qt::Key_Right) - int(key == Qt::Key_Left),
                    int(key == Qt::Key_Down) - int(key == Qt::Key_Up));
  if (step.isNull()) return QWidget::keyPressEvent(event);
  if (picture_.rect().contains(current_ + step)) current_ += step;
  update();
}

void MagnifiedIcon::paintEvent(QPaintEvent*) {
  if (picture_.isNull()) return;
  QPainter painter(this);
  // The ground's squares keep to the icon's pixels.
  const int scale = magnification();
  paintChequer(painter, place(), (kChequer + scale - 1) / scale * scale);
  painter.drawImage(place(), picture_);
  if (scale >= kSmallestGridded) paintGrid(painter);
  paintEdge(painter, *this, place().adjusted(-1, -1, 1, 1));
  if (spot_) paintHotSpot(painter);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(placeOf(current_).adjusted(-1, -1, 0, 0));
}

void MagnifiedIcon::paintGrid(QPainter& painter) const {
  painter.setPen(QColor(128, 128, 128, 70));
  const QRect all = place();
  for (int at = magnification(); at < all.width(); at += magnification()) {
    painter.drawLine(all.left() + at, all.top(), all.left() + at, all.bottom());
  }
  for (int at = magnification(); at < all.height(); at += magnification()) {
    painter.drawLine(all.left(), all.top() + at, all.right(), all.top() + at);
  }
}

void MagnifiedIcon::paintHotSpot(QPainter& painter) const {
  const QRect pixel = placeOf(*spot_);
  const QPoint middle = pixel.center();
  const int reach = std::max(magnification(), kChequer);
  const auto cross = [&](const QColor& colour, double width) {
    painter.setPen(QPen(colour, width));
    painter.drawLine(pixel.left() - reach, middle.y(), pixel.left(), middle.y());
    painter.drawLine(pixel.right(), middle.y(), pixel.right() + reach, middle.y());
    painter.drawLine(middle.x(), pixel.top() - reach, middle.x(), pixel.top());
    painter.drawLine(middle.x(), pixel.bottom(), middle.x(), pixel.bottom() + reach);
    painter.drawRect(pixel.adjusted(0, 0, -1, -1));
  };
  // Light around dark, to stand out from any picture; the pixel itself stays to be seen.
  painter.setBrush(Qt::NoBrush);
  cross(Qt::white, 4);
  cross(QColor("#D0021B"), 2);
}

}  // namespace ruvo
