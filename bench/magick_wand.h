// ImageMagick as the peer: its picture of the same pixels, worked on by one thread.
#pragma once

#include <benchmark/benchmark.h>
#include <wand/MagickWand.h>

#include "image/clsDIB.h"

namespace ruvo::bench {

inline MagickWand* wandOf(const clsDIB& dib) {
  static const bool once = [] {
    MagickWandGenesis();
    MagickSetResourceLimit(ThreadResource, 1);
    return true;
  }();
  benchmark::DoNotOptimize(once);
  MagickWand* wand = NewMagickWand();
  MagickConstituteImage(wand, static_cast<std::size_t>(dib.DIBWidth()), static_cast<std::size_t>(dib.DIBHeight()),
                        "BGRP", CharPixel, dib.DIBBitsPtr());
  return wand;
}

}  // namespace ruvo::bench
