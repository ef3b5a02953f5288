// What the platform's picture loader gives: a bitmap or a metafile with its size in pixels.
#pragma once

#include <memory>

#include "platform/raster/surface.h"

namespace ruvo::imaging {

struct Metafile;

// A loaded picture. Copies share the pixels. Null when nothing was loaded.
struct Picture {
  enum class Kind { None, Bitmap, Metafile };

  Kind kind = Kind::None;
  int width = 0;   // pixels
  int height = 0;  // pixels
  // For a bitmap its pixels at the depth of the file; byte 3 of 32-bit pixels is alpha only when hasAlpha says so.
  std::shared_ptr<raster::Surface> bitmap;
  bool hasAlpha = false;
  // For a metafile its records; playMetafile() draws them.
  std::shared_ptr<const Metafile> metafile;

  explicit operator bool() const { return kind != Kind::None; }
  static Picture ofBitmap(raster::Surface&& surface, bool alpha = false) {
    Picture picture;
    picture.kind = Kind::Bitmap;
    picture.width = surface.width();
    picture.height = surface.height();
    picture.bitmap = std::make_shared<raster::Surface>(std::move(surface));
    picture.hasAlpha = alpha;
    return picture;
  }
};

}  // namespace ruvo::imaging
