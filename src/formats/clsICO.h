// Icon and cursor files: one or more images, each a picture (XOR) and a mask (AND, white where the background shows).
// Images are numbered from 0.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "image/clsDIB.h"

namespace ruvo {

enum IcoType { kIconType = 1, kCursorType = 2 };

class clsICO {
 public:
  static constexpr const char* kInvalidIcon = "Invalid icon file.";
  static constexpr const char* kInvalidCursor = "Invalid cursor file.";
  static constexpr const char* kSameSizeAndDepth = "Icons of identical size and color depth found.";

  struct Image {
    clsDIB XOR;  // depth of the file: 1, 4, 8, 24 or 32; DIBhasAlpha when any alpha byte of 32 bits is not 0
    clsDIB AND;  // 1 bit
    int hotSpotX = 0;
    int hotSpotY = 0;
    std::uint32_t bytesInRes = 0;
    // False for an image that could not be read (its surfaces are empty); statedBPP still tells what the file says.
    bool readable = true;
    int statedBPP = 0;
  };

  // --- Header checks of a file, used ahead of opening
  static bool ValidIcons(const std::filesystem::path& FileName);
  static bool ValidCursor(const std::filesystem::path& FileName);

  // Entries whose data start with the PNG signature are read as PNG. False, leaving the object empty, when the header is
  // not valid or no image could be read.
  bool OpenICO(const std::filesystem::path& FileName);
  bool openBytes(std::span<const std::uint8_t> bytes);

  int FileType() const { return type_; }
  int IconCount() const { return static_cast<int>(images_.size()); }
  int IconWidth(int Index) const;
  int IconHeight(int Index) const;
  int IconBPP(int Index) const;
  std::uint32_t IconBytesInRes(int Index) const;
  int HotSpotX(int Index) const;
  int HotSpotY(int Index) const;
  const clsDIB& DIBXOR(int Index) const;  // an empty surface outside the range
  const clsDIB& DIBAND(int Index) const;
  const std::vector<Image>& images() const { return images_; }
  // Alpha bytes of a 32-bit image, picture order.
  std::vector<std::uint8_t> getArrayAlpha(int Index) const;
  void putArrayAlpha(int Index, std::span<const std::uint8_t> alpha);

  // Draws over what the target shows: alpha over `Background` for images with alpha, else by mask.
  void DrawIcon_To_DIB(int Index, clsDIB& Target, int X, int Y, Colour Background = kWhite) const;
  void DrawImage(int Index, raster::Surface& hDC, int X, int Y) const;
  void DrawMask(int Index, raster::Surface& hDC, int X, int Y) const;
  int SeekIcon(int Width, int Height, int Bpp) const;
  int SeekIcon_Size(int Width, int Height) const;

  // Adds an image for SaveICO_All.
  void add(Image image) { images_.push_back(std::move(image)); }
  void setFileType(int type) { type_ = type; }
  // --- Writing: the file is replaced whole, false leaves the old one. Type 1 icon, 2 cursor with its hot spot. A
  // 32-bit Image without alpha is written with 24 bits; Mask becomes 1 bit, white where see-through.
  static bool SaveICO_Single(const std::filesystem::path& FileName, const clsDIB& Image, const clsDIB& Mask, int Type,
                             int HotX = 0, int HotY = 0);
  // Refused with kSameSizeAndDepth (in `reason`) when two images are of the same size and depth.
  bool SaveICO_All(const std::filesystem::path& FileName, std::string* reason = nullptr) const;
  void ClearUp();

 private:
  int type_ = kIconType;
  std::vector<Image> images_;
};

}  // namespace ruvo
