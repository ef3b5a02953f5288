// From the bytes of a GIF to its frames (GIF89a, sections 17 to 27), as the parts of the file come.
#include <cstring>
#include <optional>

#include "base/byte_reader.h"
#include "base/limits.h"
#include "formats/basGIFLZWDec.h"
#include "formats/clsGIF_Model.h"

namespace ruvo {
namespace {

constexpr int kExtension = 0x21;
constexpr int kImage = 0x2C;
constexpr int kTrailer = 0x3B;
constexpr int kControlLabel = 0xF9;
constexpr int kCommentLabel = 0xFE;
constexpr int kApplicationLabel = 0xFF;

bool startsWith(std::span<const std::uint8_t> bytes, std::string_view text) {
  return bytes.size() >= text.size() && std::memcmp(bytes.data(), text.data(), text.size()) == 0;
}

class GifReader {
 public:
  GifReader(std::span<std::uint8_t> data, GifModel& model, bool firstImageOnly)
      : data_(data), in_(data), model_(model), firstImageOnly_(firstImageOnly) {}

  int read() {
    if (const int code = readHeader(); code != kGifOk) return code;
    if (const int code = readScreen(); code != kGifOk) return code;
    while (!ended_) {
      if (const int code = readBlock(); code != kGifOk) return code;
    }
    return model_.frames.empty() ? kGifNoFrame : kGifOk;
  }

 private:
  int readHeader();
  int readScreen();
  int readBlock();
  int readExtension();
  int readControl();
  int readComment();
  int readApplication();
  int readImage();
  int decodeImage(GifFrame& frame, Size size, int minimumCodeSize, std::span<const std::uint8_t> codes);
  void readTable(int sizeBits, GifTable& table, int& entries);
  std::optional<std::span<const std::uint8_t>> joinSubBlocks();
  int skipSubBlocks();
  int stepped() const { return in_.ok() ? kGifOk : kGifOutOfBounds; }

