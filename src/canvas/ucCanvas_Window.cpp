// The child controls of the canvas: bars, handles, guides and notice, and how they follow the core.
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "canvas/canvas_cursors.h"
#include "canvas/ucCanvas_Private.h"
#include "platform/desktop/clipboard_picture.h"

namespace ruvo {
namespace {

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
    if (event->button() == Qt::LeftButton) d_.core.edgePress(edge_, d_.picDisp->toDevice(*event, *this));
  }
  void mouseMoveEvent(QMouseEvent* event) override { d_.core.edgeMove(d_.picDisp->toDevice(*event, *this)); }
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

}  // namespace

ucCanvas::Private::Private(ucCanvas& canvas)
    : q(canvas),
      picDisp(new CanvasView(canvas, *this)),
      bars(canvas, [this](int x, int y) { scrolledByBar(x, y); }),
      picDragHorizontal(hiddenChild(new QWidget(&canvas), QStringLiteral("picDragHorizontal"))),
      picDragVertical(hiddenChild(new QWidget(&canvas), QStringLiteral("picDragVertical"))),
      picLoadingMsg(hiddenChild(new LoadingNotice(canvas, *this), QStringLiteral("picLoadingMsg"))) {
  for (std::size_t i = 0; i < picDrag.size(); ++i) {
    picDrag[i] = hiddenChild(new EdgeHandle(canvas, *this, static_cast<CanvasEdge>(i + 1)),
                             QStringLiteral("picDrag(%1)").arg(i));
  }
  Timer1.setInterval(kToolTick);
  QObject::connect(&Timer1, &QTimer::timeout, &canvas, [this] { core.tick(); });
  for (QWidget* guide : {picDragHorizontal, picDragVertical}) {
    guide->setAutoFillBackground(true);
    guide->setBackgroundRole(QPalette::Highlight);
    guide->setAttribute(Qt::WA_TransparentForMouseEvents);
  }
}

void ucCanvas::Private::takeClient() {
  core.setClient(picDisp->deviceClient(), bars.deviceThickness(), picDisp->markerScale());
}

QColor ucCanvas::Private::surround() const {
  return backColor.isValid() ? backColor : workspaceColour(q);
}

void ucCanvas::Private::repaint(const Rect& control) {
  picDisp->repaintDevice(control);
}

void ucCanvas::Private::arrange() {
  bars.arrange(core.view());
  arrangeEdges();
}

void ucCanvas::Private::arrangeEdges() {
  const EdgeDrag& drag = core.edgeDrag();
  const bool shown = core.edgeHandlesShown();
  for (std::size_t i = 0; i < picDrag.size(); ++i) {
    picDrag[i]->setGeometry(picDisp->toLogical(drag.handles()[i]));
    picDrag[i]->setVisible(shown);
    if (shown) picDrag[i]->raise();
  }
  const bool upright = drag.edge() == CanvasEdge::Left || drag.edge() == CanvasEdge::Right;
  picDragVertical->setVisible(drag.active() && upright);
  picDragHorizontal->setVisible(drag.active() && !upright);
  (upright ? picDragVertical : picDragHorizontal)->setGeometry(picDisp->toLogical(drag.guide()));
}

void ucCanvas::Private::scrolledByBar(int x, int y) {
  if (!core.Busy()) core.SetScrollValues(x, y, true, false);
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
