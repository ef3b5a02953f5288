// The child controls of the canvas: bars, handles, guides and notice, and how they follow the core.
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolTip>
#include <cmath>

#include "canvas/canvas_cursors.h"
#include "canvas/ucCanvas_Private.h"
#include "platform/desktop/clipboard_picture.h"

namespace ruvo {
namespace {

constexpr int kLargeStep = 100;
constexpr QSize kLoadingMsgSize(150, 50);

// A handle at one edge of the picture.
class EdgeHandle final : public QWidget {
 public:
  EdgeHandle(ucCanvas& canvas, ucCanvas::Private& inside, CanvasEdge edge) : QWidget(&canvas), d_(inside), edge_(edge) {
    const bool upright = edge == CanvasEdge::Top || edge == CanvasEdge::Bottom;
    setCursor(upright ? Qt::SizeVerCursor : Qt::SizeHorCursor);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::HighlightedText));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), palette().color(QPalette::Highlight));
  }
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) d_.core.edgePress(edge_, d_.toDevice(*event, *this));
  }
  void mouseMoveEvent(QMouseEvent* event) override { d_.core.edgeMove(d_.toDevice(*event, *this)); }
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) d_.core.edgeRelease();
  }

 private:
  ucCanvas::Private& d_;
  CanvasEdge edge_;
};

class LoadingNotice final : public QWidget {
 public:
  LoadingNotice(ucCanvas& canvas, ucCanvas::Private& inside) : QWidget(&canvas), d_(inside) {
    setFixedSize(kLoadingMsgSize);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), d_.surround());
    painter.setPen(QColor(0, 255, 255));
    painter.drawText(QRect(0, 1, width(), height()), Qt::AlignHCenter | Qt::AlignTop, QStringLiteral("Loading"));
    painter.drawText(QRect(0, 30, width(), height()), Qt::AlignHCenter | Qt::AlignTop,
                     QStringLiteral("Please wait ...."));
  }

 private:
  ucCanvas::Private& d_;
};

// The control's corner on the device, less the whole pixel at which painting begins.
QPointF fractionOfOrigin(const QWidget& view) {
  const QPointF corner = view.mapTo(view.window(), QPointF(0, 0)) * view.devicePixelRatioF();
  return corner - QPointF(std::round(corner.x()), std::round(corner.y()));
}

template <typename Widget>
Widget* named(Widget* widget, const QString& name) {
  widget->setObjectName(name);
  widget->hide();
  return widget;
}

}  // namespace

