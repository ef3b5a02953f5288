// The imaging service on the program's own surfaces: encoders chosen by number or MIME type, and the quality resizer.
// Operations trap every error: false means that nothing was written and an existing file is as it was. All of them need
// imaging::imagingUsable(). The libraries' side (on raster surfaces) is in platform/imaging.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "image/clsDIB.h"

namespace ruvo {

inline constexpr std::string_view kMimeGif = "image/gif";
inline constexpr std::string_view kMimeJpeg = "image/jpeg";
inline constexpr std::string_view kMimePng = "image/png";
inline constexpr std::string_view kMimeTiff = "image/tiff";

// The numbers by which callers name an encoder; others write nothing.
enum EncoderFormat { kEncodeGif = 1, kEncodeJpeg = 2, kEncodePng = 3, kEncodeTiff = 4 };

// Parameter: JPEG quality 1 to 100 taken as it is, or TIFF colour depth (1, 4, 8, 24, 32); 0 stands for quality 75 and
// the surface's own depth.
bool SaveDIBWithEncoder(const clsDIB& Dib, const std::filesystem::path& FileName, int Format, int parameter = 0);
// Quality below 70 is taken as 70, above 100 as 100.
bool SaveJPEGWithQuality(const clsDIB& Dib, const std::filesystem::path& FileName, int Quality);
bool SaveTIFFWithDepth(const clsDIB& Dib, const std::filesystem::path& FileName, int ColourDepth);
// True when the file's content is of that format.
bool IsFormatLoadable(const std::filesystem::path& FileName, std::string_view MimeType);
// What writes or reads files of that MIME type, by its number; nothing when there is none.
std::optional<EncoderFormat> GetEncoderClsid(std::string_view MimeType);
std::optional<EncoderFormat> GetDecoderClsid(std::string_view MimeType);
// Resamples the whole surface: a bicubic filter that widens when it shrinks (HighQuality) or nearest neighbour, pixel
// centres at half. Keeps depth and alpha. False, also when it was stopped, leaves the surface as it was.
bool ResizeDIBQuality(clsDIB& Dib, int NewWidth, int NewHeight, bool HighQuality, const Progress& progress = {});

}  // namespace ruvo
