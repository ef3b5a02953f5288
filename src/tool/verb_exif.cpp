#include "base/file_io.h"
#include "base/limits.h"
#include "base/paths.h"
#include "document/model/save_rules.h"
#include "formats/clsEXIF.h"
#include "tool/exif_lines.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

constexpr const char* kAlreadyThere = "has camera data already";
constexpr const char* kNoBlock = "is no block of camera data";
constexpr const char* kNoJpeg = "is no JPEG";

bool sameFile(const std::string& one, const std::string& other) {
  std::error_code error;
  return std::filesystem::equivalent(pathOf(one), pathOf(other), error);
}

// 1, with the reason, unless the file is a JPEG with an Exif block, which is put into `block`.
int readBlockOf(const std::string& file, std::vector<std::uint8_t>& block, Console& console) {
  if (!fileExists(pathOf(file))) return console.refuse(file, clsEXIF::kNotOpenedText);
  if (!clsEXIF().readBlock(pathOf(file), block)) return console.refuse(file, clsEXIF::kWithoutText);
  return 0;
}

}  // namespace

std::vector<std::string> exifLines(std::string_view listed) {
  static constexpr std::string_view kLineEnd = "\r\n     ";
  std::vector<std::string> lines;
  for (std::size_t end = listed.find(kLineEnd); end != std::string_view::npos; end = listed.find(kLineEnd)) {
    lines.push_back(printable(listed.substr(0, end)));
    listed.remove_prefix(end + kLineEnd.size());
  }
  return lines;
}

int exifList(const Arguments& arguments, Console& console) {
  const std::string& file = arguments.operand(0);
  clsEXIF exif;
  const std::string listed = exif.ListInfoTags(pathOf(file));
  if (exif.state() != clsEXIF::kWithExif) return console.refuse(file, listed);
  for (const std::string& line : exifLines(listed)) console.out() << line << '\n';
  return 0;
}

int exifErase(const Arguments& arguments, Console& console) {
  const std::string& file = arguments.operand(0);
  const std::string& target = arguments.operand(1);
  std::vector<std::uint8_t> block;
  if (const int status = readBlockOf(file, block, console)) return status;
  if (sameFile(file, target)) return console.refuse(target, "is the picture itself");
  // The block is safe on disk before it leaves the picture.
  std::string reason;
  if (!replaceFile(pathOf(target), block, &reason)) return console.refuse(target, reason);
  return clsEXIF().EraseEXIFData(pathOf(file), block) ? 0 : console.refuse(file, kSaveFailed);
}

int exifRestore(const Arguments& arguments, Console& console) {
  const std::string& file = arguments.operand(0);
  const std::string& source = arguments.operand(1);
  const auto picture = readWholeFile(pathOf(file), kMaxFileBytes);
  if (!picture) return console.refuse(file, clsEXIF::kNotOpenedText);
  const auto block = readWholeFile(pathOf(source), kMaxFileBytes);
  if (!block) return console.refuse(source, clsEXIF::kNotOpenedText);
  if (std::vector<std::uint8_t> own; clsEXIF().readBlock(pathOf(file), own)) return console.refuse(file, kAlreadyThere);
  const std::vector<std::uint8_t> whole = clsEXIF::withBlock(*picture, *block);
  if (whole.empty()) {
    // Only one of the two can be at fault when the other one begins as it should.
    const bool isJpeg = picture->size() >= 4 && (*picture)[0] == 0xFF && (*picture)[1] == 0xD8;
    return isJpeg ? console.refuse(source, kNoBlock) : console.refuse(file, kNoJpeg);
  }
  std::string reason;
  return replaceFile(pathOf(file), whole, &reason) ? 0 : console.refuse(file, reason);
}

}  // namespace ruvo::tool
