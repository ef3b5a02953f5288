#include "shell/color_values.h"

#include <QColor>
#include <algorithm>
#include <cmath>

#include "base/paths.h"
#include "image/clsDIB.h"

namespace ruvo {

QImage toImage(const clsDIB& picture) {
  if (picture.empty()) return {};
  clsDIB copy;
  if (!copy.CreateBlankDIB(picture.DIBWidth(), picture.DIBHeight(), 32, kWhite)) return {};
  clsDIB::PaintFromDIBtoDIB(picture, copy);
  const QImage upsideDown(copy.DIBBitsPtr(), copy.DIBWidth(), copy.DIBHeight(), copy.BytesPerScanline(),
                          QImage::Format_RGB32);
  return upsideDown.mirrored();
}

namespace shell {
namespace {

int percentOf(double share) {
  return static_cast<int>(std::lround(share * 100));
}

}  // namespace

QString colourValuesText(Colour colour) {
  const int red = redOf(colour);
  const int green = greenOf(colour);
  const int blue = blueOf(colour);
  const QColor hsl = QColor(red, green, blue).toHsl();
  const int hue = std::max(0, hsl.hslHue());  // a grey has none
  const double black = 1 - std::max({red, green, blue}) / 255.0;
  const auto ink = [black](int value) { return black >= 1 ? 0.0 : (1 - value / 255.0 - black) / (1 - black); };
  return QStringLiteral(
             "RGB ( %1,  %2,  %3 )\n\nHLS:     H = %4   L = %5   S = %6\n\nCMYK:   C = %7   M = %8   Y = %9   ")
             .arg(red)
             .arg(green)
             .arg(blue)
             .arg(hue)
             .arg(percentOf(hsl.lightnessF()))
             .arg(percentOf(hsl.hslSaturationF()))
             .arg(percentOf(ink(red)))
             .arg(percentOf(ink(green)))
             .arg(percentOf(ink(blue))) +
         QStringLiteral("K = %1\n\nHTML   #").arg(percentOf(black)) +
         QString::fromStdString(hexColour({red, green, blue}));
}

}  // namespace shell
}  // namespace ruvo
