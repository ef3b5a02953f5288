#include "document/model/status_texts.h"

#include <cmath>

#include "base/number_format.h"
#include "base/rounding.h"

namespace ruvo {
namespace {
std::string text(int value) {
  return std::to_string(value);
}
std::string rounded(double value) {
  return std::to_string(roundToInt(value));
}
// Rounded first: of 179.97 degrees remains what is shown of a level line.
std::string angleText(double degrees) {
  return formatNumber(std::fmod(std::round(degrees * 10), 1800) / 10, kFormatAngle);
}
std::string pair(int x, int y, const char* between) {
  std::string both = "[";
  both += text(x);
  both += between;
  both += text(y);
  return both += ']';
}
}  // namespace

std::string sizeText(int width, int height) {
  return text(width) + " x " + text(height);
}

std::string clickText(int x, int y, Colour colour) {
  return "Click:  " + pair(x, y, ", ") + "   RGB(" + text(redOf(colour)) + ", " + text(greenOf(colour)) + ", " +
         text(blueOf(colour)) + ")";
}

std::string rectangleText(int x, int y, int width, int height) {
  return "Start " + pair(x, y, ", ") + "   W=" + text(width) + " H=" + text(height);
}

std::string lineText(int x1, int y1, int x2, int y2, double angle) {
  return pair(x1, y1, ",") + "  " + pair(x2, y2, ",") + "   L=" + rounded(std::hypot(x2 - x1, y2 - y1)) +
         "   A=" + angleText(angle);
}

std::string arcText(int x1, int y1, int x2, int y2, int cx, int cy, double radius) {
  return pair(x1, y1, ",") + "  " + pair(x2, y2, ",") + "  C=" + pair(cx, cy, ",") + "  R=" + rounded(radius);
}

std::string ovalText(int x, int y, double radius, int width, int height) {
  return pair(x, y, ", ") + "  Radius " + rounded(radius) + "   w=" + text(width) + "  h=" + text(height);
}

}  // namespace ruvo
