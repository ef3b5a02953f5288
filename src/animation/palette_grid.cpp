#include "animation/palette_grid.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "animation/model/palette_texts.h"

namespace ruvo {
namespace {

constexpr int kSide = 16;  // boxes in a row, and rows
constexpr int kBoxes = kSide * kSide;
constexpr int kUsualBox = 17;
constexpr int kLeastBox = 10;
constexpr int kGridLine = 1;
constexpr int kFrame = 2;  // around all boxes: room for the focus line

// A white ring between black lines, or broken by black dashes: some of it stands out from any colour.
void drawRing(QPainter& painter, const QRect& box, Qt::PenStyle style) {
  const QRectF place = QRectF(box).adjusted(1, 1, -1, -1);
  const auto ring = [&](const QRectF& where, const QPen& pen) {
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(where);
  };
  ring(place, QPen(Qt::white, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  if (style == Qt::SolidLine) {
    const QPen edge(Qt::black, 1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    ring(place.adjusted(-1.5, -1.5, 1.5, 1.5), edge);
    ring(place.adjusted(1.5, 1.5, -1.5, -1.5), edge);
  } else {
    QPen dashes(Qt::black, 2, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
    dashes.setDashPattern({1.5, 1.5});
    ring(place, dashes);
  }
}

// A small disc in the middle of the box.
void drawTransparentMark(QPainter& painter, const QRect& box) {
  const double radius = std::max(2.0, box.width() / 5.0);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, 1.2));
  painter.setBrush(Qt::white);
  painter.drawEllipse(QRectF(box).center(), radius, radius);
  painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace

PaletteGrid::PaletteGrid(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picPalette"));
  setAccessibleName(tr("Palette"));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  constexpr int kLeast = kSide * kLeastBox + kGridLine + 2 * kFrame;
  setMinimumSize(kLeast, kLeast);
}

void PaletteGrid::setPalette(const GifTable& table, int entries, int transparentIndex) {
  table_ = table;
  entries_ = std::clamp(entries, 0, kBoxes);
  transparent_ = transparentIndex;
  update();
}

void PaletteGrid::clear() {
  selected_ = second_ = -1;
  setPalette({}, 0);
}

void PaletteGrid::setSelectedIndex(int index) {
  selected_ = index;
  update();
}

void PaletteGrid::setSecondIndex(int index) {
  second_ = index;
  update();
}

QString PaletteGrid::hoverText(int index, bool hexDigits) const {
  return QString::fromStdString(paletteHoverText(table_, entries_, index, hexDigits));
}

QSize PaletteGrid::sizeHint() const {
  constexpr int kUsual = kSide * kUsualBox + kGridLine + 2 * kFrame;
  return {kUsual, kUsual};
}

// The colour of the box, without the lines between the boxes.
QRect PaletteGrid::boxOf(int index) const {
  const int step = (std::min(width(), height()) - kGridLine - 2 * kFrame) / kSide;
  return {kFrame + kGridLine + index % kSide * step, kFrame + kGridLine + index / kSide * step, step - kGridLine,
          step - kGridLine};
}

int PaletteGrid::indexAt(const QPoint& place) const {
  const QRect first = boxOf(0);
  const int step = first.width() + kGridLine;
  const QPoint inside = place - first.topLeft();
  if (inside.x() < 0 || inside.y() < 0 || inside.x() >= kSide * step || inside.y() >= kSide * step) return -1;
  return inside.y() / step * kSide + inside.x() / step;
}

void PaletteGrid::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QPalette& colours = palette();
  const QRect all = boxOf(0).united(boxOf(kBoxes - 1)).adjusted(-kGridLine, -kGridLine, kGridLine, kGridLine);
  painter.fillRect(all, colours.color(QPalette::Mid));
  for (int index = 0; index < kBoxes; ++index) {
    const QRect box = boxOf(index);
    if (index < entries_) {
      const raster::TableEntry& entry = table_[static_cast<std::size_t>(index)];
      painter.fillRect(box, QColor(entry.red, entry.green, entry.blue));
      continue;
    }
    painter.fillRect(box, colours.color(QPalette::Window));
    painter.setPen(colours.color(QPalette::Mid));
    painter.drawLine(box.topLeft(), box.bottomRight());
    painter.drawLine(box.bottomLeft(), box.topRight());
  }
  if (transparent_ >= 0 && transparent_ < kBoxes) drawTransparentMark(painter, boxOf(transparent_));
  if (second_ >= 0 && second_ < kBoxes) drawRing(painter, boxOf(second_), Qt::DashLine);
  if (selected_ >= 0 && selected_ < kBoxes) drawRing(painter, boxOf(selected_), Qt::SolidLine);
  if (!hasFocus()) return;
  painter.setPen(colours.color(QPalette::Highlight));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(all.adjusted(-1, -1, 0, 0));
}

void PaletteGrid::mouseMoveEvent(QMouseEvent* event) {
  Q_EMIT hovered(indexAt(event->position().toPoint()));
}

void PaletteGrid::leaveEvent(QEvent*) {
  Q_EMIT hovered(-1);
}

void PaletteGrid::mousePressEvent(QMouseEvent* event) {
  const int index = indexAt(event->position().toPoint());
  if (index >= 0) Q_EMIT clicked(index, event->button());
}

// The box that a key leads to; -1 for a key that leads nowhere. Without a start, the first box.
int PaletteGrid::stepFrom(int index, int key) const {
  static constexpr std::pair<int, int> kSteps[] = {
      {Qt::Key_Left, -1}, {Qt::Key_Right, 1}, {Qt::Key_Up, -kSide}, {Qt::Key_Down, kSide}};
  const int last = std::max(entries_ - 1, 0);
  if (key == Qt::Key_Home) return 0;
  if (key == Qt::Key_End) return last;
  for (const auto& [arrow, step] : kSteps) {
    if (arrow != key) continue;
    if (index < 0) return 0;
    return index + step >= 0 && index + step <= last ? index + step : std::min(index, last);
  }
  return -1;
}

void PaletteGrid::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Menu && selected_ >= 0) {
    Q_EMIT clicked(selected_, Qt::RightButton);
    return;
  }
  const bool second = choosesSecond_ && event->modifiers().testFlag(Qt::ShiftModifier);
  const int index = entries_ > 0 ? stepFrom(second ? second_ : selected_, event->key()) : -1;
  if (index < 0) return QWidget::keyPressEvent(event);
  Q_EMIT clicked(index, second ? Qt::RightButton : Qt::LeftButton);
}

void PaletteGrid::focusInEvent(QFocusEvent*) {
  update();
}

void PaletteGrid::focusOutEvent(QFocusEvent*) {
  update();
}

}  // namespace ruvo
