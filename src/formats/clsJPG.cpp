#include "formats/clsJPG.h"

#include <algorithm>
#include <new>

#include "base/byte_writer.h"
#include "base/file_io.h"
#include "formats/clsJPG_Rows.h"
#include "formats/clsJPG_Scan.h"
#include "platform/raster/blit.h"
#include "platform/raster/stretch.h"

namespace ruvo {
namespace {

using namespace jpg;

constexpr int kLargestSide = 65535;
constexpr int kLargestFactor = 4;
constexpr int kMostBlocksInMcu = 10;  // of an interleaved scan (B.2.3)

enum Marker : std::uint16_t {
  kStartOfImage = 0xFFD8,
  kApp0 = 0xFFE0,
  kComment = 0xFFFE,
  kDefineQuant = 0xFFDB,
  kStartOfFrame = 0xFFC0,
  kDefineHuffman = 0xFFC4,
  kStartOfScan = 0xFFDA,
  kEndOfImage = 0xFFD9
};
constexpr std::size_t kMostInSegment = 65533;

struct Sampling {
  int h = 1;
  int v = 1;
  friend bool operator==(const Sampling&, const Sampling&) = default;
};

int ceilingOf(int a, int b) {
  return (a + b - 1) / b;
}

// The picture at a lower rate than the largest. The source run ends beyond the picture where that makes the ratio
// exact, so that samples lie where a decoder expects them.
raster::Surface stretched(const raster::Surface& picture, Sampling rate, Sampling most) {
  const int width = ceilingOf(picture.width() * rate.h, most.h);
  const int height = ceilingOf(picture.height() * rate.v, most.v);
  raster::Surface made;
  if (!made.create(width, height, 32, raster::RowOrder::TopDown)) throw std::bad_alloc();
  const int columns = ceilingOf(width, rate.h), rows = ceilingOf(height, rate.v);
  raster::stretchBlit(made, {0, 0, columns * rate.h, rows * rate.v}, picture, {0, 0, columns * most.h, rows * most.v},
                      raster::StretchMode::Halftone);
  return made;
}

void sampleComponents(BlockRows& rows, std::span<Component> components, const Picture& picture, int firstChannel) {
  Block block;
  Levels levels;
  for (int y = 0; y < components[0].blocksHigh; ++y) {
    const Pixel32* pixels = rows.load(y);
    for (std::size_t i = 0; i < components.size(); ++i) {
      const auto channel = static_cast<Channel>(firstChannel + static_cast<int>(i));
      const QuantTable& table = picture.quantTables[components[i].tables];
      for (int x = 0; x < components[i].blocksWide; ++x) {
        samplesOf(channel, pixels + x * kBlockSide, rows.stride(), block);
        transform(block);
        quantise(block, table, levels);
        components[i].append(levels);
      }
    }
  }
}

Picture sampled(const raster::Surface& surface, std::span<const Sampling> rates, int quality) {
  Picture picture;
  picture.width = surface.width();
  picture.height = surface.height();
  picture.quantTables = {quantTable(TableKind::Luminance, quality), quantTable(TableKind::Chrominance, quality)};
  Sampling most;
  for (const Sampling& rate : rates) most = {std::max(most.h, rate.h), std::max(most.v, rate.v)};
  for (const Sampling& rate : rates) {
    Component c;
    c.h = rate.h;
    c.v = rate.v;
    c.tables = picture.components.empty() ? 0 : 1;
    c.blocksWide = ceilingOf(ceilingOf(picture.width * rate.h, most.h), kBlockSide);
    c.blocksHigh = ceilingOf(ceilingOf(picture.height * rate.v, most.v), kBlockSide);
    c.blocks.reserve(static_cast<std::size_t>(c.blocksWide) * c.blocksHigh);
    picture.components.push_back(std::move(c));
  }
  // Neighbours of one rate share their rows.
  for (std::size_t i = 0, end; i < rates.size(); i = end) {
    for (end = i + 1; end < rates.size() && rates[end] == rates[i];) ++end;
    const auto group = std::span(picture.components).subspan(i, end - i);
    const Sampling rate = rates[i];
    const bool halved = most.h == 2 * rate.h && most.v == 2 * rate.v;
    const raster::Surface smaller = rate == most || halved ? raster::Surface() : stretched(surface, rate, most);
    BlockRows rows(smaller.empty() ? surface : smaller, halved);
    sampleComponents(rows, group, picture, static_cast<int>(i));
  }
  return picture;
}

void segment(ByteWriter& out, Marker marker, std::size_t bytes) {
  out.u16be(marker);
  out.u16be(static_cast<std::uint16_t>(bytes + 2));
}

// A text that is too long for one segment goes on in a second.
void writeComment(ByteWriter& out, std::string_view text) {
  for (; !text.empty(); text.remove_prefix(std::min(text.size(), kMostInSegment))) {
    const std::string_view part = text.substr(0, kMostInSegment);
    segment(out, kComment, part.size());
    out.append(part);
  }
}

void writeHuffmanTable(ByteWriter& out, const HuffmanTable& table, int kindAndNumber) {
  segment(out, kDefineHuffman, 17 + table.symbols.size());
  out.u8(static_cast<std::uint8_t>(kindAndNumber));
  out.append(std::span(table.lengthCounts).subspan(1));
  out.append(table.symbols);
}

// Everything before the data of the scan.
std::vector<std::uint8_t> header(const Picture& picture, std::string_view comment,
                                 const std::array<CodeTables, 2>& codes) {
  ByteWriter out;
  out.u16be(kStartOfImage);
  // JFIF 1.01, pixels of one by one in no unit, no thumbnail.
  constexpr std::uint8_t kJfif[] = {'J', 'F', 'I', 'F', 0, 1, 1, 0, 0, 1, 0, 1, 0, 0};
  segment(out, kApp0, sizeof kJfif);
  out.append(kJfif);
  writeComment(out, comment);
  for (int i = 0; i < picture.tableCount(); ++i) {
    segment(out, kDefineQuant, 1 + kBlockSize);
    out.u8(static_cast<std::uint8_t>(i));
    for (const std::uint16_t value : picture.quantTables[i].values) out.u8(static_cast<std::uint8_t>(value));
  }
  const auto count = static_cast<std::uint8_t>(picture.components.size());
  segment(out, kStartOfFrame, 6u + 3u * count);
  out.u8(kSamplePrecision);
  out.u16be(static_cast<std::uint16_t>(picture.height));
  out.u16be(static_cast<std::uint16_t>(picture.width));
  out.u8(count);
  for (std::uint8_t i = 0; i < count; ++i) {
    const Component& c = picture.components[i];
    out.u8(static_cast<std::uint8_t>(i + 1));
    out.u8(static_cast<std::uint8_t>(c.h << 4 | c.v));
    out.u8(static_cast<std::uint8_t>(c.tables));
  }
  for (int i = 0; i < picture.tableCount(); ++i) {
    writeHuffmanTable(out, codes[i].dc, i);
    writeHuffmanTable(out, codes[i].ac, 0x10 | i);
  }
  segment(out, kStartOfScan, 4u + 2u * count);
  out.u8(count);
  for (std::uint8_t i = 0; i < count; ++i) {
    out.u8(static_cast<std::uint8_t>(i + 1));
    out.u8(static_cast<std::uint8_t>(picture.components[i].tables * 0x11));
  }
  out.u8(0);
  out.u8(kBlockSize - 1);
  out.u8(0);
  return out.take();
}

}  // namespace

struct clsJPG::State {
  int quality = kUsualQuality;
  std::vector<Sampling> rates = {{2, 2}, {1, 1}, {1, 1}};
  std::string comment;
  jpg::Picture picture;  // with the tables it was sampled by
};

clsJPG::clsJPG() : state_(std::make_unique<State>()) {}
clsJPG::~clsJPG() = default;

void clsJPG::setQuality(int value) {
  state_->quality = value >= 1 && value <= 100 ? value : kUsualQuality;
}

int clsJPG::Quality() const {
  return state_->quality;
}

void clsJPG::SetSamplingFrequencies(int H1, int V1, int H2, int V2, int H3, int V3) {
  const bool grey = H2 == 0 && V2 == 0 && H3 == 0 && V3 == 0;
  std::vector<Sampling> rates = {{H1, V1}};
  if (!grey) rates.insert(rates.end(), {{H2, V2}, {H3, V3}});
  int blocks = 0;
  for (const Sampling& rate : rates) {
    for (const int factor : {rate.h, rate.v}) {
      if (factor < 1 || factor > kLargestFactor) throw JpgError(kInvalidSamplingValue);
    }
    blocks += rate.h * rate.v;
  }
  if (!grey && blocks > kMostBlocksInMcu) throw JpgError(kInvalidSamplingValue);
  state_->rates = std::move(rates);
}

void clsJPG::setComment(const std::string& text) {
  if (text.size() > kMostCommentBytes) throw JpgError(kIllegalCommentLength);
  state_->comment = text;
}

bool clsJPG::SampleHDC(const raster::Surface& hDC, int Width, int Height) {
  if (hDC.empty() || Width < 1 || Height < 1 || Width > kLargestSide || Height > kLargestSide) return false;
  try {
    state_->picture = {};
    raster::Surface part;
    if (Width != hDC.width() || Height != hDC.height()) {
      // What the surface does not have is black, as a blit into a fresh section leaves it.
      if (!part.create(Width, Height, 32, raster::RowOrder::TopDown)) return false;
      raster::blit(part, 0, 0, hDC);
    }
    state_->picture = sampled(part.empty() ? hDC : part, state_->rates, state_->quality);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

std::vector<std::uint8_t> clsJPG::saveBytes() {
  if (state_->picture.empty()) return {};
  Scan scan(state_->picture);
  const auto codes = scan.makeTables();
  std::vector<std::uint8_t> file = header(state_->picture, state_->comment, codes);
  const std::size_t start = file.size();
  file.resize(start + scan.byteLimit() + 2);
  std::uint8_t* end = scan.write(codes, file.data() + start);
  *end++ = kEndOfImage >> 8;
  *end++ = kEndOfImage & 0xFF;
  file.resize(static_cast<std::size_t>(end - file.data()));
  return file;
}

int clsJPG::SaveFile(const std::filesystem::path& FileName) {
  enum Answer { kWritten, kNoName, kExists, kNotWritten };
  if (FileName.empty()) return kNoName;
  std::error_code error;
  if (std::filesystem::exists(std::filesystem::symlink_status(FileName, error))) return kExists;
  try {
    const std::vector<std::uint8_t> file = saveBytes();
    return !file.empty() && replaceFile(FileName, file) ? kWritten : kNotWritten;
  } catch (const std::bad_alloc&) {
    return kNotWritten;
  }
}

}  // namespace ruvo
