#include "effects/sample_panel.h"

#include <QCheckBox>
#include <QScreen>
#include <QVBoxLayout>

#include "canvas/ucCanvasA.h"
#include "dialogs/named_controls.h"
#include "effects/model/layer.h"
#include "effects/model/reduced_copy.h"
#include "platform/desktop/cursors.h"

namespace ruvo {
namespace {

// Of the view, in logical pixels; on a small screen at most these parts of it, so that the controls have room.
constexpr QSize kLeastSide(380, 300);
constexpr int kPartOfWidth = 3;
constexpr int kPartOfHeight = 2;
constexpr int kFrame = 2;  // device pixels that the view leaves free around a fitted picture
// From this many pixels on a sample waits until the hand rests.
constexpr std::int64_t kQuickPixels = 1000000;
constexpr int kRestMs = 120;

}  // namespace

SamplePanel::SamplePanel(const EffectSubject& subject, Apply apply, QWidget* parent)
    : QWidget(parent), subject_(subject.picture), beneath_(subject.beneath), apply_(std::move(apply)) {
  picSample_ = new ucCanvasA(this);
  picSample_->setObjectName(QStringLiteral("picSample"));
  const QSize room = screen()->availableSize();
  picSample_->setMinimumSize(kLeastSide.boundedTo({room.width() / kPartOfWidth, room.height() / kPartOfHeight}));
  picSample_->setFitInView(true);
  picSample_->setToReportRightClickDataInScrollMode(true);
  ckbShowFullSize_ = namedCheckBox("ckbShowFullSize", tr("Show &full size"), this);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(picSample_, 1);
  column->addWidget(ckbShowFullSize_);

  later_.setSingleShot(true);
  later_.setInterval(kRestMs);
  connect(&later_, &QTimer::timeout, this, &SamplePanel::show);
  connect(ckbShowFullSize_, &QCheckBox::toggled, this, [this] {
    picSample_->setFitInView(!fullSize());
    prepare();
    show();
  });
  connect(picSample_, &ucCanvasA::NotifyClickData, this, [this](int, Colour, int x, int y) { pick(x, y); });
}

bool SamplePanel::fullSize() const {
  return ckbShowFullSize_->isChecked();
}

void SamplePanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // The view has its new size only when the layout has been at work.
  QTimer::singleShot(0, this, [this] {
    prepare();
    refresh();
  });
}

void SamplePanel::prepare() {
  prepared_ = true;
  const qreal ratio = picSample_->devicePixelRatioF();
  const Size room{qRound(picSample_->width() * ratio) - kFrame, qRound(picSample_->height() * ratio) - kFrame};
  int x = 0, y = 0, width = 0, height = 0;
  subject_.GetBestFitPointAndSize(std::max(1, room.width), std::max(1, room.height), x, y, width, height, false);
  if (fullSize() || Size{width, height} == subject_.size()) {
    reduced_.ClearUp();
    reducedBeneath_.ClearUp();
    scale_ = 1;
    return;
  }
  if (reduced_.size() == Size{width, height}) return;
  scale_ = static_cast<double>(width) / subject_.DIBWidth();
  reducedBeneath_.ClearUp();
  if (subject_.DIBhasAlpha()) {
    reducedCopy(subject_, Size{width, height}, reduced_);
    if (beneath_) reducedCopy(*beneath_, Size{width, height}, reducedBeneath_);
  } else if (reduced_.CreateBlankDIB(width, height, 32, kWhite)) {
    clsDIB::StretchPaintFromDIBtoDIB(subject_, reduced_, true);
  }
}

void SamplePanel::refresh() {
  if (!prepared_) return;
  const clsDIB& source = reduced_.empty() ? subject_ : reduced_;
  const std::int64_t pixels = static_cast<std::int64_t>(source.DIBWidth()) * source.DIBHeight();
  if (pixels > kQuickPixels) return later_.start();
  show();
}

void SamplePanel::show() {
  later_.stop();
  const clsDIB& source = reduced_.empty() ? subject_ : reduced_;
  clsDIB sample;
  {
    std::optional<WaitCursor> wait;
    if (reduced_.empty()) wait.emplace();
    if (!clsDIB::CloneDIB(source, sample, kWhite, source.BottomUp())) return;
    // Without a result the picture is shown as it is.
    if (!apply_(sample, scale_)) clsDIB::CloneDIB(source, sample, kWhite, source.BottomUp());
  }
  layOnGround(sample);
  picSample_->DIB() = std::move(sample);
  picSample_->CanvasPicPaint();
}

// As it will lie in the picture; what has no ground is shown on white.
void SamplePanel::layOnGround(clsDIB& sample) const {
  const clsDIB& ground = reduced_.empty() && beneath_ ? *beneath_ : reducedBeneath_;
  clsDIB seen;
  if (!sample.DIBhasAlpha() || ground.size() != sample.size() ||
      !clsDIB::CloneDIB(ground, seen, kWhite, ground.BottomUp())) {
    return;
  }
  layPicture(seen, sample, {}, {});
  sample = std::move(seen);
}

// A sample that has grown shows other places than the picture has.
void SamplePanel::pick(int x, int y) {
  if (pickSeen_) {
    if (const auto colour = picSample_->DIB_XY_Color(x, y)) Q_EMIT colourPicked(*colour);
    return;
  }
  const clsDIB& source = reduced_.empty() ? subject_ : reduced_;
  const raster::Surface& pixels = source.surface();
  if (picSample_->DIB().size() != source.size() || !pixels.bounds().contains(x, y)) return;
  const auto* row = reinterpret_cast<const Pixel32*>(pixels.pictureRow(y));
  Q_EMIT colourPicked(row[x].colour());
}

}  // namespace ruvo
