#include "document/model/resize_rules.h"

#include <cmath>

#include "base/limits.h"
#include "base/number_format.h"
#include "base/rounding.h"
#include "document/model/crop_rules.h"
#include "document/model/status_texts.h"
#include "image/basGDIProc.h"
#include "platform/imaging/imaging_service.h"

namespace ruvo {
namespace {

constexpr int kLeastPercent = 10;
constexpr int kMostPercent = 400;
constexpr int kFineStep = 5;  // up to 100
constexpr int kCoarseStep = 25;

constexpr const char* kAreaMakesSideTooLarge =
    "As it will result in width or height exceeding the maxiuum allowed,\ncannot proceed.";

std::string sideOverMaximumText() {
  return "Width or height over the maximum set (" + formatNumber(kMaxPictureSide, kFormatSideLimit) + " pixels)";
}

Size scaled(Size size, double factor) {
  return {roundToInt(size.width * factor), roundToInt(size.height * factor)};
}

std::optional<std::string> percentRefusal(Size wanted, ResizeMethod method) {
  if (wanted.empty()) return kSideTooSmall;
  if (wanted.width > kMaxPictureSide || wanted.height > kMaxPictureSide) {
    // Of an area the sides are only what comes of it.
    return method == ResizeMethod::PercentOfArea ? kAreaMakesSideTooLarge : sideOverMaximumText();
  }
  if (!pictureSizeAllowed(wanted.width, wanted.height)) return thresholdText();
  return std::nullopt;
}

// The alpha of a picture as a grey one, and back.
bool alphaAsGrey(const clsDIB& picture, clsDIB& grey) {
  if (!grey.CreateBlankDIB(picture.DIBWidth(), picture.DIBHeight(), 32, kBlack)) return false;
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    const auto* from = reinterpret_cast<const Pixel32*>(picture.surface().pictureRow(y));
    auto* to = reinterpret_cast<Pixel32*>(grey.surface().pictureRow(y));
    for (int x = 0; x < picture.DIBWidth(); ++x) to[x] = {from[x].alpha, from[x].alpha, from[x].alpha, 0};
  }
  return true;
}
void takeAlphaFromGrey(const clsDIB& grey, clsDIB& picture) {
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    const auto* from = reinterpret_cast<const Pixel32*>(grey.surface().pictureRow(y));
    auto* to = reinterpret_cast<Pixel32*>(picture.surface().pictureRow(y));
    for (int x = 0; x < picture.DIBWidth(); ++x) to[x].alpha = from[x].green;
  }
  picture.setDIBhasAlpha(true);
}

// The stretch that needs no imaging service; it leaves alpha out, which is stretched on its own.
bool stretchedCopy(const clsDIB& picture, Size size, bool smooth, clsDIB& copy) {
  if (!copy.CreateBlankDIB(size.width, size.height, 32, kWhite)) return false;
  if (!smooth) {
    clsDIB::StretchPaintFromDIBtoDIB(picture, copy);
    copy.setDIBhasAlpha(picture.DIBhasAlpha());
    return true;
  }
  clsDIB::StretchPaintFromDIBtoDIB_Antialias_NativeDB(picture, copy);
  if (!picture.DIBhasAlpha()) return true;
  clsDIB grey;
  clsDIB greyStretched;
  if (!alphaAsGrey(picture, grey) || !greyStretched.CreateBlankDIB(size.width, size.height, 32, kBlack)) return false;
  clsDIB::StretchPaintFromDIBtoDIB_Antialias_NativeDB(grey, greyStretched);
  takeAlphaFromGrey(greyStretched, copy);
  return true;
}

bool resampledCopy(const clsDIB& picture, Size size, bool smooth, clsDIB& copy, const Progress& progress) {
  if (!imaging::imagingUsable()) return stretchedCopy(picture, size, smooth, copy);
  return clsDIB::CloneDIB(picture, copy, kWhite, picture.BottomUp()) &&
         ResizeDIBQuality(copy, size.width, size.height, smooth, progress);
}

}  // namespace

std::string originalSizeText(Size original) {
  return "(Orig:  " + sizeText(original.width, original.height) + ")";
}

