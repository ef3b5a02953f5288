#include "animation/gif_field.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "animation/surface_drawing.h"
#include "platform/theme/controls.h"
#include "platform/theme/theme.h"

namespace ruvo {

GifField::GifField(QWidget* parent) : QWidget(parent) {
  setObjectName("picDisp");
  setAttribute(Qt::WA_OpaquePaintEvent);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, [this] { tick(); });
}

void GifField::setGif(const clsGIF* gif) {
  gif_ = gif;
  selected_ = frame_ = 1;
  changed();
}

void GifField::changed() {
  stop();
  const int count = gif_ ? gif_->FramesCount() : 0;
  if (count < 1 || !view_.create(*gif_, theme::fromQColor(palette().color(QPalette::Base)))) view_.clear();
  showFrame(std::clamp(selected_, 1, std::max(1, count)));
}

void GifField::setPattern(BgdPattern pattern) {
  pattern_ = pattern;
  if (!running()) showFrame(selected_);
}

void GifField::showFrame(int frame) {
  const bool ran = running();
  timer_.stop();
  selected_ = frame_ = frame;
  if (gif_ && view_.width() > 0) view_.composeStill(*gif_, frame_, pattern_);
  update();
  if (ran) Q_EMIT runningChanged(false);
}

void GifField::start() {
  if (running() || !gif_ || gif_->FramesCount() < 2 || view_.width() < 1) return;
  view_.start();
  timer_.start(0);
  Q_EMIT runningChanged(true);
}

void GifField::stop() {
  if (running()) showFrame(selected_);
}

void GifField::tick() {
  const GifView::Tick now = view_.tick(*gif_, pattern_);
  if (now.frame < 1) return stop();
  frame_ = now.frame;
  timer_.setInterval(now.milliseconds);
  update();
  Q_EMIT ticked(frame_);
}

QRect GifField::pictureRect() const {
  constexpr int kEachSide = kDisplayMargin / 2;
  return centredBox({view_.width(), view_.height()}, rect().adjusted(kEachSide, kEachSide, -kEachSide, -kEachSide));
}

QPoint GifField::framePointAt(const QPoint& place) const {
  constexpr QPoint kOutside(-1, -1);
  const QRect picture = pictureRect();
  if (!gif_ || !picture.contains(place)) return kOutside;
  const QPoint onScreen((place.x() - picture.left()) * view_.width() / picture.width(),
                        (place.y() - picture.top()) * view_.height() / picture.height());
  const QPoint onFrame = onScreen - QPoint(gif_->FrameLeft(frame_), gif_->FrameTop(frame_));
  const QRect frame(0, 0, gif_->FrameWidth(frame_), gif_->FrameHeight(frame_));
  return frame.contains(onFrame) ? onFrame : kOutside;
}

QSize GifField::sizeHint() const {
  return {420, 340};
}

void GifField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), theme::roles().workspace);
  const QRect picture = pictureRect();
  if (!picture.isEmpty()) drawSurface(painter, picture, view_.shown(), view_.shownArea());
}

void GifField::mousePressEvent(QMouseEvent* event) {
  const QPoint place = framePointAt(event->position().toPoint());
  if (place.x() >= 0) Q_EMIT pressed(place, event->button());
}

void GifField::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && gif_) changed();
}

}  // namespace ruvo
