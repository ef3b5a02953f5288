#include "canvas/canvas_bars.h"

#include <QSignalBlocker>
#include <cmath>

namespace ruvo {
namespace {
constexpr int kLargeStep = 100;
}  // namespace

CanvasBars::CanvasBars(QWidget& control, std::function<void(int x, int y)> scrolled)
    : control_(control),
      HsbDisp(hiddenChild(new QScrollBar(Qt::Horizontal, &control), QStringLiteral("HsbDisp"))),
      VsbDisp(hiddenChild(new QScrollBar(Qt::Vertical, &control), QStringLiteral("VsbDisp"))),
      picJunction(hiddenChild(new QWidget(&control), QStringLiteral("picJunction"))) {
  picJunction->setAutoFillBackground(true);
  for (QScrollBar* bar : {HsbDisp, VsbDisp}) {
    bar->setCursor(Qt::ArrowCursor);
    QObject::connect(bar, &QScrollBar::valueChanged, &control,
                     [this, scrolled] { scrolled(HsbDisp->value(), VsbDisp->value()); });
  }
}

int CanvasBars::thickness() const {
  return VsbDisp->sizeHint().width();
}

Size CanvasBars::deviceThickness() const {
  const int bar = static_cast<int>(std::ceil(thickness() * control_.devicePixelRatioF()));
  return {bar, bar};
}

void CanvasBars::arrange(const ViewGeometry& view) {
  const int bar = thickness();
  const int right = control_.width() - (view.verticalBar ? bar : 0);
  const int bottom = control_.height() - (view.horizontalBar ? bar : 0);
  arrangeBar(*HsbDisp, view.horizontalBar, QRect(0, bottom, right, bar), view, true);
  arrangeBar(*VsbDisp, view.verticalBar, QRect(right, 0, bar, bottom), view, false);
  picJunction->setGeometry(right, bottom, bar, bar);
  picJunction->setVisible(view.horizontalBar && view.verticalBar);
}

// The view knows already what it tells the bar, so the bar must not report it back.
void CanvasBars::arrangeBar(QScrollBar& bar, bool shown, const QRect& place, const ViewGeometry& view,
                            bool horizontal) {
  const QSignalBlocker quiet(&bar);
  bar.setRange(0, horizontal ? view.ScrollMaxX : view.ScrollMaxY);
  bar.setSingleStep(view.Magnify);
  bar.setPageStep(std::clamp(horizontal ? view.picDisp.width() : view.picDisp.height(), 1, kLargeStep));
  bar.setValue(horizontal ? view.ScrollX : view.ScrollY);
  if (shown) bar.setGeometry(place);
  bar.setVisible(shown);
}

}  // namespace ruvo
