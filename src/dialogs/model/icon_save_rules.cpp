#include "dialogs/model/icon_save_rules.h"

#include <algorithm>

#include "base/paths.h"
#include "formats/clsICO.h"
#include "image/row_reader.h"
#include "platform/imaging/resample.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

// The usual ones come first.
constexpr std::array kSides = {32, 16, 48, 24, 12, 64, 72, 96, 128};
constexpr std::size_t kUsualSides = 4;

constexpr std::uint8_t kHalfCovered = 128;

Pixel32* rowOf(raster::Surface& surface, int y) {
  return reinterpret_cast<Pixel32*>(surface.pictureRow(y));
}

// A picture is brought down to this side before anything is filtered: several times the largest icon, and little enough
// that each change of a choice is seen at once.
constexpr int kWorkingSide = 512;

// Where each of `cells` even parts of a side ends.
std::vector<int> endsOf(int side, int cells) {
  std::vector<int> ends;
  for (int i = 1; i <= cells; ++i) ends.push_back(static_cast<int>(std::int64_t{side} * i / cells));
  return ends;
}

// The pixels of one cell, colours weighed by alpha. A cell is at most 64 pixels wide and high.
struct CellSum {
  std::uint32_t blue = 0, green = 0, red = 0, alpha = 0;

  Pixel32 mean(std::uint32_t pixels) const {
    if (alpha == 0) return {};
    const auto part = [](std::uint32_t sum, std::uint32_t of) {
      return static_cast<std::uint8_t>((sum + of / 2) / of);
    };
    return {part(blue, alpha), part(green, alpha), part(red, alpha), part(alpha, pixels)};
  }
};

template <typename AlphaOf>
void addRow(const Pixel32* row, std::span<const int> ends, std::span<CellSum> sums, AlphaOf&& alphaOf) {
  int x = 0;
  for (std::size_t cell = 0; cell < ends.size(); ++cell) {
    CellSum sum = sums[cell];
    for (; x < ends[cell]; ++x) {
      const Pixel32 pixel = row[x];
      const std::uint32_t alpha = alphaOf(pixel);
      sum.blue += pixel.blue * alpha;
      sum.green += pixel.green * alpha;
      sum.red += pixel.red * alpha;
      sum.alpha += alpha;
    }
    sums[cell] = sum;
  }
}

// The picture at 32 bits and at most the working side, what is to be see-through with alpha 0. Told from the picture's
// own pixels, before any two are mixed.
raster::Surface withCoverage(const clsDIB& picture, const IconChoices& choices) {
  const std::vector<int> columns = endsOf(picture.DIBWidth(), std::min(picture.DIBWidth(), kWorkingSide));
  const std::vector<int> rows = endsOf(picture.DIBHeight(), std::min(picture.DIBHeight(), kWorkingSide));
  raster::Surface made;
  if (!made.create(static_cast<int>(columns.size()), static_cast<int>(rows.size()), 32)) return made;
  // Without branches: they would be guessed wrong on noise.
  constexpr Colour kNoKey = 0xFFFFFFFF;
  const Colour key = choices.transparent ? choices.transparentColour : kNoKey;
  const std::uint32_t atLeast = picture.DIBhasAlpha() ? 0 : 255;
  const auto alphaOf = [=](Pixel32 p) { return (p.alpha | atLeast) * std::uint32_t{p.colour() != key}; };
  RowReader reader(picture.surface());
  for (int y = 0, from = 0; y < made.height(); ++y) {
    std::vector<CellSum> sums(columns.size());
    const int end = rows[static_cast<std::size_t>(y)], height = end - from;
    for (; from < end; ++from) addRow(reader.pixels(picture.surface().memoryRowOf(from)), columns, sums, alphaOf);
    for (std::size_t x = 0; x < columns.size(); ++x) {
      const int width = columns[x] - (x > 0 ? columns[x - 1] : 0);
      rowOf(made, y)[x] = sums[x].mean(static_cast<std::uint32_t>(width * height));
    }
  }
  return made;
}

raster::Surface scaled(raster::Surface&& source, Size to) {
  if (source.size() == to) return std::move(source);
  raster::Surface made;
  if (source.empty() || !made.create(to.width, to.height, 32)) return made;
  const bool wholeTimes = to.width % source.width() == 0 && to.height % source.height() == 0;
  if (wholeTimes)
    imaging::resampleNearest(source, made);
  else
    imaging::resampleBicubic(source, made, true);
  return made;
}

