#include <uemf.h>

#include "platform/imaging/metafile_emf.h"
#include "platform/imaging/metafile_text.h"

namespace ruvo::imaging::meta::emf {
namespace {

void applyOptions(std::uint32_t options, TextLine& line) {
  line.opaqueBox = (options & U_ETO_OPAQUE) != 0;
  line.clipped = (options & U_ETO_CLIPPED) != 0;
  line.glyphNumbers = (options & U_ETO_GLYPH_INDEX) != 0;
}

// Nothing when they are not all there, so that the font's own widths serve.
std::vector<PointF> readSteps(ByteReader r, std::size_t at, std::size_t count, bool withHeights) {
  std::vector<PointF> steps;
  r.seek(at);
  const std::size_t each = withHeights ? 8 : 4;
  if (at == 0 || !r.ok() || count > r.left() / each) return steps;
  steps.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double x = r.i32();
    steps.push_back({x, withHeights ? static_cast<double>(r.i32()) : 0});
  }
  return steps;
}

// The part that single lines and those of a list share ([MS-EMF] 2.2.5): place, count, where the letters lie, options,
// box, where the steps lie.
void drawEmrText(Player& p, ByteReader& r, bool wide) {
  TextLine line;
  line.at = emfPoint(r);
  const std::size_t count = r.u32(), textAt = r.u32();
  const std::uint32_t options = r.u32();
  applyOptions(options, line);
  if ((options & U_ETO_NO_RECT) == 0) line.box = emfBox(r);
  const std::size_t stepsAt = r.u32();
  // A list of lines may name the same letters again and again.
  constexpr double kPerLetter = 50;
  if (!r.ok() || count > r.size() || !p.device.charge(kPerLetter * static_cast<double>(count))) return;
  const auto text = r.slice(textAt, wide ? 2 * count : count);
  line.characters = wide || line.glyphNumbers ? charactersOfUtf16(text) : charactersOf(text, p.now().font->charset);
  line.steps = readSteps(r, stepsAt, count, (options & U_ETO_PDY) != 0);
  drawText(p.device, line);
}

template <bool wide>
void extTextOut(Player& p, ByteReader& r) {
  constexpr std::size_t kBoundsModeAndScales = 16 + 4 + 8;
  r.skip(kBoundsModeAndScales);
  drawEmrText(p, r, wide);
}

template <bool wide>
void polyTextOut(Player& p, ByteReader& r) {
  constexpr std::size_t kBoundsModeAndScales = 16 + 4 + 8;
  r.skip(kBoundsModeAndScales);
  const std::size_t lines = r.u32();
  for (std::size_t i = 0; i < lines && r.ok(); ++i) drawEmrText(p, r, wide);
}

void smallTextOut(Player& p, ByteReader& r) {
  TextLine line;
  line.at = emfPoint(r);
  const std::size_t count = r.u32();
  const std::uint32_t options = r.u32();
  constexpr std::size_t kModeAndScales = 12;
  r.skip(kModeAndScales);
  applyOptions(options, line);
  if ((options & U_ETO_NO_RECT) == 0) line.box = emfBox(r);
  const bool narrow = (options & U_ETO_SMALL_CHARS) != 0;
  if (!r.ok() || count > r.left()) return;
  const auto text = r.take(narrow ? count : 2 * count);
  line.characters = narrow ? charactersOf(text, p.now().font->charset) : charactersOfUtf16(text);
  if (r.ok()) drawText(p.device, line);
}

constexpr Row kRows[] = {
    {U_EMR_EXTTEXTOUTA, extTextOut<false>},   {U_EMR_EXTTEXTOUTW, extTextOut<true>},
    {U_EMR_POLYTEXTOUTA, polyTextOut<false>}, {U_EMR_POLYTEXTOUTW, polyTextOut<true>},
    {U_EMR_SMALLTEXTOUT, smallTextOut},
};

}  // namespace

std::span<const Row> textRows() {
  return kRows;
}

}  // namespace ruvo::imaging::meta::emf