  std::span<std::uint8_t> data_;
  ByteReader in_;
  GifModel& model_;
  bool firstImageOnly_;
  std::vector<GifControl> controls_{1};
  int controlsRead_ = 0;
  bool ended_ = false;
};

int GifReader::readHeader() {
  if (!startsWith(in_.take(3), "GIF")) return kGifNoSignature;
  const auto version = in_.take(3);
  if (!startsWith(version, "89a") && !startsWith(version, "87a")) return kGifUnknownVersion;
  model_.signature = "GIF";
  model_.version.assign(version.begin(), version.end());
  return kGifOk;
}

int GifReader::readScreen() {
  model_.width = in_.u16();
  model_.height = in_.u16();
  const int packed = in_.u8();
  model_.background = in_.u8();
  model_.aspect = in_.u8();
  if (!in_.ok()) return kGifOutOfBounds;
  model_.stated = {model_.width, model_.height};
  if (!pictureSizeAllowed(model_.width, model_.height)) return kGifBadSize;
  model_.globalExists = (packed & 0x80) != 0;
  if (model_.globalExists) {
    model_.globalSorted = (packed & 0x08) != 0;
    readTable(packed & 7, model_.global, model_.globalEntries);
  }
  return stepped();
}

void GifReader::readTable(int sizeBits, GifTable& table, int& entries) {
  entries = 2 << sizeBits;
  const auto bytes = in_.take(static_cast<std::size_t>(entries) * 3);
  for (std::size_t i = 0; i < bytes.size() / 3; ++i) table[i] = {bytes[3 * i + 2], bytes[3 * i + 1], bytes[3 * i], 0};
}

// A trailer is not asked for: the file may end between two blocks, and bytes that start no block are stepped over.
int GifReader::readBlock() {
  if (in_.left() == 0) {
    ended_ = true;
    return kGifOk;
  }
  switch (in_.u8()) {
    case kExtension:
      return readExtension();
    case kImage:
      return readImage();
    case kTrailer:
      ended_ = true;
      return kGifOk;
    default:
      return kGifOk;
  }
}

int GifReader::readExtension() {
  switch (in_.u8()) {
    case kControlLabel:
      return readControl();
    case kCommentLabel:
      return readComment();
    case kApplicationLabel:
      return readApplication();
    default:  // plain text too: it is not drawn
      return skipSubBlocks();
  }
}

// Control record n belongs to image n, whatever stands between them; the first one fills the record that is there from
// the start, so that a first image needs none.
int GifReader::readControl() {
  in_.u8();  // the size is always four
  const int packed = in_.u8();
  GifControl control;
  control.Delay = in_.u16();
  const std::uint8_t index = in_.u8();
  in_.u8();  // the empty block
  if (!in_.ok()) return kGifOutOfBounds;
  control.DisposalMethod = static_cast<std::uint8_t>((packed & 28) / 4);
  control.UserInput = (packed & 2) != 0;
  control.UseTransparentColor = (packed & 1) != 0;
  if (control.UseTransparentColor) control.TransparentColorIndex = index;
  ++controlsRead_;
  // Records that no image can ever use are counted and not kept.
  if (controlsRead_ == 1) {
    controls_[0] = control;
  } else if (controlsRead_ <= clsGIF::kMostFrames) {
    controls_.push_back(control);
  }
  return kGifOk;
}

int GifReader::readComment() {
  if (model_.version != "89a" || !model_.comment.empty()) return skipSubBlocks();
  const auto text = joinSubBlocks();
  if (!text) return kGifOutOfBounds;
  const auto kept = [](std::uint8_t c) { return (c >= 32 && c <= 126) || c == 13 || c == 10; };
  std::copy_if(text->begin(), text->end(), std::back_inserter(model_.comment), kept);
  return kGifOk;
}

int GifReader::readApplication() {
  const auto header = in_.take(12);
  const auto data = joinSubBlocks();
  if (!in_.ok() || !data) return kGifOutOfBounds;
  if (startsWith(header.subspan(1), "NETSCAPE2.0") && data->size() >= 3) {
    model_.loops = static_cast<std::uint16_t>((*data)[2] * 256 + (*data)[1]);
  }
  return kGifOk;
}

int GifReader::readImage() {
  const int number = model_.count() + 1;
  if (number > clsGIF::kMostFrames) return kGifTooManyFrames;
  GifFrame frame;
  frame.image.Left = in_.u16();
  frame.image.Top = in_.u16();
  const Size size{in_.u16(), in_.u16()};
  const int packed = in_.u8();
  if (!in_.ok()) return kGifOutOfBounds;
  if (!gifSizeAllowed(size.width, size.height, number)) {
    if (number == 1) model_.stated = size;
    return kGifBadSize;
  }
  frame.image.Interlaced = (packed & 0x40) != 0;
  frame.image.LocalPaletteUsed = (packed & 0x80) != 0;
  if (frame.image.LocalPaletteUsed) {
    frame.image.LocalPaletteSorted = (packed & 0x20) != 0;
    readTable(packed & 7, frame.image.LocalPalette, frame.image.LocalPaletteEntries);
  } else {
    frame.image.LocalPaletteSorted = model_.globalSorted;
    frame.image.LocalPaletteEntries = model_.globalEntries;
    frame.image.LocalPalette = model_.global;
  }
  const int minimumCodeSize = in_.u8();
  const auto codes = joinSubBlocks();
  if (!codes) return kGifOutOfBounds;
  if (codes->empty()) {
    ended_ = true;
    return kGifOk;
  }
  return decodeImage(frame, size, minimumCodeSize, *codes);
}

int GifReader::decodeImage(GifFrame& frame, Size size, int minimumCodeSize, std::span<const std::uint8_t> codes) {
  const auto record = model_.frames.size();
  if (record >= controls_.size()) return kGifOther;
  frame.control = controls_[record];
  if (!createSurfaces(frame.image, size)) return kGifUnknownError;
  basGIFLZWDec::Decode(*frame.image.XOR, frame.image.Interlaced, minimumCodeSize, codes);
  if (frame.control.UseTransparentColor) {
    maskFrame(frame, frame.control.TransparentColorIndex);
  } else {
    setTable(*frame.image.XOR, frame.image.LocalPalette);  // the mask is black as it was made
  }
  model_.frames.push_back(std::move(frame));
  ended_ = firstImageOnly_;
  return kGifOk;
}

// Moves the data of the blocks together where they stand, so that no second copy of the file is ever made.
std::optional<std::span<const std::uint8_t>> GifReader::joinSubBlocks() {
  const std::size_t start = in_.position();
  std::size_t end = start;
  for (;;) {
    const std::size_t length = in_.u8();
    const auto block = in_.take(length);
    if (!in_.ok()) return std::nullopt;
    if (length == 0) return data_.subspan(start, end - start);
    std::memmove(data_.data() + end, block.data(), length);
    end += length;
  }
}

int GifReader::skipSubBlocks() {
  for (;;) {
    const std::size_t length = in_.u8();
    in_.skip(length);
    if (!in_.ok()) return kGifOutOfBounds;
    if (length == 0) return kGifOk;
  }
}

}  // namespace

bool gifSizeAllowed(int width, int height, int place) {
  if (place <= 1) return pictureSizeAllowed(width, height);
  return width >= 1 && height >= 1 && width <= clsGIF::kMostLaterSide && height <= clsGIF::kMostLaterSide &&
         static_cast<std::int64_t>(width) * height <= clsGIF::kMostLaterPixels;
}

int readGifModel(std::span<std::uint8_t> data, GifModel& model, bool firstImageOnly) {
  return GifReader(data, model, firstImageOnly).read();
}

int clsGIF::LoadStream(std::vector<std::uint8_t>& Data) {
  ClearUp();
  int code = kGifUnknownError;
  try {
    code = readGifModel(Data, *model_);
  } catch (const std::bad_alloc&) {
  }
  if (code != kGifOk) {
    const Size stated = model_->stated;
    ClearUp();
    model_->stated = stated;
  }
  Data = {};
  return code;
}

}  // namespace ruvo
