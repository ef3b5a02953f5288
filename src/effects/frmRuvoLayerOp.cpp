#include "effects/frmRuvoLayerOp.h"

#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "canvas/ucCanvasA.h"
#include "dialogs/named_controls.h"
#include "effects/effect_controls.h"
#include "effects/model/effect_table.h"
#include "effects/sample_panel.h"

namespace ruvo {
namespace {

// Arguments of the effect.
enum Place : std::size_t { kPicture = 0, kLeft = 2, kTop = 3 };

// As far as a layer of twice the picture's size can still show something.
std::vector<EffectArgument> argumentsFor(const Effect& effect, Size picture) {
  std::vector<EffectArgument> arguments(effect.arguments.begin(), effect.arguments.end());
  arguments[kLeft].low = -2.0 * picture.width;
  arguments[kLeft].high = picture.width;
  arguments[kTop].low = -2.0 * picture.height;
  arguments[kTop].high = picture.height;
  return arguments;
}

}  // namespace

frmRuvoLayerOp::frmRuvoLayerOp(const EffectSubject& subject, EffectHost& host, QWidget* parent)
    : ArgumentWindow(QStringLiteral("frmRuvoLayerOp"), *effectOf("layer"),
                     argumentsFor(*effectOf("layer"), subject.picture.size()), subject, host, parent) {
  auto* center = namedButton("cmdCenter", tr("&Center"), this);
  center->setToolTip(tr("Puts the second picture in the middle"));
  connect(center, &QPushButton::clicked, this, &frmRuvoLayerOp::centre);
  controls()->insertWidget(1, center, 0, Qt::AlignLeft);
  controls()->insertWidget(2, namedLabel("lblHint", tr("Drag the second picture on the sample to its place."), this));
  for (QWidget* part : sample()->picture().findChildren<QWidget*>()) part->installEventFilter(this);
}

void frmRuvoLayerOp::centre() {
  const auto& second = entered().values()[kPicture].picture;
  if (!second) return;
  const Size picture = subject().picture.size();
  entered().setNumber(kLeft, (picture.width - second->DIBWidth()) / 2);
  entered().setNumber(kTop, (picture.height - second->DIBHeight()) / 2);
}

// At full size a press with the Shift key moves the view, as the left button does elsewhere.
bool frmRuvoLayerOp::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool mouse = type == QEvent::MouseButtonPress || type == QEvent::MouseMove || type == QEvent::MouseButtonRelease;
  if (!mouse || !entered().values()[kPicture].picture) return ArgumentWindow::eventFilter(watched, event);
  const auto& at = *static_cast<QMouseEvent*>(event);
  if (type == QEvent::MouseButtonPress && at.button() == Qt::LeftButton && !(at.modifiers() & Qt::ShiftModifier)) {
    grab_ = at.position();
    return true;
  }
  if (!grab_) return ArgumentWindow::eventFilter(watched, event);
  if (type == QEvent::MouseMove && (at.buttons() & Qt::LeftButton)) {
    dragTo(at.position());
  } else {
    grab_.reset();
  }
  return true;
}

// Only whole pixels of the picture are taken up; the rest waits for the next move.
void frmRuvoLayerOp::dragTo(QPointF place) {
  const double pixels = devicePixelRatioF() / sample()->scale();
  const QPoint moved = ((place - *grab_) * pixels).toPoint();
  if (moved.isNull()) return;
  *grab_ += QPointF(moved) / pixels;
  const auto& values = entered().values();
  const double left = values[kLeft].number + moved.x(), top = values[kTop].number + moved.y();
  entered().setNumber(kLeft, left);
  entered().setNumber(kTop, top);
}

}  // namespace ruvo
