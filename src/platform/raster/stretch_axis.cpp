#include "platform/raster/stretch_axis.h"

#include <algorithm>

namespace ruvo::raster {
namespace {

// Wanted destination pixels that the run really reaches: [low, high).
void cutToRun(const StretchAxis& a, int& low, int& high) {
  const std::int64_t begin = a.toLength > 0 ? a.to : static_cast<std::int64_t>(a.to) + a.toLength + 1;
  const std::int64_t end = begin + a.d();
  low = static_cast<int>(std::max<std::int64_t>(a.low, begin));
  high = static_cast<int>(std::min<std::int64_t>(a.high, end));
}

// Steps [begin, end) of the source that fall on step i when shrinking: the steps whose scaled place rounds to i.
struct Steps {
  std::int64_t begin;
  std::int64_t end;
};
Steps shrunkRun(const StretchAxis& a, std::int64_t i, bool columns) {
  const std::int64_t s = a.s(), d = a.d();
  // One column wide and not mirrored, the platform loses the last source column.
  if (d == 1 && columns && a.fromLength > 0 && a.toLength > 0) return {0, s - 1};
  return {(2 * i * s + d) / (2 * d), (2 * (i + 1) * s + d) / (2 * d)};
}

}  // namespace

PickMap pickMap(const StretchAxis& a, bool columns) {
  PickMap map;
  int low, high;
  cutToRun(a, low, high);
  const std::int64_t s = a.s(), d = a.d();
  for (int pixel = low; pixel < high; ++pixel) {
    const std::int64_t i = a.stepOf(pixel);
    Steps steps{};
    if (a.shrinks()) {
      steps = shrunkRun(a, i, columns);
    } else {
      steps.begin = ((2 * i + 1) * s - 1) / (2 * d);
      steps.end = steps.begin + 1;
    }
    // The part of the run that exists, as steps: the source pixels 0 .. size - 1.
    const std::int64_t p =
        a.fromLength > 0 ? -static_cast<std::int64_t>(a.from) : static_cast<std::int64_t>(a.from) - a.sourceSize + 1;
    const Steps there{std::max(steps.begin, p), std::min(steps.end, p + a.sourceSize)};
    // Rows take the first of their run and are lost with it; columns the last that exists.
    const std::int64_t taken = columns ? there.end - 1 : steps.begin;
    if (there.begin >= there.end) {
      if (map.runs.empty()) continue;
      break;
    }
    if (map.runs.empty()) map.first = pixel;
    const std::int64_t one = a.sourceOf(there.begin), other = a.sourceOf(there.end - 1);
    const bool pickExists = taken >= there.begin && taken < there.end;
    map.runs.push_back({static_cast<int>(std::min(one, other)), static_cast<int>(std::max(one, other)) + 1,
                        pickExists ? static_cast<int>(a.sourceOf(taken)) : -1});
  }
  return map;
}

int AreaMap::sourceBegin() const {
  const int least = std::min(parts.front().begin, parts.back().begin);
  return std::min({least, parts.front().end, parts.back().end});
}

int AreaMap::sourceEnd() const {
  const int last = std::max(parts.front().end, parts.back().end);
  return shrinks ? last : last + 1;
}

namespace {

// Step i covers [i * s, (i + 1) * s) where each source step is d units long. Answers false when none of it exists.
bool shrunkPart(const StretchAxis& a, std::int64_t i, AreaMap::Part& part) {
  const std::int64_t s = a.s(), d = a.d();
  std::int64_t begin = i * s, end = begin + s;
  const std::int64_t p =
      a.fromLength > 0 ? -static_cast<std::int64_t>(a.from) : static_cast<std::int64_t>(a.from) - a.sourceSize + 1;
  begin = std::max(begin, p * d);
  end = std::min(end, (p + a.sourceSize) * d);
  if (begin >= end) return false;
  const std::int64_t firstStep = begin / d, lastStep = (end - 1) / d;
  const std::int64_t firstWeight = std::min(end, (firstStep + 1) * d) - begin;
  const std::int64_t lastWeight = end - std::max(begin, lastStep * d);
  const bool forward = a.fromLength > 0;
  part.begin = static_cast<int>(a.sourceOf(forward ? firstStep : lastStep));
  part.end = static_cast<int>(a.sourceOf(forward ? lastStep : firstStep)) + 1;
  part.firstWeight = forward ? firstWeight : lastWeight;
  part.lastWeight = forward ? lastWeight : firstWeight;
  part.total = end - begin;
  return true;
}

// The centre of step i lies at (i + 1/2) * s / d - 1/2 source steps; between the centres of two neighbours it is mixed.
bool grownPart(const StretchAxis& a, std::int64_t i, AreaMap::Part& part) {
  const std::int64_t s = a.s(), d = a.d();
  const std::int64_t nearest = a.sourceOf(((2 * i + 1) * s) / (2 * d));
  if (nearest < 0 || nearest >= a.sourceSize) return false;
  const std::int64_t place = std::max<std::int64_t>((2 * i + 1) * s - d, 0);  // in 1/(2d)
  const std::int64_t step = std::min(place / (2 * d), s - 1);
  const std::int64_t next = std::min(step + 1, s - 1);
  part.weight = static_cast<int>((place - step * 2 * d) * 256 / (2 * d));
  if (step == next) part.weight = 0;
  const auto inside = [&](std::int64_t k) {
    return static_cast<int>(std::clamp<std::int64_t>(a.sourceOf(k), 0, a.sourceSize - 1));
  };
  part.begin = inside(step);
  part.end = inside(next);
  return true;
}

}  // namespace

AreaMap areaMap(const StretchAxis& a) {
  AreaMap map;
  map.shrinks = a.shrinks();
  map.fullWeight = a.d();
  int low, high;
  cutToRun(a, low, high);
  for (int pixel = low; pixel < high; ++pixel) {
    AreaMap::Part part{};
    const std::int64_t i = a.stepOf(pixel);
    const bool there = map.shrinks ? shrunkPart(a, i, part) : grownPart(a, i, part);
    if (!there) {
      if (map.parts.empty()) continue;
      break;
    }
    if (map.parts.empty()) map.first = pixel;
    map.parts.push_back(part);
  }
  return map;
}

}  // namespace ruvo::raster
