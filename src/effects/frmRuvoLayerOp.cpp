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

constexpr const char* kName = "frmRuvoLayerOp";
// Arguments of the effect.
enum Place : std::size_t { kPicture = 0, kLeft = 2, kTop = 3 };

struct PlaceRange {
  double low, high;
};

// As far as the layer can still show something.
PlaceRange placeRange(int picture, int layer) {
  return {-static_cast<double>(std::max(picture, layer)), static_cast<double>(picture)};
}

std::vector<EffectArgument> argumentsFor(const Effect& effect, Size picture, Size layer) {
  std::vector<EffectArgument> arguments(effect.arguments.begin(), effect.arguments.end());
  const auto limit = [&arguments](std::size_t i, PlaceRange range) {
    arguments[i].low = range.low;
    arguments[i].high = range.high;
  };
  limit(kLeft, placeRange(picture.width, layer.width));
  limit(kTop, placeRange(picture.height, layer.height));
  return arguments;
}

// Of the picture that the window begins with.
Size rememberedSize(const EffectHost& host) {
  const auto last = host.remembered.find(kName);
  return last != host.remembered.end() && last->second[kPicture].picture ? last->second[kPicture].picture->size()
                                                                         : Size{};
}

}  // namespace

frmRuvoLayerOp::frmRuvoLayerOp(const EffectSubject& subject, EffectHost& host, QWidget* parent)
    : ArgumentWindow(QString::fromLatin1(kName), *effectOf("layer"),
                     argumentsFor(*effectOf("layer"), subject.picture.size(), rememberedSize(host)), subject, host,
                     parent),
      layer_(rememberedSize(host)) {
  auto* center = namedButton("cmdCenter", tr("&Center"), this);
  center->setToolTip(tr("Puts the second picture in the middle"));
  connect(center, &QPushButton::clicked, this, &frmRuvoLayerOp::centre);
  auto* hint = namedLabel("lblHint", tr("Drag the second picture on the sample to its place."), this);
  // Below the rows, above what stretches.
  controls()->insertWidget(controls()->count() - 1, center, 0, Qt::AlignLeft);
  controls()->insertWidget(controls()->count() - 1, hint);
  connect(&entered(), &EffectControls::changed, this, &frmRuvoLayerOp::limitPlace);
  for (QWidget* part : sample()->picture().findChildren<QWidget*>()) part->installEventFilter(this);
}

// A picture that was just loaded may be of any size.
void frmRuvoLayerOp::limitPlace() {
  const auto& second = entered().values()[kPicture].picture;
  if (!second || second->size() == layer_) return;
  layer_ = second->size();
  const Size picture = subject().picture.size();
  const auto limit = [this](std::size_t i, PlaceRange range) { entered().setRange(i, range.low, range.high); };
  limit(kLeft, placeRange(picture.width, layer_.width));
  limit(kTop, placeRange(picture.height, layer_.height));
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
