// Which source pixels fall on which destination pixels along one axis of a stretch.
#pragma once

#include <cstdint>
#include <vector>

namespace ruvo::raster {

// One axis: the destination run and the source run, extents signed as in Extent, with the size of the source surface
// and the destination pixels [low, high) that are wanted.
struct StretchAxis {
  int to;
  int toLength;
  int from;
  int fromLength;
  int sourceSize;
  int low;
  int high;

  std::int64_t s() const { return fromLength < 0 ? -static_cast<std::int64_t>(fromLength) : fromLength; }
  std::int64_t d() const { return toLength < 0 ? -static_cast<std::int64_t>(toLength) : toLength; }
  bool shrinks() const { return s() > d(); }
  bool mirrored() const { return (fromLength < 0) != (toLength < 0); }
  // Destination pixel <-> step along the run; source step -> source pixel.
  std::int64_t stepOf(int pixel) const {
    return toLength > 0 ? static_cast<std::int64_t>(pixel) - to : static_cast<std::int64_t>(to) - pixel;
  }
  std::int64_t sourceOf(std::int64_t step) const { return fromLength > 0 ? from + step : from - step; }
};

// The destination pixels [first, first + count) and for each the source pixels [begin, end) whose content falls on it,
// in picking modes; `picked` is the one that ColorOnColor takes. Destination pixels without any source are cut off.
struct PickMap {
  struct Run {
    int begin;
    int end;
    int picked;
  };
  int first = 0;
  std::vector<Run> runs;
  int count() const { return static_cast<int>(runs.size()); }
};
PickMap pickMap(const StretchAxis& axis, bool columns);

// The same for Halftone. Shrinking, pixel k covers the source [begin, end) with the weights of its part of `weights`,
// in units that add up to `total`. Growing, it lies between `begin` and `end` (one and the same at the edges), `weight`
// / 256 of the way.
struct AreaMap {
  struct Part {
    int begin;
    int end;
    int weight;
    std::int64_t firstWeight;
    std::int64_t lastWeight;
    std::int64_t total;
  };
  int first = 0;
  bool shrinks = false;
  std::int64_t fullWeight = 0;  // of a source pixel that is covered whole
  std::vector<Part> parts;
  int count() const { return static_cast<int>(parts.size()); }
  int sourceBegin() const;
  int sourceEnd() const;
};
AreaMap areaMap(const StretchAxis& axis);

}  // namespace ruvo::raster
