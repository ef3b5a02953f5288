#include <uwmf.h>

#include "platform/imaging/metafile_text.h"
#include "platform/imaging/metafile_wmf.h"

namespace ruvo::imaging::meta::wmf {
namespace {

void textOut(Player& p, ByteReader& r) {
  const std::size_t length = r.u16();
  const auto text = r.take(length);
  r.skip(length % 2);
  TextLine line;
  line.at = wmfPoint(r);
  line.characters = charactersOf(text, p.now().font->charset);
  if (r.ok()) drawText(p.device, line);
}

void extTextOut(Player& p, ByteReader& r) {
  TextLine line;
  line.at = wmfPoint(r);
  const std::size_t length = r.u16();
  const std::uint32_t options = r.u16();
  line.opaqueBox = (options & U_ETO_OPAQUE) != 0;
  line.clipped = (options & U_ETO_CLIPPED) != 0;
  if (line.opaqueBox || line.clipped) {
    const auto pair = [&] {
      const double x = static_cast<std::int16_t>(r.u16());
      return PointF{x, static_cast<double>(static_cast<std::int16_t>(r.u16()))};
    };
    const PointF from = pair();
    line.box = Box{from, pair()};
  }
  const auto text = r.take(length);
  if (!r.ok()) return;
  line.characters = charactersOf(text, p.now().font->charset);
  if (length % 2 == 1 && r.left() > 0) r.skip(1);
  if (length > 0 && r.left() >= 2 * length) {
    for (std::size_t i = 0; i < length; ++i)
      line.steps.push_back({static_cast<double>(static_cast<std::int16_t>(r.u16())), 0});
  }
  drawText(p.device, line);
}

constexpr Row kRows[] = {
    {U_WMR_TEXTOUT, textOut},
    {U_WMR_EXTTEXTOUT, extTextOut},
};

}  // namespace

std::span<const Row> textRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::wmf
