// Palette files in the "JASC-PAL" text form: CRLF line ends, version "0100", 256 entries of three three-digit numbers.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "formats/clsGIF.h"

namespace ruvo {

// 3349 bytes; entries past `entries` are 000 000 000.
std::string palText(std::span<const raster::TableEntry> table, int entries);
struct PalFile {
  GifTable table{};
  int entries = 0;
};
// Takes any line ends, blanks and tabs, and any count from 1 to 256 whose entries all stand there; nothing otherwise.
std::optional<PalFile> parsePal(std::string_view text);
std::optional<PalFile> readPalFile(const std::filesystem::path& path);

}  // namespace ruvo