// Each pixel all there or in the key colour; none that is there has that colour, for it would be see-through too.
void settleCoverage(raster::Surface& surface, Colour key, bool transparent) {
  const Pixel32 through = Pixel32::plain(key);
  for (int y = 0; y < surface.height(); ++y) {
    Pixel32* row = rowOf(surface, y);
    for (int x = 0; x < surface.width(); ++x) {
      const bool seeThrough = transparent && row[x].alpha < kHalfCovered;
      row[x].alpha = 0;
      if (seeThrough)
        row[x] = through;
      else if (transparent && row[x].sameColour(through))
        row[x].blue ^= 1;
    }
  }
}

// White where alpha is 0, and the picture black there.
void maskOfAlpha(IconPair& pair) {
  for (int y = 0; y < pair.image.DIBHeight(); ++y) {
    Pixel32* image = rowOf(pair.image.surface(), y);
    Pixel32* mask = rowOf(pair.mask.surface(), y);
    for (int x = 0; x < pair.image.DIBWidth(); ++x) {
      if (image[x].alpha != 0) continue;
      image[x] = Pixel32();
      mask[x] = Pixel32::plain(kWhite);
    }
  }
}

}  // namespace

std::span<const int> iconSides(bool larger) {
  return std::span(kSides).first(larger ? kSides.size() : kUsualSides);
}

std::string squareText(int side) {
  return std::to_string(side) + " x " + std::to_string(side);
}

const FormatRow& formatOf(IconKind kind) {
  return rowOf(kind == IconKind::Icon ? Format::Ico : Format::Cur);
}

std::string iconPath(IconKind kind, const std::string& path) {
  const FormatRow& row = formatOf(kind);
  const std::string extension = pathOf(path).extension().string();
  return formatOfExtension(extension) == &row ? path : path + std::string(row.extensions);
}

Rect placeWithin(Size picture, int side, HowToTake how) {
  const Size whole{side, side};
  const Size size = how == HowToTake::WholeIcon ? whole : fitSize(picture, whole, true).value_or(whole);
  return Rect::fromSize((side - size.width) / 2, (side - size.height) / 2, size.width, size.height);
}

std::optional<Colour> colourUnder(const clsDIB& picture, const IconChoices& choices, Point iconPixel) {
  const Rect place = placeWithin(picture.size(), choices.side, choices.how);
  const bool inside =
      iconPixel.x >= place.left && iconPixel.x < place.right && iconPixel.y >= place.top && iconPixel.y < place.bottom;
  if (picture.empty() || !inside) return std::nullopt;
  // The middle of the icon's pixel.
  const int x = (2 * (iconPixel.x - place.left) + 1) * picture.DIBWidth() / (2 * place.width());
  const int y = (2 * (iconPixel.y - place.top) + 1) * picture.DIBHeight() / (2 * place.height());
  raster::Surface pixel;
  if (!pixel.create(1, 1, 32)) return std::nullopt;
  raster::blit(pixel, 0, 0, 1, 1, picture.surface(), x, y);
  return rowOf(pixel, 0)->colour();
}

IconPair iconPair(const clsDIB& picture, const IconChoices& choices) {
  IconPair pair;
  const int side = choices.side;
  const Rect place = placeWithin(picture.size(), side, choices.how);
  const Colour ground = choices.transparent ? choices.transparentColour : kWhite;
  if (picture.empty() || !pair.image.CreateBlankDIB(side, side, 32, ground) ||
      !pair.mask.CreateBlankDIB(side, side, 32, kBlack)) {
    return IconPair();
  }
  raster::Surface content = scaled(withCoverage(picture, choices), Size{place.width(), place.height()});
  if (picture.DIBhasAlpha()) {
    raster::blit(pair.image.surface(), place.left, place.top, content);
    pair.image.setDIBhasAlpha(true);
    maskOfAlpha(pair);
  } else {
    settleCoverage(content, ground, choices.transparent);
    raster::blit(pair.image.surface(), place.left, place.top, content);
    if (choices.transparent) clsDIB::Create_ImageMask_Pair(pair.image, pair.mask, choices.transparentColour);
  }
  return pair;
}

bool saveIcon(const std::filesystem::path& file, IconKind kind, const clsDIB& picture, const IconChoices& choices) {
  const IconPair pair = iconPair(picture, choices);
  return clsICO::SaveICO_Single(file, pair.image, pair.mask, kind == IconKind::Icon ? kIconType : kCursorType,
                                choices.hotSpot.x, choices.hotSpot.y);
}

}  // namespace ruvo
