#include "platform/imaging/metafile_records.h"

#include <uemf.h>
#include <uemf_endian.h>
#include <uwmf.h>

#include "base/byte_reader.h"
#include "base/limits.h"

namespace ruvo::imaging::meta {
namespace {

const char* chars(std::span<const std::uint8_t> bytes, std::size_t at) {
  return reinterpret_cast<const char*>(bytes.data()) + at;
}

constexpr double kPixelsPerInch = 96, kTwipsPerInch = 1440;
// Of files that say nothing about their size.
constexpr double kDefaultWidth = 640, kDefaultHeight = 480;

int pixels(double size) {
  return static_cast<int>(std::clamp(std::floor(std::abs(size) + 0.5), 0.0, 2e9));
}

}  // namespace

std::optional<Record> RecordWalk::next() {
  if (cut_ || at_ >= file_.end) return std::nullopt;
  return file_.form == Metafile::Form::Wmf ? nextWmf() : nextEmf();
}

std::optional<Record> RecordWalk::nextWmf() {
  if (file_.end - at_ < kWmfRecordHead) return std::nullopt;
  const char* start = chars(file_.bytes, at_);
  const std::size_t size = U_WMRRECSAFE_get(start, start + (file_.end - at_));
  if (size < kWmfRecordHead) {
    // Zero stands for a record that is too short, which ends the file, or too long for what is left.
    ByteReader head(std::span(file_.bytes).subspan(at_, kWmfRecordHead));
    cut_ = head.u32() > 3;
    return std::nullopt;
  }
  const auto bytes = std::span(file_.bytes).subspan(at_, size);
  at_ += size;
  ByteReader head(bytes);
  head.skip(4);
  // The low byte is the record's number; the high one counts parameters and is wrong in many files.
  const std::uint32_t type = head.u16() & 0xFF;
  if (type == U_WMR_EOF) {
    at_ = file_.end;
    return std::nullopt;
  }
  return Record{type, bytes};
}

std::optional<Record> RecordWalk::nextEmf() {
  if (file_.end - at_ < kEmfRecordHead) return std::nullopt;
  const char* start = chars(file_.bytes, at_);
  std::uint32_t size = 0, type = 0;
  constexpr int kFromFile = 1;
  const bool fits = U_emf_record_sizeok(start, start + (file_.end - at_), &size, &type, kFromFile);
  if (size < kEmfRecordHead || size > file_.end - at_) {
    cut_ = size > file_.end - at_;
    return std::nullopt;
  }
  const auto bytes = std::span(file_.bytes).subspan(at_, size);
  at_ += size;
  if (type == U_EMR_EOF) {
    at_ = file_.end;
    return std::nullopt;
  }
  // Shorter than its kind can be: as if it were unknown.
  return Record{fits ? type : 0, bytes};
}

namespace {

// The first window of the file, for one that has no header to state its size.
std::optional<PointF> firstWindowExtent(const Metafile& file, PointF& origin) {
  std::optional<PointF> extent;
  RecordWalk walk(file);
  while (const auto record = walk.next()) {
    ByteReader body(record->bytes.subspan(kWmfRecordHead));
    const double y = static_cast<std::int16_t>(body.u16()), x = static_cast<std::int16_t>(body.u16());
    if (!body.ok()) continue;
    if (record->type == U_WMR_SETWINDOWORG) origin = {x, y};
    if (record->type == U_WMR_SETWINDOWEXT && x != 0 && y != 0) extent = PointF{x, y};
    // The origin may stand on either side of the extent; the drawing begins behind both.
    if (extent && record->type != U_WMR_SETWINDOWEXT) return extent;
  }
  return extent;
}

}  // namespace

LoadError readWmfHeader(Metafile& file, int& width, int& height) {
  // Key, handle, box, units an inch, reserved, checksum ([MS-WMF] 2.3.2.3); then the header of nine words.
  constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
  constexpr std::size_t kPlaceableBytes = 22, kHeaderBytes = 18;
  ByteReader reader(file.bytes);
  const bool placeable = reader.u32() == kPlaceableKey;
  file.form = Metafile::Form::Wmf;
  file.firstRecord = (placeable ? kPlaceableBytes : 0) + kHeaderBytes;
  file.end = file.bytes.size();
  if (file.firstRecord > file.end) return LoadError::Broken;
  if (placeable) {
    reader.skip(2);
    const auto number = [&] { return static_cast<double>(static_cast<std::int16_t>(reader.u16())); };
    const double left = number(), top = number(), right = number(), bottom = number();
    const double inch = reader.u16();
    file.origin = {left, top};
    file.extent = {right - left, bottom - top};
    if (inch == 0 || file.extent.x == 0 || file.extent.y == 0) return LoadError::Broken;
    width = pixels(file.extent.x * kPixelsPerInch / inch);
    height = pixels(file.extent.y * kPixelsPerInch / inch);
  } else {
    file.extent = firstWindowExtent(file, file.origin).value_or(PointF{kDefaultWidth, kDefaultHeight});
    // Taken as pixels, unless they are so many that they can only be meant as something finer.
    const double across = std::abs(file.extent.x), down = std::abs(file.extent.y);
    const bool fits = pictureSizeAllowed(static_cast<std::int64_t>(across), static_cast<std::int64_t>(down));
    const double unit = fits ? 1 : kPixelsPerInch / kTwipsPerInch;
    width = pixels(across * unit);
    height = pixels(down * unit);
  }
  return LoadError::None;
}

LoadError readEmfHeader(Metafile& file, int& width, int& height) {
  file.form = Metafile::Form::Emf;
  ByteReader reader(file.bytes);
  reader.skip(4);
  const std::uint32_t size = reader.u32();
  const Rect bounds{reader.i32(), reader.i32(), reader.i32(), reader.i32()};
  const Rect frame{reader.i32(), reader.i32(), reader.i32(), reader.i32()};
  reader.skip(8);
  const std::uint32_t fileSize = reader.u32();
  reader.skip(20);
  const PointF device{static_cast<double>(reader.i32()), static_cast<double>(reader.i32())};
  const PointF millimetres{static_cast<double>(reader.i32()), static_cast<double>(reader.i32())};
  if (!reader.ok() || size < 88 || size > file.bytes.size() || fileSize > file.bytes.size()) return LoadError::Broken;
  file.firstRecord = size;
  file.end = std::max<std::size_t>(fileSize, size);
  if (device.x > 0 && device.y > 0 && millimetres.x > 0 && millimetres.y > 0) {
    file.pixelsPerMillimetre = {device.x / millimetres.x, device.y / millimetres.y};
  }
  constexpr double kHundredths = 100;
  const double across = static_cast<double>(frame.right) - frame.left;
  const double down = static_cast<double>(frame.bottom) - frame.top;
  if (across > 0 && down > 0) {
    const PointF scale{file.pixelsPerMillimetre.x / kHundredths, file.pixelsPerMillimetre.y / kHundredths};
    file.origin = {frame.left * scale.x, frame.top * scale.y};
    file.extent = {across * scale.x, down * scale.y};
    width = pixels(across / kHundredths / 25.4 * kPixelsPerInch);
    height = pixels(down / kHundredths / 25.4 * kPixelsPerInch);
  } else {
    // Without a frame the pixels that the drawing touches; their box includes its last column and row.
    file.origin = {static_cast<double>(bounds.left), static_cast<double>(bounds.top)};
    file.extent = {static_cast<double>(bounds.right) - bounds.left + 1,
                   static_cast<double>(bounds.bottom) - bounds.top + 1};
    if (file.extent.x <= 0 || file.extent.y <= 0) return LoadError::Broken;
    width = pixels(file.extent.x);
    height = pixels(file.extent.y);
  }
  return LoadError::None;
}

}  // namespace ruvo::imaging::meta
