#include <cmath>

#include "animation/model/basGIFaniChangePal_Private.h"
#include "base/rounding.h"
#include "platform/raster/palette_match.h"

namespace ruvo {
namespace {

struct Cluster {
  std::array<double, 3> mean{};  // red, green, blue
  double pixels = 0;
};

// Entries and how many pixels of the pool are nearest to each.
std::vector<Cluster> clustersOf(const clsPal& palette, const clsDIB& pool) {
  std::vector<Cluster> clusters;
  for (const raster::TableEntry& e : palette.entriesInUse()) {
    clusters.push_back({{double(e.red), double(e.green), double(e.blue)}, 0});
  }
  raster::PaletteMatcher matcher(palette.entriesInUse());
  for (int y = 0; y < pool.DIBHeight(); ++y) {
    const Pixel32* row = pool.surface().view32().row(y);
    for (int x = 0; x < pool.DIBWidth(); ++x)
      ++clusters[static_cast<std::size_t>(matcher.indexOf(row[x].colour()))].pixels;
  }
  return clusters;
}

// By how much the squared error grows when both become one.
double costOf(const Cluster& a, const Cluster& b) {
  double distance = 0;
  for (std::size_t c = 0; c < a.mean.size(); ++c) distance += (a.mean[c] - b.mean[c]) * (a.mean[c] - b.mean[c]);
  const double pixels = a.pixels + b.pixels;
  return pixels == 0 ? 0 : distance * a.pixels * b.pixels / pixels;
}

void join(Cluster& into, const Cluster& other) {
  const double pixels = into.pixels + other.pixels;
  if (pixels == 0) return;
  for (std::size_t c = 0; c < into.mean.size(); ++c) {
    into.mean[c] = (into.mean[c] * into.pixels + other.mean[c] * other.pixels) / pixels;
  }
  into.pixels = pixels;
}

void joinCheapest(std::vector<Cluster>& clusters) {
  std::size_t first = 0, second = 1;
  for (std::size_t i = 0; i < clusters.size(); ++i) {
    for (std::size_t k = i + 1; k < clusters.size(); ++k) {
      if (costOf(clusters[i], clusters[k]) < costOf(clusters[first], clusters[second])) first = i, second = k;
    }
  }
  join(clusters[first], clusters[second]);
  clusters.erase(clusters.begin() + static_cast<std::ptrdiff_t>(second));
}

}  // namespace

void mergeEntries(clsPal& palette, const clsDIB& pool, int entries) {
  if (palette.MaxCount() <= entries) return;
  std::vector<Cluster> clusters = clustersOf(palette, pool);
  while (static_cast<int>(clusters.size()) > std::max(entries, 1)) joinCheapest(clusters);
  palette.ClearUp();
  for (const Cluster& cluster : clusters) {
    const int i = palette.MaxCount();
    palette.setMaxCount(i + 1);
    palette.setRgbR(i, clampToByte(roundToInt(cluster.mean[0])));
    palette.setRgbG(i, clampToByte(roundToInt(cluster.mean[1])));
    palette.setRgbB(i, clampToByte(roundToInt(cluster.mean[2])));
  }
}

}  // namespace ruvo
