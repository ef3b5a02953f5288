#include "image/basGDIProc.h"

#include <algorithm>
#include <array>
#include <new>

#include "base/limits.h"
#include "platform/imaging/codecs.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/imaging_service.h"
#include "platform/imaging/resample.h"

namespace ruvo {
namespace {

using imaging::FileKind;

constexpr int kLowestJpegQuality = 70;
constexpr int kUsualJpegQuality = 75;

struct MimeRow {
  std::string_view type;
  FileKind kind;
  EncoderFormat format;
};
constexpr std::array kMimeTable = {
    MimeRow{kMimeGif, FileKind::Gif, kEncodeGif},
    MimeRow{kMimeJpeg, FileKind::Jpeg, kEncodeJpeg},
    MimeRow{kMimePng, FileKind::Png, kEncodePng},
    MimeRow{kMimeTiff, FileKind::Tiff, kEncodeTiff},
};

const MimeRow* mimeRow(std::string_view type) {
  if (!imaging::imagingUsable()) return nullptr;
  const auto* found =
      std::find_if(kMimeTable.begin(), kMimeTable.end(), [&](const MimeRow& row) { return row.type == type; });
  return found == kMimeTable.end() ? nullptr : found;
}

bool encode(const clsDIB& dib, const std::filesystem::path& path, int format, int parameter) {
  switch (format) {
    case kEncodeGif:
      return imaging::saveGif(dib.surface(), path);
    case kEncodeJpeg:
      return imaging::saveJpeg(dib.surface(), path, parameter == 0 ? kUsualJpegQuality : parameter);
    case kEncodePng:
      return imaging::savePng(dib.surface(), path, dib.DIBhasAlpha());
    case kEncodeTiff:
      return imaging::saveTiff(dib.surface(), path, parameter == 0 ? dib.DIBbpp() : parameter, dib.DIBhasAlpha());
    default:
      return false;
  }
}

}  // namespace

bool SaveDIBWithEncoder(const clsDIB& Dib, const std::filesystem::path& FileName, int Format, int parameter) {
  if (!imaging::imagingUsable() || Dib.empty()) return false;
  try {
    return encode(Dib, FileName, Format, parameter);
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool SaveJPEGWithQuality(const clsDIB& Dib, const std::filesystem::path& FileName, int Quality) {
  return SaveDIBWithEncoder(Dib, FileName, kEncodeJpeg, std::clamp(Quality, kLowestJpegQuality, 100));
}

bool SaveTIFFWithDepth(const clsDIB& Dib, const std::filesystem::path& FileName, int ColourDepth) {
  return SaveDIBWithEncoder(Dib, FileName, kEncodeTiff, ColourDepth);
}

bool IsFormatLoadable(const std::filesystem::path& FileName, std::string_view MimeType) {
  const MimeRow* row = mimeRow(MimeType);
  if (!row) return false;
  try {
    imaging::FileBytes source(FileName);
    std::array<std::uint8_t, 8> first{};
    const std::size_t got = source.isOpen() ? source.readAt(0, first) : 0;
    if (imaging::kindOf(std::span(first).first(got)) != row->kind) return false;
    // With no pixels allowed only the header is read, and a sound one is refused for its size.
    const imaging::LoadResult header = imaging::readAny(source, row->kind, 0);
    return header.error == imaging::LoadError::TooLarge && pictureSizeAllowed(header.width, header.height);
  } catch (const std::bad_alloc&) {
    return false;
  }
}

// The service reads and writes the same four, GIF when it was given the encoder.
std::optional<EncoderFormat> GetEncoderClsid(std::string_view MimeType) {
  const auto format = GetDecoderClsid(MimeType);
  return format == kEncodeGif && !imaging::hasGifEncoder() ? std::nullopt : format;
}

std::optional<EncoderFormat> GetDecoderClsid(std::string_view MimeType) {
  const MimeRow* row = mimeRow(MimeType);
  return row ? std::optional(row->format) : std::nullopt;
}

bool ResizeDIBQuality(clsDIB& Dib, int NewWidth, int NewHeight, bool HighQuality, const Progress& progress) {
  if (!imaging::imagingUsable() || Dib.empty() || !pictureSizeAllowed(NewWidth, NewHeight)) return false;
  try {
    clsDIB resized;
    const bool force32 = Dib.surface().depth() == 32;
    if (!resized.CreateBlankDIB(NewWidth, NewHeight, Dib.DIBbpp(), kWhite, Dib.BottomUp(), force32)) return false;
    std::ranges::copy(Dib.surface().table(), resized.surface().table().begin());
    if (HighQuality) {
      imaging::resampleBicubic(Dib.surface(), resized.surface(), Dib.DIBhasAlpha(), progress);
      if (progress.stopped()) return false;
    } else {
      imaging::resampleNearest(Dib.surface(), resized.surface());
    }
    resized.setDIBhasAlpha(Dib.DIBhasAlpha());
    Dib = std::move(resized);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace ruvo