ucCanvas::Private::Private(ucCanvas& canvas)
    : q(canvas),
      picDisp(new CanvasView(canvas, *this)),
      HsbDisp(named(new QScrollBar(Qt::Horizontal, &canvas), QStringLiteral("HsbDisp"))),
      VsbDisp(named(new QScrollBar(Qt::Vertical, &canvas), QStringLiteral("VsbDisp"))),
      picJunction(named(new QWidget(&canvas), QStringLiteral("picJunction"))),
      picDragHorizontal(named(new QWidget(&canvas), QStringLiteral("picDragHorizontal"))),
      picDragVertical(named(new QWidget(&canvas), QStringLiteral("picDragVertical"))),
      picLoadingMsg(named(new LoadingNotice(canvas, *this), QStringLiteral("picLoadingMsg"))) {
  for (std::size_t i = 0; i < picDrag.size(); ++i) {
    picDrag[i] =
        named(new EdgeHandle(canvas, *this, static_cast<CanvasEdge>(i + 1)), QStringLiteral("picDrag(%1)").arg(i));
  }
  Timer1.setInterval(kToolTick);
  QObject::connect(&Timer1, &QTimer::timeout, &canvas, [this] { core.tick(); });
  picJunction->setAutoFillBackground(true);
  for (QWidget* guide : {picDragHorizontal, picDragVertical}) {
    guide->setAutoFillBackground(true);
    guide->setBackgroundRole(QPalette::Highlight);
    guide->setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  for (QScrollBar* bar : {HsbDisp, VsbDisp}) {
    bar->setCursor(Qt::ArrowCursor);
    QObject::connect(bar, &QScrollBar::valueChanged, &canvas, [this] { scrolledByBar(); });
  }
}

// A widget is told whole logical pixels, which on a scaled screen leave device pixels out; the place in the window has
// kept them. Made-up events may have no such place and are taken as they come.
Point ucCanvas::Private::toDevice(const QMouseEvent& event, const QWidget& receiver) const {
  constexpr double kRoundingSlack = 0.01;
  const QPointF told = receiver.mapTo(&q, event.position());
  const QPointF exact = q.mapFrom(q.window(), event.scenePosition());
  const bool samePlace = std::abs(exact.x() - told.x()) < 1 && std::abs(exact.y() - told.y()) < 1;
  const QPointF at = (samePlace ? exact : told) * picDisp->devicePixelRatioF() + fractionOfOrigin(*picDisp);
  return {static_cast<int>(std::floor(at.x() + kRoundingSlack)), static_cast<int>(std::floor(at.y() + kRoundingSlack))};
}

Size ucCanvas::Private::deviceClient() const {
  const QPointF end = QPointF(q.width(), q.height()) * picDisp->devicePixelRatioF() + fractionOfOrigin(*picDisp);
  return {static_cast<int>(std::lround(end.x())), static_cast<int>(std::lround(end.y()))};
}

QRect ucCanvas::Private::toLogical(const Rect& device) const {
  const double scale = picDisp->devicePixelRatioF();
  const QPointF shift = fractionOfOrigin(*picDisp);
  const QRectF exact(QPointF(device.left, device.top) - shift, QPointF(device.right, device.bottom) - shift);
  return QRectF(exact.topLeft() / scale, exact.bottomRight() / scale).toAlignedRect();
}

int ucCanvas::Private::barThickness() const {
  return VsbDisp->sizeHint().width();
}

void ucCanvas::Private::takeClient() {
  const double scale = picDisp->devicePixelRatioF();
  const int bar = static_cast<int>(std::ceil(barThickness() * scale));
  core.setClient(deviceClient(), {bar, bar}, std::max(1, static_cast<int>(std::lround(scale))));
}

QColor ucCanvas::Private::surround() const {
  if (backColor.isValid()) return backColor;
  const QColor window = q.palette().color(QPalette::Window);
  return window.lightness() > 127 ? window.darker(122) : window.darker(140);
}

void ucCanvas::Private::repaint(const Rect& control) {
  if (!control.empty()) picDisp->update(toLogical(control));
}

void ucCanvas::Private::arrange() {
  const ViewGeometry& view = core.view();
  const int bar = barThickness();
  const int right = q.width() - (view.verticalBar ? bar : 0);
  const int bottom = q.height() - (view.horizontalBar ? bar : 0);
  arrangeBar(*HsbDisp, view.horizontalBar, QRect(0, bottom, right, bar), view.ScrollMaxX, view.ScrollX,
             view.picDisp.width());
  arrangeBar(*VsbDisp, view.verticalBar, QRect(right, 0, bar, bottom), view.ScrollMaxY, view.ScrollY,
             view.picDisp.height());
  picJunction->setGeometry(right, bottom, bar, bar);
  picJunction->setVisible(view.horizontalBar && view.verticalBar);
  arrangeEdges();
}

// The core knows already what it tells the bar, so the bar must not report it back.
void ucCanvas::Private::arrangeBar(QScrollBar& bar, bool shown, const QRect& place, int max, int value, int length) {
  const QSignalBlocker quiet(&bar);
  bar.setRange(0, max);
  bar.setSingleStep(core.view().Magnify);
  bar.setPageStep(std::max(1, std::min(length, kLargeStep)));
  bar.setValue(value);
  if (shown) bar.setGeometry(place);
  bar.setVisible(shown);
}

void ucCanvas::Private::arrangeEdges() {
  const EdgeDrag& drag = core.edgeDrag();
  const bool shown = core.edgeHandlesShown();
  for (std::size_t i = 0; i < picDrag.size(); ++i) {
    picDrag[i]->setGeometry(toLogical(drag.handles()[i]));
    picDrag[i]->setVisible(shown);
    if (shown) picDrag[i]->raise();
  }
  const bool upright = drag.edge() == CanvasEdge::Left || drag.edge() == CanvasEdge::Right;
  picDragVertical->setVisible(drag.active() && upright);
  picDragHorizontal->setVisible(drag.active() && !upright);
  (upright ? picDragVertical : picDragHorizontal)->setGeometry(toLogical(drag.guide()));
}

void ucCanvas::Private::scrolledByBar() {
  if (!core.Busy()) core.SetScrollValues(HsbDisp->value(), VsbDisp->value(), true, false);
}

void ucCanvas::Private::setCursor(CursorWord word) {
  const double scale = picDisp->devicePixelRatioF();
  if (word == CursorWord::Unchanged || (word == cursorShown && scale == cursorScale)) return;
  cursorShown = word;
  cursorScale = scale;
  picDisp->setCursor(canvasCursor(word, scale));
}

void ucCanvas::Private::setToolTip(const std::string& text) {
  const QString shown = QString::fromStdString(text);
  if (shown == picDisp->toolTip()) return;
  picDisp->setToolTip(shown);
  if (QToolTip::isVisible()) QToolTip::showText(QCursor::pos(), shown, picDisp);
}

void ucCanvas::Private::setWaiting(bool waiting) {
  if (waiting) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

void ucCanvas::Private::hideLoadingMsg() {
  picLoadingMsg->hide();
}

void ucCanvas::Private::setTicking(bool on) {
  if (!on) {
    Timer1.stop();
  } else if (!Timer1.isActive()) {
    Timer1.start();
  }
}

void ucCanvas::Private::copyToClipboard(const clsDIB& picture) {
  desktop::putOnClipboard(picture.surface(), picture.DIBhasAlpha());
}

}  // namespace ruvo
