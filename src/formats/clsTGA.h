// Targa files: read at every depth into 32 bits, written with 24.
#pragma once

#include <filesystem>
#include <span>

#include "image/clsDIB.h"

namespace ruvo {

class clsTGA {
 public:
  bool Compressed = false;  // of the file that was read; files are always written without compression

  // False when the file is none of this kind (IsTGA() false) or its picture is damaged or too large (IsTGA() true; the
  // stated size is still in TGAWidth() and TGAHeight()).
  bool LoadTGA(const std::filesystem::path& FileName);
  bool loadBytes(std::span<const std::uint8_t> file);
  bool IsTGA() const { return valid_; }
  int TGAWidth() const { return width_; }
  int TGAHeight() const { return height_; }
  int Bpp() const { return bpp_; }
  // 32 bits, byte 3 zero; empty unless a load succeeded.
  const clsDIB& dib() const { return dib_; }
  clsDIB takeDib() { return std::move(dib_); }
  void DrawTGA(raster::Surface& hDC, int X, int Y) const;
  // The top left Width x Height of a surface. The file is replaced whole; false leaves the old one.
  bool SaveTGAinFile(const std::filesystem::path& FileName, const raster::Surface& hDC, int Width, int Height) const;
  void ClearUp();

 private:
  clsDIB dib_;
  bool valid_ = false;
  int width_ = 0;
  int height_ = 0;
  int bpp_ = 0;
};

}  // namespace ruvo
