// The formats of the program, each once: extensions, names, filters, and how its pictures are read. Opening, saving,
// the file dialogs and the command line all read this table; a new format is its codec and one row.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "image/clsDIB.h"
#include "platform/imaging/picture_loader.h"

namespace ruvo {

class clsICO;

enum class Format { Bmp, Gif, Jpeg, Wmf, Emf, Png, Tiff, Tga, Pcx, Ico, Cur };

struct ReadRequest {
  // The program's own reader where the platform's could do it (PNG, and GIF of any size).
  bool native = false;
  // What is see-through stays so: PNG and TIFF with their alpha, a GIF without its white ground, an icon with its mask
  // as alpha. Otherwise those are shown on white (a BMP's alpha is kept in either case).
  bool keepAlpha = false;
  // Which image of an icon file with several; -1 gives up. Without it the first.
  std::function<int(const clsICO&)> chooseImage = {};
};

struct ReadPicture {
  imaging::LoadError error = imaging::LoadError::None;
  bool cancelled = false;  // chooseImage gave up
  int gifCode = 0;         // the frame model's code when it refused
  std::string words;       // the reader's own words for a refusal, where it has any
  int width = 0;           // as the file states it, also when it was refused for its size
  int height = 0;
  clsDIB dib;         // 32 bits, real alpha in byte 3 when DIBhasAlpha
  clsDIB mask;        // of an icon or cursor: 1 bit, white where see-through
  int fileDepth = 0;  // bits a pixel as stored in the file; 0 where that means nothing (metafiles)
  // Where the format tells.
  std::optional<bool> transparent;
  std::optional<bool> interlaced;
  std::optional<bool> severalFrames;

  explicit operator bool() const { return !dib.empty(); }
};

struct FormatRow {
  Format format;
  std::string_view name;        // as people write it
  std::string_view family;      // of its group in the open dialog
  std::string_view extensions;  // lower case with dots, the usual one first: ".jpg/.jpeg"
  std::string_view saveFilter;  // of the save dialog; empty when the program does not write the format
  bool readNeedsImaging;        // refused in words when the imaging service is not usable
  bool writeNeedsImaging;
  // How a file of the format is read: its (first) picture. Null for a format without a reader.
  ReadPicture (*read)(const std::filesystem::path& file, const ReadRequest& request);
};
// In the order in which the formats are told to people.
std::span<const FormatRow> formatTable();
const FormatRow& rowOf(Format format);
// By extension with its dot, whatever its letter case; null for none of ours.
const FormatRow* formatOfExtension(std::string_view extension);

// The extensions of all rows as one text with slashes between: ".bmp/.gif/.jpg/.jpeg/...".
const std::string& openableExtensions();
// Membership is a search within that text, so a part of an extension (".t", ".jpe") passes too; such a file is told by
// its content. `extension` begins with its dot; letter case does not matter. No extension is in no list.
bool isOpenableExtension(std::string_view extension);
// The row that opens a file with an openable extension; null for any other. A part of an extension goes to the
// platform's loader (the first row), which looks at the content.
const FormatRow* formatToOpen(std::string_view extension);

// A GIF up to this size is read into the frame model; a larger one by the platform's loader.
inline constexpr std::int64_t kLargestModelledGif = 2000000;

// row.read, with memory that ran out told as imaging::LoadError::NoMemory. When there is a picture, its size is
// allowed.
ReadPicture readPicture(const std::filesystem::path& file, const FormatRow& row, const ReadRequest& request = {});

}  // namespace ruvo