std::string largestTryText(Size original) {
  if (original.empty()) return {};
  const double area = static_cast<double>(original.width) * original.height;
  const double factor = std::min({std::sqrt(static_cast<double>(kMaxPicturePixels) / area),
                                  static_cast<double>(kMaxPictureSide) / original.width,
                                  static_cast<double>(kMaxPictureSide) / original.height});
  // What is a whole number but for the last bit counts as one.
  const auto side = [factor](int length) { return std::max(1, static_cast<int>(length * factor + 1e-6)); };
  return "(Approx largest try:   " + std::to_string(side(original.width)) + "  by  " +
         std::to_string(side(original.height)) + ")";
}

std::string largestAreaText() {
  return "Set width x height:  Max area = " + formatNumber(kMaxPicturePixels, kFormatLimit) + " pixels";
}

std::vector<int> resizePercents() {
  std::vector<int> percents;
  for (int percent = kLeastPercent; percent <= kMostPercent;
       percent += percent < kUnchangedPercent ? kFineStep : kCoarseStep) {
    percents.push_back(percent);
  }
  return percents;
}

Size resizedTo(Size original, const ResizeEntry& entry) {
  switch (entry.method) {
    case ResizeMethod::PercentOfArea:
      return scaled(original, std::sqrt(entry.areaPercent / 100.0));
    case ResizeMethod::PercentOfSides:
      return scaled(original, entry.sidePercent / 100.0);
    case ResizeMethod::WidthAndHeight:
      break;
  }
  return entry.typed;
}

std::optional<std::string> resizeRefusal(Size original, const ResizeEntry& entry) {
  const Size wanted = resizedTo(original, entry);
  return entry.method == ResizeMethod::WidthAndHeight ? newSizeRefusal(wanted.width, wanted.height, entry.typedLast)
                                                      : percentRefusal(wanted, entry.method);
}

int otherSideFor(Size original, SizeField typedField, int typed) {
  const bool width = typedField == SizeField::Width;
  const double same = width ? original.width : original.height;
  const double other = width ? original.height : original.width;
  return roundToInt(std::clamp(typed * (other / same), 1.0, static_cast<double>(kMostTypedSide)));
}

bool resizedCopy(const clsDIB& picture, Size size, ResizeMode mode, clsDIB& copy, const Progress& progress) {
  if (picture.empty() || !pictureSizeAllowed(size.width, size.height)) return false;
  const bool smooth = mode == ResizeMode::Smooth || mode == ResizeMode::SmoothOnCanvas;
  const Size old = picture.size();
  switch (mode) {
    case ResizeMode::Smooth:
    case ResizeMode::Picked:
      return resampledCopy(picture, size, smooth, copy, progress);
    case ResizeMode::SmoothOnCanvas:
    case ResizeMode::PickedOnCanvas: {
      clsDIB resampled;
      return resampledCopy(picture, size, smooth, resampled, progress) && whiteSheetWith(resampled, {0, 0}, old, copy);
    }
    case ResizeMode::RightBottomEdges:
      return whiteSheetWith(picture, {0, 0}, size, copy);
    case ResizeMode::LeftTopEdges:
      return whiteSheetWith(picture, {size.width - old.width, size.height - old.height}, size, copy);
  }
  return false;
}

Size adjustedSize(Size original, const EdgeChange& change) {
  return {original.width + change.left + change.right, original.height + change.top + change.bottom};
}

std::optional<std::string> adjustRefusal(Size original, const EdgeChange& change) {
  const Size wanted = adjustedSize(original, change);
  if (wanted.empty()) return kSideTooSmall;
  if (wanted.width > kMaxPictureSide || wanted.height > kMaxPictureSide) return kSideTooLarge;
  if (!pictureSizeAllowed(wanted.width, wanted.height)) return thresholdText();
  const Rect kept = Rect::fromSize(0, 0, wanted.width, wanted.height)
                        .intersected(Rect::fromSize(change.left, change.top, original.width, original.height));
  if (kept.empty()) return kNothingKept;
  return std::nullopt;
}

bool adjustedCopy(const clsDIB& picture, const EdgeChange& change, clsDIB& copy) {
  return !picture.empty() && !adjustRefusal(picture.size(), change) &&
         whiteSheetWith(picture, {change.left, change.top}, adjustedSize(picture.size(), change), copy);
}

}  // namespace ruvo
