#include "effects/text_sample.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "base/rounding.h"
#include "canvas/engine/region_compose.h"
#include "canvas/picture_view.h"
#include "effects/text_picture.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr QSize kSampleSize(560, 190);
constexpr int kMargin = 14;          // around the text, device pixels
constexpr double kLeastScale = 0.1;  // smaller letters could not be told apart

// The part of the picture that the sample shows at `scale`, and where it lies there.
void drawPart(const clsDIB& picture, clsDIB& sample, Point corner, double scale) {
  const auto toPicture = [scale](int at, int from) { return from + (at - kMargin) / scale; };
  const auto toSample = [scale](int at, int from) { return roundToInt((at - from) * scale) + kMargin; };
  const Rect wanted{static_cast<int>(std::floor(toPicture(0, corner.x))),
                    static_cast<int>(std::floor(toPicture(0, corner.y))),
                    static_cast<int>(std::ceil(toPicture(sample.DIBWidth(), corner.x))),
                    static_cast<int>(std::ceil(toPicture(sample.DIBHeight(), corner.y)))};
  const Rect part = wanted.intersected(picture.surface().bounds());
  if (part.empty()) return;
  const Point at{toSample(part.left, corner.x), toSample(part.top, corner.y)};
  const Size size{toSample(part.right, corner.x) - at.x, toSample(part.bottom, corner.y) - at.y};
  if (size.width < 1 || size.height < 1) return;
  clsDIB seen;
  if (!seen.CreateBlankDIB(size.width, size.height, 32, kWhite)) return;
  seen.setDIBhasAlpha(picture.DIBhasAlpha());
  clsDIB::StretchPaintFromDIBtoDIB(picture, seen, false, 0, 0, 0, 0, part.left, part.top, part.width(), part.height());
  clsDIB flat;
  if (!flat.CreateBlankDIB(size.width, size.height, 32, kWhite)) return;
  clsDIB::Display_DIB_With_Alpha(seen, flat.surface(), kWhite);
  clsDIB::PaintFromDIBtoDIB(flat, sample, at.x, at.y);
}

}  // namespace

TextSample::TextSample(const clsDIB* ground, Point corner, QWidget* parent)
    : QWidget(parent), ground_(ground), corner_(corner) {
  setObjectName(QStringLiteral("picSample"));
  setMinimumSize(kSampleSize);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize TextSample::sizeHint() const {
  return kSampleSize;
}

Size TextSample::deviceSize() const {
  const double ratio = devicePixelRatioF();
  return {static_cast<int>(std::lround(width() * ratio)), static_cast<int>(std::lround(height() * ratio))};
}

void TextSample::show(const TextPicture& text) {
  text_ = &text;
  make();
}

void TextSample::drawGround(clsDIB& sample) const {
  if (ground_ && !ground_->empty()) drawPart(*ground_, sample, corner_, scale_);
}

void TextSample::make() {
  const Size size = deviceSize();
  const bool onPicture = ground_ && !ground_->empty();
  const Colour around = onPicture ? theme::fromQColor(workspaceColour(*this)) : kWhite;
  clsDIB sample;
  if (size.empty() || !sample.CreateBlankDIB(size.width, size.height, 32, around, true)) return;
  scale_ = 1;
  if (text_ && !text_->empty()) {
    const double across = (size.width - 2.0 * kMargin) / static_cast<double>(text_->width());
    const double down = (size.height - 2.0 * kMargin) / static_cast<double>(text_->height());
    scale_ = std::clamp(std::min(across, down), kLeastScale, 1.0);
  }
  drawGround(sample);
  clsDIB letters;
  if (text_ && text_->renderSample(letters, scale_, {size.width - kMargin, size.height - kMargin}))
    composeSoft(sample, sample, letters, {}, {kMargin, kMargin}, 100);
  image_ = QImage(sample.DIBBitsPtr(), size.width, size.height, sample.BytesPerScanline(), QImage::Format_RGB32).copy();
  image_.setDevicePixelRatio(devicePixelRatioF());
  update();
}

void TextSample::paintEvent(QPaintEvent*) {
  // The window has come to a screen of another scale.
  if (image_.isNull() || image_.devicePixelRatio() != devicePixelRatioF()) make();
  QPainter painter(this);
  painter.drawImage(0, 0, image_);
}

void TextSample::resizeEvent(QResizeEvent*) {
  make();
}

}  // namespace ruvo
