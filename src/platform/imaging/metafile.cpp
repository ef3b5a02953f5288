#include "platform/imaging/metafile.h"

#include <new>

#include "base/byte_reader.h"
#include "base/limits.h"
#include "platform/imaging/codecs.h"
#include "platform/imaging/metafile_player.h"
#include "platform/raster/blit.h"

namespace ruvo::imaging {
namespace {

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::uint32_t kEmfSignature = 0x464D4520;  // " EMF"
constexpr std::size_t kEmfSignatureAt = 40;

bool isEmf(std::span<const std::uint8_t> bytes) {
  ByteReader reader(bytes);
  const std::uint32_t type = reader.u32();
  reader.seek(kEmfSignatureAt);
  return reader.u32() == kEmfSignature && type == 1;
}

bool isWmf(std::span<const std::uint8_t> bytes) {
  ByteReader reader(bytes);
  if (reader.u32() == kPlaceableKey) return true;
  reader.seek(0);
  const std::uint16_t type = reader.u16(), headerWords = reader.u16(), version = reader.u16();
  return reader.ok() && (type == 1 || type == 2) && headerWords == 9 && (version == 0x0300 || version == 0x0100);
}

// A file that stops inside a record is refused: what is missing can not be seen in the picture.
bool wholeRecords(const Metafile& file) {
  meta::RecordWalk walk(file);
  while (walk.next()) {
  }
  return !walk.cut();
}

meta::Affine baseOf(const Picture& picture, const Rect& dest) {
  const Metafile& file = *picture.metafile;
  using meta::Affine;
  if (file.form == Metafile::Form::Wmf) {
    return Affine::scaling(static_cast<double>(dest.width()) / picture.width,
                           static_cast<double>(dest.height()) / picture.height)
        .then(Affine::moving(dest.left, dest.top));
  }
  return Affine::moving(-file.origin.x, -file.origin.y)
      .then(Affine::scaling(dest.width() / file.extent.x, dest.height() / file.extent.y))
      .then(Affine::moving(dest.left, dest.top));
}

void play(const Picture& picture, raster::Surface& target, const Rect& dest) {
  const Metafile& file = *picture.metafile;
  meta::Player player{meta::Device(target, dest, baseOf(picture, dest)), {}};
  meta::Mapping& mapping = player.now().mapping;
  mapping.pixelsPerMillimetre = file.pixelsPerMillimetre;
  const bool wmf = file.form == Metafile::Form::Wmf;
  if (wmf) {
    mapping.setMode(meta::Mapping::Anisotropic);
    mapping.windowOrigin = file.origin;
    mapping.setWindowExtent(file.extent);
    mapping.setViewportExtent({static_cast<double>(picture.width), static_cast<double>(picture.height)});
  }
  meta::RecordWalk walk(file);
  while (const auto record = walk.next()) {
    const auto handler = wmf ? meta::wmfHandler(record->type) : meta::emfHandler(record->type);
    constexpr double kPerRecord = 100;
    if (!player.device.charge(kPerRecord)) return;
    if (!handler) continue;
    ByteReader body(record->bytes);
    body.skip(wmf ? meta::kWmfRecordHead : meta::kEmfRecordHead);
    handler(player, body);
  }
}

}  // namespace

bool isMetafile(std::span<const std::uint8_t> firstBytes) {
  return isEmf(firstBytes) || isWmf(firstBytes);
}

LoadResult adoptMetafile(std::vector<std::uint8_t> bytes) {
  if (!isMetafile(bytes)) return refused(LoadError::NotThisFormat);
  const bool emf = isEmf(bytes);
  auto file = std::make_shared<Metafile>();
  file->bytes = std::move(bytes);
  LoadResult result;
  result.fileDepth = 24;
  result.error = emf ? meta::readEmfHeader(*file, result.width, result.height)
                     : meta::readWmfHeader(*file, result.width, result.height);
  if (result.error != LoadError::None) return result;
  if (result.width < 1 || result.height < 1) {
    result.error = LoadError::Broken;
  } else if (!pictureSizeAllowed(result.width, result.height)) {
    result.error = LoadError::TooLarge;
  } else if (!wholeRecords(*file)) {
    result.error = LoadError::Broken;
  } else {
    result.picture.kind = Picture::Kind::Metafile;
    result.picture.width = result.width;
    result.picture.height = result.height;
    result.picture.metafile = std::move(file);
  }
  return result;
}

LoadResult readMetafile(std::span<const std::uint8_t> file) {
  return adoptMetafile({file.begin(), file.end()});
}

bool playMetafile(const Picture& picture, raster::Surface& target, const Rect& dest) {
  if (picture.kind != Picture::Kind::Metafile || !picture.metafile) return false;
  if (dest.empty() || target.empty()) return true;
  try {
    if (target.depth() == 32) {
      play(picture, target, dest);
      return true;
    }
    raster::Surface deep;
    if (!deep.create(target.width(), target.height(), 32)) return false;
    raster::blit(deep, 0, 0, target);
    play(picture, deep, dest);
    raster::blit(target, 0, 0, deep);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace ruvo::imaging
