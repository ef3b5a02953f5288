#include "animation/film_strip.h"

#include <QHBoxLayout>
#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleHints>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>

#include "animation/surface_drawing.h"
#include "platform/theme/controls.h"
#include "platform/theme/theme.h"

namespace ruvo {
namespace {

constexpr int kFilmWidth = 164;
constexpr int kEdgeWidth = 20;   // of a perforated edge
constexpr int kEdgePeriod = 18;  // from hole to hole
constexpr int kBoxWidth = 2;     // of the line around a frame
constexpr int kAroundFrame = 5;  // from one frame's place to the next one's
constexpr int kDragScrollMs = 200;
const QColor kCurrentBox(0, 0, 255);
const QColor kDropMark(224, 138, 43);

// Film is grey in either theme, so that the blue of the current frame stands out from it.
QColor filmColor() {
  return theme::roles().dark ? QColor("#98A2AE") : QColor("#C7CED7");
}
QColor boxColor() {
  return theme::roles().dark ? QColor("#7A8591") : QColor("#A3ADB9");
}

// One hole of the perforation with the film around it ("picFilmEdge").
QPixmap filmEdge(qreal scale) {
  QPixmap tile(QSize(kEdgeWidth, kEdgePeriod) * scale);
  tile.setDevicePixelRatio(scale);
  tile.fill(filmColor());
  QPainter painter(&tile);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme::roles().window);
  painter.drawRoundedRect(QRectF(5, 4, kEdgeWidth - 10, kEdgePeriod - 8), 2.5, 2.5);
  return tile;
}

}  // namespace

// The film itself: draws what the bar shows, and takes clicks, keys and drags.
class FilmStrip::Film : public QWidget {
 public:
  explicit Film(FilmStrip& strip) : QWidget(&strip), strip_(strip) {
    setObjectName("picFilm");
    setAccessibleName("Film strip");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedWidth(kFilmWidth);
    setFocusPolicy(Qt::ClickFocus);
    connect(&dragScroll_, &QTimer::timeout, this, [this] { scrollWhileDragging(); });
    dragScroll_.setInterval(kDragScrollMs);
  }

  // Pictures of all frames are out of date.
  void forget() {
    endDrag();
    pictures_.clear();
    view_.clear();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override { QCoreApplication::sendEvent(strip_.bar_, event); }
  void resizeEvent(QResizeEvent*) override { pictures_.clear(); }
  void changeEvent(QEvent* event) override {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) forget();
  }

 private:
  int count() const { return strip_.gif_ ? strip_.gif_->FramesCount() : 0; }
  int first() const { return strip_.bar_->value() + 1; }
  QRect placeOf(int frame) const;
  int frameAt(const QPoint& place) const;
  const QImage& pictureOf(int frame, QSize room);
  void drawFrame(QPainter& painter, int frame);
  void drawDropMark(QPainter& painter);
  int gapAt(int y) const;
  void scrollWhileDragging();
  void endDrag();

  FilmStrip& strip_;
  GifView view_;
  QHash<int, QImage> pictures_;
  int pressed_ = 0;  // frame
  QPoint pressedAt_;
  QPoint mouse_;
  bool dragging_ = false;
  QTimer dragScroll_;
};

QRect FilmStrip::Film::placeOf(int frame) const {
  const int place = frame - first();
  const auto edge = [this](int n) { return kAroundFrame + (height() - kAroundFrame) * n / kFramesShown; };
  return QRect(QPoint(kEdgeWidth, edge(place)), QPoint(width() - kEdgeWidth - 1, edge(place + 1) - kAroundFrame - 1));
}

int FilmStrip::Film::frameAt(const QPoint& place) const {
  for (int frame = first(); frame < first() + kFramesShown && frame <= count(); ++frame)
    if (placeOf(frame).contains(place)) return frame;
  return 0;
}

// The frame's picture at the size of its box, kept until something changes.
const QImage& FilmStrip::Film::pictureOf(int frame, QSize room) {
  const qreal scale = devicePixelRatioF();
  QImage& kept = pictures_[frame];
  if (!kept.isNull()) return kept;
  if (view_.width() < 1 && !view_.create(*strip_.gif_, theme::fromQColor(palette().color(QPalette::Base)))) return kept;
  view_.composeStill(*strip_.gif_, frame, strip_.pattern_);
  const QRect box = centredBox({view_.width(), view_.height()}, QRect(QPoint(), room));
  kept = QImage(box.size() * scale, QImage::Format_ARGB32_Premultiplied);
  kept.setDevicePixelRatio(scale);
  kept.fill(Qt::transparent);
  QPainter painter(&kept);
  drawSurface(painter, QRect(QPoint(), box.size()), view_.shown(), view_.shownArea());
  return kept;
}

void FilmStrip::Film::drawFrame(QPainter& painter, int frame) {
  const QRect place = placeOf(frame);
  const bool current = frame == strip_.selected_;
  painter.fillRect(place, current ? kCurrentBox : boxColor());
  const QRect inner = place.adjusted(kBoxWidth, kBoxWidth, -kBoxWidth, -kBoxWidth);
  painter.fillRect(inner, theme::roles().workspace);
  const QImage& picture = pictureOf(frame, inner.size());
  if (!picture.isNull()) {
    QRect box(QPoint(), picture.size() / picture.devicePixelRatio());
    box.moveCenter(inner.center());
    painter.drawImage(box.topLeft(), picture);
  }
  const QString number = QString::number(frame);
  QRect label(inner.topLeft(),
              QSize(painter.fontMetrics().horizontalAdvance(number) + 8, painter.fontMetrics().height()));
  painter.fillRect(label, current ? kCurrentBox : boxColor());
  painter.setPen(current ? Qt::white : Qt::black);
  painter.drawText(label, Qt::AlignCenter, number);
}

