// The Exif block of a JPEG file: its tags as texts, and taking the block out of a file or putting it back. Works on the
// file's bytes and knows nothing of the picture. Errors inside a walk end it; nothing is raised.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ruvo {

struct ExifTag {
  std::uint16_t number = 0;
  std::string name;  // "TAG #" and the number when unknown
  int type = 0;      // TIFF field type 1 to 10
  std::uint32_t count = 0;
  std::uint32_t offsetOrValue = 0;
  std::string text;
};

class clsEXIF {
 public:
  enum State : std::uint8_t { kWithExif = 0, kWithoutExif = 1, kNotOpened = 2 };

  static constexpr const char* kWithoutText = "Current file without EXIF.";
  static constexpr const char* kNotOpenedText = "Failed to open the file.";
  static constexpr const char* kDateOrSizeMissing = "Date or size missing.";
  static constexpr const char* kDateMissing = "Date missing.";

  // Fills the tags; Ok is true with an Exif block.
  void ReadEXITInfo(const std::filesystem::path& FileName, bool& Ok);
  // The same from the bytes of a whole file.
  void readBytes(std::span<const std::uint8_t> file, bool& Ok);
  // One line a tag, or the words of the failure.
  std::string ListInfoTags(const std::filesystem::path& FileName);
  // Fill DateTimeStamp (and Width, Height); the answer is empty or the words of the failure.
  std::string ListDateAndSize(const std::filesystem::path& FileName);
  std::string ListDate(const std::filesystem::path& FileName);
  bool IsFromDigitalCamera(const std::filesystem::path& FileName);
  static std::string GetTagName(int Number);

  // Takes everything from the file's start to the end of the Exif block out and rewrites the file without it. `Block`
  // receives what was taken, for AddbackEXIFData. False, with the file as it was, without a block or when it can not be
  // written.
  bool EraseEXIFData(const std::filesystem::path& FileName, std::vector<std::uint8_t>& Block);
  // The block as EraseEXIFData would take it, the file untouched.
  bool readBlock(const std::filesystem::path& FileName, std::vector<std::uint8_t>& Block);
  // Puts such a block in behind the first two bytes of a JPEG. Of two JFIF segments only the block's is written.
  // False, with the file as it was, when it is no JPEG, has an Exif block of its own, `Block` is none, or it can not
  // be written.
  bool AddbackEXIFData(const std::filesystem::path& FileName, std::span<const std::uint8_t> Block);
  // The same on the bytes of a file; empty when refused.
  static std::vector<std::uint8_t> withBlock(std::span<const std::uint8_t> jpeg, std::span<const std::uint8_t> Block);

  const std::vector<ExifTag>& tags() const { return tags_; }
  State state() const { return state_; }
  bool IntelByteAlignment() const { return intel_; }
  std::int64_t EndPosEXIF() const { return endPosition_; }  // of the segment's last byte, counted from 1
  int LengthEXIF() const { return length_; }                // of the segment's length word
  const std::string& DateTimeStamp() const { return date_; }
  const std::string& Width() const { return width_; }
  const std::string& Height() const { return height_; }

 private:
  std::vector<ExifTag> tags_;
  State state_ = kWithoutExif;
  bool intel_ = false;
  std::int64_t endPosition_ = 0;
  int length_ = 0;
  std::string date_;
  std::string width_;
  std::string height_;
};

}  // namespace ruvo
