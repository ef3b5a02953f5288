// Changing a picture's size: the choices, the sizes that they come to, the limits and the words with which a size is
// refused, and the making of the resized picture.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/progress.h"
#include "document/model/new_size_rules.h"
#include "image/clsDIB.h"

namespace ruvo {

// --- Reset Size

// Items of `cboResizeMode`.
enum class ResizeMode {
  Smooth = 0,
  Picked = 1,
  SmoothOnCanvas = 2,  // the canvas keeps its size
  PickedOnCanvas = 3,
  RightBottomEdges = 4,  // nothing is resampled
  LeftTopEdges = 5,
};
inline constexpr std::array kResizeModeTexts = {
    "Resize canvas and picture - with antialiasing",
    "Resize canvas and picture - without antialiasing",
    "Resize picture only (canvas size remains) - with antialiasing",
    "Resize picture only (canvas size remains) - without antialiasing",
    "Resize canvas - adjust right and/or bottom edges",
    "Resize canvas - adjust left and/or top edges",
};

// `optMethod`.
enum class ResizeMethod { PercentOfArea = 0, WidthAndHeight = 1, PercentOfSides = 2 };
inline constexpr std::array kResizeMethodTexts = {
    "Set %  (in terms of area)",
    "Set width and height values",
    "Set %  (in terms of width && height)",
};

inline constexpr const char* kKeepAspectText = "Auto default entry to keep aspect raio";
inline constexpr const char* kNoImagingNote =
    "Note:  GDIplus.dll not found in system.  To ensure top quality of resizing, please refer GDIplus.dll help topic.";
// "(Orig:  640 x 480)"
std::string originalSizeText(Size original);
// "(Approx largest try:   5773  by  4330)": the largest size of the same shape.
std::string largestTryText(Size original);
// "Set width x height:  Max area = 25,000,000 pixels"
std::string largestAreaText();

// 10 to 100 in steps of 5, then to 400 in steps of 25.
std::vector<int> resizePercents();
inline constexpr int kUnchangedPercent = 100;

struct ResizeEntry {
  ResizeMethod method = ResizeMethod::WidthAndHeight;
  int areaPercent = kUnchangedPercent;
  int sidePercent = kUnchangedPercent;
  Size typed = {};
  SizeField typedLast = SizeField::Width;
};
// To the nearest pixel, ties to even. A side may come out as 0 or past the limits.
Size resizedTo(Size original, const ResizeEntry& entry);
// Why that size can not be taken, in words; nothing when it can.
std::optional<std::string> resizeRefusal(Size original, const ResizeEntry& entry);
// What keeps the original's shape when one side becomes `typed` (at least 1, at most kMostTypedSide).
inline constexpr int kMostTypedSide = 99999;
int otherSideFor(Size original, SizeField typedField, int typed);

// The picture of 32 bits brought to a size within the limits. What it does not cover is white; alpha is kept, and white
// is then opaque. False when there is no memory or `progress` was stopped.
bool resizedCopy(const clsDIB& picture, Size size, ResizeMode mode, clsDIB& copy, const Progress& progress = {});

// --- Adjust Edge

// Pixels added at each edge, or cut off there when negative.
struct EdgeChange {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool none() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
};
inline constexpr const char* kNothingKept = "Nothing of the picture will remain, cannot proceed.";
Size adjustedSize(Size original, const EdgeChange& change);
std::optional<std::string> adjustRefusal(Size original, const EdgeChange& change);
// As resizedCopy, without resampling.
bool adjustedCopy(const clsDIB& picture, const EdgeChange& change, clsDIB& copy);

}  // namespace ruvo
