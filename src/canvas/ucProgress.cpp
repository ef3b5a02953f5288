#include "canvas/ucProgress.h"

#include <QPainter>
#include <algorithm>

namespace ruvo {

ucProgress::ucProgress(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ucProgress::setBorderStyle(int style) {
  borderStyle_ = style;
  update();
}

void ucProgress::setBackColor(const QColor& color) {
  backColor_ = color;
  update();
}

void ucProgress::setForeColor(const QColor& color) {
  foreColor_ = color;
  update();
}

void ucProgress::setMax(int max) {
  max_ = std::max(1, max);
  value_ = std::min(value_, max_);
  update();
}

void ucProgress::setValue(int value) {
  const int before = filledWidth();
  value_ = std::clamp(value, 0, max_);
  if (filledWidth() != before) repaint();
}

QSize ucProgress::sizeHint() const {
  return {150, fontMetrics().height()};
}

int ucProgress::filledWidth() const {
  return static_cast<int>(static_cast<qint64>(width()) * value_ / max_);
}

void ucProgress::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  painter.fillRect(rect(), backColor_.isValid() ? backColor_ : palette().color(group, QPalette::Base));
  const QColor bar = foreColor_.isValid() ? foreColor_ : palette().color(group, QPalette::Highlight);
  painter.fillRect(QRect(0, 0, filledWidth(), height()), bar);
  if (borderStyle_ == 0) return;
  painter.setPen(palette().color(group, QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace ruvo
