#include "dialogs/palette_picker.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <algorithm>

#include "base/paths.h"

namespace ruvo {
namespace {

constexpr int kSwatch = 17;
constexpr int kGap = 2;
constexpr int kMargin = 10;
constexpr int kHeading = 24;

Colour fromHsl(double hue, double saturation, double lightness) {
  const QColor colour =
      QColor::fromHslF(static_cast<float>(hue), static_cast<float>(saturation), static_cast<float>(lightness));
  return rgb(colour.red(), colour.green(), colour.blue());
}

}  // namespace

std::vector<Colour> PalettePicker::colours(Kind kind) {
  std::vector<Colour> made;
  if (kind == Kind::WebSafe) {
    // Six blocks of six by six, three beside each other in two rows.
    for (int row = 0; row < 12; ++row)
      for (int column = 0; column < 18; ++column)
        made.push_back(rgb((row / 6 * 3 + column / 6) * 0x33, row % 6 * 0x33, column % 6 * 0x33));
    return made;
  }
  constexpr int kHues = 16;
  constexpr int kShades = 15;
  for (int grey = 0; grey < kHues; ++grey) made.push_back(rgb(grey * 17, grey * 17, grey * 17));
  for (int shade = 0; shade < kShades; ++shade)
    for (int hue = 0; hue < kHues; ++hue)
      made.push_back(
          fromHsl(hue / static_cast<double>(kHues), shade % 3 == 2 ? 0.45 : 1.0, 0.1 + 0.82 * shade / (kShades - 1)));
  return made;
}

PalettePicker::PalettePicker(Kind kind, Colour current, QWidget* parent, std::function<void(Colour)> chosen)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint),
      colours_(colours(kind)),
      current_(current),
      columns_(kind == Kind::WebSafe ? 18 : 16),
      chosen_(std::move(chosen)) {
  setObjectName(kind == Kind::WebSafe ? "frmRuvoPaletteWebSafe" : "frmRuvoPalette256");
  setWindowTitle(kind == Kind::WebSafe ? "Web safe palette" : "256-color palette");
  setAttribute(Qt::WA_DeleteOnClose);
  setMouseTracking(true);
  const int rows = static_cast<int>(colours_.size()) / columns_;
  setFixedSize(2 * kMargin + columns_ * (kSwatch + kGap) - kGap,
               2 * kMargin + kHeading + rows * (kSwatch + kGap) - kGap);
}

void PalettePicker::showBeside(const QPoint& place) {
  const QRect screen = (parentWidget() != nullptr ? parentWidget()->screen() : QWidget::screen())->availableGeometry();
  move(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width())),
       std::clamp(place.y(), screen.top(), std::max(screen.top(), screen.bottom() - height())));
  show();
}

QRect PalettePicker::swatchRect(int index) const {
  return {kMargin + index % columns_ * (kSwatch + kGap), kMargin + kHeading + index / columns_ * (kSwatch + kGap),
          kSwatch, kSwatch};
}

int PalettePicker::swatchAt(const QPoint& place) const {
  for (int i = 0; i < static_cast<int>(colours_.size()); ++i)
    if (swatchRect(i).adjusted(-1, -1, 1, 1).contains(place)) return i;
  return -1;
}

void PalettePicker::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Window));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  const QRect heading(kMargin, kMargin - 2, width() - 2 * kMargin, kHeading - 4);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(heading, Qt::AlignLeft | Qt::AlignVCenter, windowTitle());
  if (hovered_ >= 0) {
    const Colour c = colours_[static_cast<std::size_t>(hovered_)];
    painter.drawText(heading, Qt::AlignRight | Qt::AlignVCenter,
                     "#" + QString::fromStdString(hexColour({redOf(c), greenOf(c), blueOf(c)})));
  }
  for (int i = 0; i < static_cast<int>(colours_.size()); ++i) {
    const Colour c = colours_[static_cast<std::size_t>(i)];
    painter.fillRect(swatchRect(i), QColor(redOf(c), greenOf(c), blueOf(c)));
    if (i != hovered_ && c != current_) continue;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(swatchRect(i).adjusted(0, 0, -1, -1));
  }
}

void PalettePicker::mouseMoveEvent(QMouseEvent* event) {
  hovered_ = swatchAt(event->position().toPoint());
  update();
}

void PalettePicker::leaveEvent(QEvent*) {
  hovered_ = -1;
  update();
}

void PalettePicker::mousePressEvent(QMouseEvent* event) {
  const int index = swatchAt(event->position().toPoint());
  if (index >= 0) {
    choose(index);
  } else if (!rect().contains(event->position().toPoint())) {
    close();
  }
}

void PalettePicker::choose(int index) {
  const auto chosen = chosen_;
  const Colour colour = colours_[static_cast<std::size_t>(index)];
  close();
  chosen(colour);
}

// The arrows walk from the current colour, Enter or Space takes.
void PalettePicker::keyPressEvent(QKeyEvent* event) {
  const int last = static_cast<int>(colours_.size()) - 1;
  int step = 0;
  switch (event->key()) {
    case Qt::Key_Left:
      step = -1;
      break;
    case Qt::Key_Right:
      step = 1;
      break;
    case Qt::Key_Up:
      step = -columns_;
      break;
    case Qt::Key_Down:
      step = columns_;
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (hovered_ >= 0) choose(hovered_);
      return;
    case Qt::Key_Escape:
      close();
      return;
    default:
      return QWidget::keyPressEvent(event);
  }
  const auto current = std::find(colours_.begin(), colours_.end(), current_);
  const int from = hovered_ >= 0               ? hovered_
                   : current == colours_.end() ? 0
                                               : static_cast<int>(current - colours_.begin());
  if (from + step >= 0 && from + step <= last) hovered_ = from + step;
  update();
}

bool PalettePicker::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    auto* help = static_cast<QHelpEvent*>(event);
    const int index = swatchAt(help->pos());
    if (index < 0) return true;
    const Colour c = colours_[static_cast<std::size_t>(index)];
    QToolTip::showText(help->globalPos(),
                       QStringLiteral("RGB ( %1,  %2,  %3 )").arg(redOf(c)).arg(greenOf(c)).arg(blueOf(c)), this);
    return true;
  }
  return QWidget::event(event);
}

}  // namespace ruvo
