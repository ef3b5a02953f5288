// Icon and cursor files: one or more images, each a picture (XOR) and a mask (AND, white where the background shows).
// Images are numbered from 0.
//
// An entry holds either a headless BMP with the mask behind it or, where its data start with that signature, a PNG. What
// a directory says of its images is not trusted but for the place of the data and the width.
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
    // False for an image that could not be read (its surfaces are empty); the stated values still tell what the file
    // says of it.
    bool readable = true;
    int statedWidth = 0;
    int statedHeight = 0;
    int statedBPP = 0;
  };

  // --- Header checks of a file, used ahead of opening
  static bool ValidIcons(const std::filesystem::path& FileName);
  static bool ValidCursor(const std::filesystem::path& FileName);

  // False, leaving the object empty, when the header is not valid, the directory is not all there or no image could be
  // read. Together the images of a file have at most kMaxPicturePixels pixels; those beyond are not readable.
  bool OpenICO(const std::filesystem::path& FileName);
  bool openBytes(std::span<const std::uint8_t> bytes);
  // The stated size of an image that the last opening refused because such a picture is not allowed; 0 x 0 for none.
  Size refusedSize() const { return refusedSize_; }

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
  // The first image that could be read, -1 for none.
  int firstReadable() const;
  // The image with its transparency in byte 3: its own alpha where it has any, else 0 where the mask is white and 255
  // elsewhere. 32 bits with DIBhasAlpha; empty outside the range.
  clsDIB withAlpha(int Index) const;
  // Alpha bytes of a 32-bit image, picture order; none for another depth. Putting takes width x height bytes and settles
  // DIBhasAlpha by them.
  std::vector<std::uint8_t> getArrayAlpha(int Index) const;
  void putArrayAlpha(int Index, std::span<const std::uint8_t> alpha);

  // Images with alpha come composed on `Background`; others are drawn over what the target shows, first the mask with
  // AND, then the picture with OR.
  void DrawIcon_To_DIB(int Index, clsDIB& Target, int X, int Y, Colour Background = kWhite) const;
  void DrawImage(int Index, raster::Surface& hDC, int X, int Y) const;
  void DrawMask(int Index, raster::Surface& hDC, int X, int Y) const;
  // The first image of exactly that size (and depth), -1 for none.
  int SeekIcon(int Width, int Height, int Bpp) const;
  int SeekIcon_Size(int Width, int Height) const;

  // Adds an image for SaveICO_All.
  void add(Image image) { images_.push_back(std::move(image)); }
  void setFileType(int type) { type_ = type; }
  // --- Writing: the file is replaced whole, false leaves the old one. A side is at most kMostSide; an image with a side
  // of kMostSide, which the byte of a directory can not hold, is written as a PNG with its transparency as alpha.
  static constexpr int kMostSide = 256;
  // One image. Type 1 is an icon, 2 a cursor with its hot spot. A 32-bit Image without alpha is written with 24 bits;
  // Mask, of the Image's size and any depth, becomes 1 bit, white where see-through. Under white mask the alpha of an
  // Image with alpha is written as 0. No Mask (an empty one): nothing is see-through but what has alpha 0.
  static bool SaveICO_Single(const std::filesystem::path& FileName, const clsDIB& Image, const clsDIB& Mask, int Type,
                             int HotX = 0, int HotY = 0);
  // All images as they are held, each at its own depth. Refused with kSameSizeAndDepth (in `reason`) when two of them
  // are of the same size and depth, and without a word when one is not readable or too large.
  bool SaveICO_All(const std::filesystem::path& FileName, std::string* reason = nullptr) const;
  void ClearUp();

 private:
  const Image* at(int Index) const;

  int type_ = kIconType;
  std::vector<Image> images_;
  Size refusedSize_;
};

}  // namespace ruvo