void FilmStrip::Film::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), filmColor());
  const QPixmap edge = filmEdge(devicePixelRatioF());
  painter.drawTiledPixmap(QRect(0, 0, kEdgeWidth, height()), edge);
  painter.drawTiledPixmap(QRect(width() - kEdgeWidth, 0, kEdgeWidth, height()), edge);
  for (int frame = first(); frame < first() + kFramesShown && frame <= count(); ++frame) drawFrame(painter, frame);
  if (dragging_) drawDropMark(painter);
}

// --- Clicks and keys

void FilmStrip::Film::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return endDrag();
  pressedAt_ = event->position().toPoint();
  pressed_ = frameAt(pressedAt_);
  if (pressed_ > 0) Q_EMIT strip_.frameClicked(pressed_);
}

void FilmStrip::Film::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && dragging_) return endDrag();
  const int now = strip_.selected_;
  int asked = 0;
  if (event->key() == Qt::Key_Up) asked = now - 1;
  if (event->key() == Qt::Key_Down) asked = now + 1;
  if (event->key() == Qt::Key_PageUp) asked = std::max(1, now - kFramesShown);
  if (event->key() == Qt::Key_PageDown) asked = std::min(count(), now + kFramesShown);
  if (event->key() == Qt::Key_Home) asked = 1;
  if (event->key() == Qt::Key_End) asked = count();
  if (asked < 1 || asked > count()) return QWidget::keyPressEvent(event);
  Q_EMIT strip_.frameClicked(asked);
}

// --- Dragging a frame to another place

// The number of frames above the place where the frame would go.
int FilmStrip::Film::gapAt(int y) const {
  int gap = first() - 1;
  for (int frame = first(); frame < first() + kFramesShown && frame <= count(); ++frame)
    if (y > placeOf(frame).center().y()) gap = frame;
  return gap;
}

void FilmStrip::Film::drawDropMark(QPainter& painter) {
  const int gap = gapAt(mouse_.y());
  const int y = placeOf(gap + 1).top() - kAroundFrame;
  painter.fillRect(QRect(4, std::clamp(y, 0, height() - kAroundFrame), width() - 8, kAroundFrame), kDropMark);
}

void FilmStrip::Film::mouseMoveEvent(QMouseEvent* event) {
  mouse_ = event->position().toPoint();
  if (!dragging_ && pressed_ > 0 && strip_.movable_ && event->buttons() == Qt::LeftButton && count() > 1 &&
      (mouse_ - pressedAt_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance()) {
    dragging_ = true;
    setCursor(Qt::ClosedHandCursor);
    dragScroll_.start();
  }
  if (dragging_) update();
}

void FilmStrip::Film::scrollWhileDragging() {
  if (mouse_.y() < 0) strip_.bar_->setValue(strip_.bar_->value() - 1);
  if (mouse_.y() >= height()) strip_.bar_->setValue(strip_.bar_->value() + 1);
}

void FilmStrip::Film::endDrag() {
  pressed_ = 0;
  if (!dragging_) return;
  dragging_ = false;
  dragScroll_.stop();
  unsetCursor();
  update();
}

void FilmStrip::Film::mouseReleaseEvent(QMouseEvent*) {
  const bool dropped = dragging_;
  const int from = pressed_;
  endDrag();
  if (!dropped) return;
  const int gap = gapAt(mouse_.y());
  // The frames behind its old place move up by one.
  const int to = gap >= from ? gap : gap + 1;
  if (to != from) Q_EMIT strip_.moveAsked(from, to);
}

// --- The strip

FilmStrip::FilmStrip(QWidget* parent) : QWidget(parent) {
  setObjectName("FilmStrip");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  bar_ = new QScrollBar(Qt::Vertical, this);
  bar_->setObjectName("vsbFilm");
  bar_->setPageStep(kFramesShown);
  film_ = new Film(*this);
  row->addWidget(film_);
  row->addWidget(bar_);
  connect(bar_, &QScrollBar::valueChanged, film_, qOverload<>(&QWidget::update));
  changed();
}

void FilmStrip::setGif(const clsGIF* gif) {
  gif_ = gif;
  changed();
}

void FilmStrip::changed() {
  const int count = gif_ ? gif_->FramesCount() : 0;
  bar_->setMaximum(std::max(0, count - kFramesShown));
  bar_->setEnabled(count > kFramesShown);
  film_->forget();
}

void FilmStrip::setPattern(BgdPattern pattern) {
  pattern_ = pattern;
  film_->forget();
}

void FilmStrip::setSelected(int frame) {
  selected_ = frame;
  const int shownBefore = bar_->value();
  if (frame <= shownBefore || frame > shownBefore + kFramesShown)
    bar_->setValue(frame > kFramesShown ? frame - (kFramesShown - 1) : 0);
  film_->update();
}

QSize FilmStrip::sizeHint() const {
  return {kFilmWidth + bar_->sizeHint().width(), kFramesShown * 96};
}

}  // namespace ruvo
