#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "effects/model/solid_shading.h"
#include "effects/model/solids.h"

namespace ruvo {
namespace {

// In half edges: how far off the viewer stands.
constexpr float kViewer = 7.5f;
constexpr float kHalfDiagonal = 1.7320508f;
// In half edges from the middle of the base: no shadow is farther.
constexpr float kShadowReach = 6;
// What counts as sharp.
constexpr float kLeastBend = 0.002f;
// Samples in each direction where a pixel holds an edge.
constexpr int kFine = 4;

float part(Vector3 v, int axis) {
  return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

struct Ground {
  float x;
  float z;
};

// The shadow of the cube on its ground, as a convex figure seen from above: the base drawn along to where the light
// throws the upper face.
class CubeShadow {
 public:
  // `light` points to the light, in the frame of the cube. A rounded cube throws the shadow of a smaller one, with a
  // margin.
  CubeShadow(Vector3 light, float bend) : margin_(0.7f * bend) {
    const float half = 1 - bend;
    // Shadows of a low light would have no end.
    const float rise = std::max(light.y, 0.22f);
    throw_ = {-2 * light.x / rise, -2 * light.z / rise};
    thrown_ = std::hypot(throw_.x, throw_.z);
    const auto side = [&](float nx, float nz) {
      // How far base and thrown face reach in this direction.
      const float reach = half * (std::abs(nx) + std::abs(nz)) + std::max(0.0f, nx * throw_.x + nz * throw_.z);
      sides_.push_back({nx, nz, reach});
    };
    for (const float sign : {-1.0f, 1.0f}) {
      side(sign, 0);
      side(0, sign);
      if (thrown_ > 0.001f) side(sign * -throw_.z / thrown_, sign * throw_.x / thrown_);
    }
  }

  // 1 in the full shadow, 0 outside; softer the farther from the cube.
  float at(Ground p) const {
    float inside = -1e9f, outside2 = 0;
    for (const Side& side : sides_) {
      const float d = p.x * side.nx + p.z * side.nz - side.reach;
      inside = std::max(inside, d);
      if (d > 0) outside2 += d * d;
    }
    const float distance = (inside > 0 ? std::sqrt(outside2) : inside) - margin_;
    const float along = thrown_ > 0.001f ? (p.x * throw_.x + p.z * throw_.z) / thrown_ : 0;
    const float soft = 0.03f + 0.13f * std::max(0.0f, along - 0.6f);
    return 1 - smoothStep(-soft, soft, distance);
  }

 private:
  struct Side {
    float nx, nz, reach;
  };
  float margin_;
  Ground throw_{};
  float thrown_ = 0;
  std::vector<Side> sides_;
};

// All lengths in half edges; places on the picture are those of the plane through the cube's middle.
class CubeScene {
 public:
  explicit CubeScene(const Cube& cube)
      : axes_(axesOf(cube)),
        shading_(cube.look, axes_[1]),
        viewer_(inCube({0, 0, kViewer})),
        light_(shading_.towardsLight()),
        bend_(std::max(kLeastBend, static_cast<float>(cube.rounding))),
        flat_(1 - bend_),
        cubeShadow_(inCube(light_), bend_),
        cast_(0.85f * smoothStep(0, 0.3f, dot(light_, axes_[1]))),
        shadow_(static_cast<float>(cube.look.shadow)) {}

  struct Sight {
    float cover = 0;  // share of the pixel that the cube has, from one half on when the ray in its middle hits
    Light light;
  };
  // What the viewer sees there; `perPixel` is the side of a pixel.
  Sight look(float x, float y, float perPixel) const {
    const Vector3 ray = rayThrough(x, y);
    for (int axis = 0; axis < 3; ++axis) {
      const float from = part(viewer_, axis);
      if (std::abs(from) <= 1) continue;
      const float way = ((from > 0 ? 1.0f : -1.0f) - from) / part(ray, axis);
      if (!(way > 0)) continue;
      const Vector3 hit = viewer_ + ray * way;
      const auto within = [&](int other, float most) { return other == axis || std::abs(part(hit, other)) <= most; };
      if (!within(0, 1) || !within(1, 1) || !within(2, 1)) continue;
      if (within(0, flat_) && within(1, flat_) && within(2, flat_)) return {1, shade(hit, past(hit))};
      return lookAtRounding(hit, unit(ray), perPixel);
    }
    return {};
  }

  // Whether the rounding is too fine to tell where the outline passes.
  bool sharp(float perPixel) const { return bend_ < 4 * perPixel; }
  bool castsShadow() const { return shadow_ > 0 && viewer_.y > -1; }
  float groundDarkness(float x, float y) const {
    const Vector3 ray = rayThrough(x, y);
    if (ray.y >= -1e-4f) return 0;
    const float way = (-1 - viewer_.y) / ray.y;
    const Ground place = {viewer_.x + ray.x * way, viewer_.z + ray.z * way};
    const float distance2 = (place.x * place.x + place.z * place.z) / (kShadowReach * kShadowReach);
    if (distance2 >= 1) return 0;
    const float fade = (1 - distance2) * (1 - distance2);
    const float base = 1 - 0.8f * bend_;
    const float besideX = std::max(0.0f, std::abs(place.x) - base);
    const float besideZ = std::max(0.0f, std::abs(place.z) - base);
    const float beside2 = besideX * besideX + besideZ * besideZ;
    const float contact = beside2 < 2.25f ? std::exp(-4.5f * std::sqrt(beside2)) : 0;
    return shadow_ * (1 - (1 - cast_ * cubeShadow_.at(place) * fade) * (1 - 0.5f * contact));
  }

  // The corners on the picture; bits 0 to 2 of the index tell the side along x, y and z.
  std::array<Vector3, 8> corners() const {
    std::array<Vector3, 8> places;
    for (unsigned i = 0; i < 8; ++i) {
      const Vector3 p =
          axes_[0] * (i & 1 ? 1.0f : -1.0f) + axes_[1] * (i & 2 ? 1.0f : -1.0f) + axes_[2] * (i & 4 ? 1.0f : -1.0f);
      const float nearer = kViewer / (kViewer - p.z);
      places[i] = {p.x * nearer, p.y * nearer, p.z};
    }
    return places;
  }

 private:
  // The cube's own axes as the viewer sees them.
  static std::array<Vector3, 3> axesOf(const Cube& cube) {
    const auto turnSin = static_cast<float>(std::sin(radiansOf(cube.turn)));
    const auto turnCos = static_cast<float>(std::cos(radiansOf(cube.turn)));
    const auto tiltSin = static_cast<float>(std::sin(radiansOf(cube.tilt)));
    const auto tiltCos = static_cast<float>(std::cos(radiansOf(cube.tilt)));
    const auto tilted = [&](Vector3 v) {
      return Vector3{v.x, v.y * tiltCos - v.z * tiltSin, v.y * tiltSin + v.z * tiltCos};
    };
    return {tilted({turnCos, 0, -turnSin}), tilted({0, 1, 0}), tilted({turnSin, 0, turnCos})};
  }
  Vector3 inCube(Vector3 v) const { return {dot(v, axes_[0]), dot(v, axes_[1]), dot(v, axes_[2])}; }
  Vector3 inView(Vector3 v) const { return axes_[0] * v.x + axes_[1] * v.y + axes_[2] * v.z; }
  Vector3 rayThrough(float x, float y) const { return inCube({x, y, -kViewer}); }

  // From the faces of the inner cube on which the rounding rolls.
  Vector3 past(Vector3 p) const {
    const auto over = [&](float c) { return std::copysign(std::max(0.0f, std::abs(c) - flat_), c); };
    return {over(p.x), over(p.y), over(p.z)};
  }

  // Cover of a pixel whose ray meets a rounding. How far off the outline passes follows from how steeply it does; where
  // all the faces that meet there are seen, it passes elsewhere.
  float coverBeside(Vector3 over, float steep, float perPixel) const {
    bool allSeen = true;
    for (int axis = 0; axis < 3; ++axis) {
      const float side = part(over, axis);
      allSeen = allSeen && (side == 0 || part(viewer_, axis) * std::copysign(1.0f, side) > 1);
    }
    return allSeen ? 1 : std::min(1.0f, 0.5f + bend_ * (1 - std::sqrt(1 - std::min(1.0f, steep * steep))) / perPixel);
  }

  // On from where the ray meets the sharp cube. Each step is as long as nothing can be nearer.
  Sight lookAtRounding(Vector3 p, Vector3 ray, float perPixel) const {
    constexpr int kMostSteps = 40;
    const float closeEnough = 0.02f * perPixel;
    Vector3 nearest = p;
    float nearestFree = 4;
    for (int i = 0; i < kMostSteps; ++i) {
      const Vector3 over = past(p);
      const float away = lengthOf(over), free = away - bend_;
      if (free < closeEnough) {
        return {coverBeside(over, dot(over, ray) / away, perPixel), shade(p, over)};
      }
      // A round body once left behind does not come back.
      if (free > nearestFree) break;
      nearest = p;
      nearestFree = free;
      p = p + ray * free;
    }
    if (nearestFree >= 0.5f * perPixel) return {};
    return {0.5f - nearestFree / perPixel, shade(nearest, past(nearest))};
  }

  Light shade(Vector3 hit, Vector3 over) const {
    const Vector3 place = inView(hit);
    const Vector3 view = unit(Vector3{0, 0, kViewer} - place);
    // The light stands near enough that faces are not all of one tone.
    const Vector3 light = unit(light_ * 6 - place);
    const float open = 1 - 0.4f * shadow_ * (1 - smoothStep(-1, 0.2f, hit.y));
    return shading_.seen(inView(unit(over)), view, light, open);
  }

  std::array<Vector3, 3> axes_;
  SolidShading shading_;
  Vector3 viewer_;
  Vector3 light_;
  float bend_;
  float flat_;
  CubeShadow cubeShadow_;
  float cast_;  // darkness of the shadow that the light throws; a light from below throws none
  float shadow_;
};

// Which pixels of a row hold an edge.
class EdgePixels {
 public:
  EdgePixels(const std::array<Vector3, 8>& corners, float centreX, float centreY, float pixels) {
    for (unsigned i = 0; i < 8; ++i) {
      for (unsigned bit = 1; bit < 8; bit <<= 1) {
        if (i & bit) continue;
        const auto onPicture = [&](Vector3 c) { return Point{centreX + c.x * pixels, centreY - c.y * pixels}; };
        edges_.push_back({onPicture(corners[i]), onPicture(corners[i | bit])});
      }
    }
  }

  void mark(int y, std::vector<std::uint8_t>& marks) const {
    std::ranges::fill(marks, std::uint8_t{0});
    constexpr float kMargin = 1.0f;
    const float top = static_cast<float>(y) - kMargin, bottom = static_cast<float>(y) + 1 + kMargin;
    for (Edge edge : edges_) {
      if (edge.a.y > edge.b.y) std::swap(edge.a, edge.b);
      if (edge.b.y < top || edge.a.y > bottom) continue;
      const float rise = edge.b.y - edge.a.y;
      const auto xAt = [&](float at) {
        return rise < 1e-3f ? edge.a.x
                            : edge.a.x + (edge.b.x - edge.a.x) * std::clamp((at - edge.a.y) / rise, 0.0f, 1.0f);
      };
      const float x0 = xAt(top), x1 = rise < 1e-3f ? edge.b.x : xAt(bottom);
      const auto last = static_cast<float>(marks.size() - 1);
      const float from = std::floor(std::min(x0, x1) - kMargin), to = std::floor(std::max(x0, x1) + kMargin);
      if (to < 0 || from > last) continue;
      std::fill(marks.begin() + static_cast<int>(std::max(0.0f, from)),
                marks.begin() + static_cast<int>(std::min(last, to)) + 1, std::uint8_t{1});
    }
  }

 private:
  struct Point {
    float x, y;
  };
  struct Edge {
    Point a, b;
  };
  std::vector<Edge> edges_;
};

}  // namespace

bool drawCube(clsDIB& picture, const Cube& cube, const Progress& progress) {
  const SolidLook& look = cube.look;
  const int width = picture.DIBWidth(), height = picture.DIBHeight();
  const CubeScene scene(cube);
  const LightToPixel& toPixel = LightToPixel::instance();
  // A ball around the cube as the viewer sees it.
  const float reach = kViewer * kHalfDiagonal / std::sqrt(kViewer * kViewer - kHalfDiagonal * kHalfDiagonal);
  const float pixels = static_cast<float>(look.size * std::min(width, height) / 2) / reach;
  const auto centreX = static_cast<float>(look.centreX * width), centreY = static_cast<float>(look.centreY * height);
  const EdgePixels edges(scene.corners(), centreX, centreY, pixels);
  std::vector<std::uint8_t> marks(static_cast<std::size_t>(width));
  const bool isAlpha = picture.DIBhasAlpha();
  const float perPixel = 1 / pixels;
  const bool sharp = scene.sharp(perPixel);

  return forEachRow(height, progress, [&](int pictureY) {
    Pixel32* row = pixelRow(picture.surface(), pictureY);
    const auto& grain = kGrain[static_cast<std::size_t>(pictureY & 7)];
    paintBackground(row, width, look, isAlpha);
    if (sharp) edges.mark(pictureY, marks);
    const auto placeY = [&](float in) { return (centreY - static_cast<float>(pictureY) - in) * perPixel; };
    const auto placeX = [&](int column, float in) { return (static_cast<float>(column) + in - centreX) * perPixel; };
    const float y = placeY(0.5f);
    for (int column = 0; column < width; ++column) {
      const float x = placeX(column, 0.5f);
      const int thisGrain = grain[column & 7];
      CubeScene::Sight sight;
      if (sharp && marks[column] != 0) {
        constexpr int kSamples = kFine * kFine;
        int hits = 0;
        for (int i = 0; i < kSamples; ++i) {
          const auto within = [](int k) { return (static_cast<float>(k) + 0.5f) / kFine; };
          const auto part = scene.look(placeX(column, within(i % kFine)), placeY(within(i / kFine)), perPixel / kFine);
          if (part.cover < 0.5f) continue;
          sight.light = sight.light + part.light;
          ++hits;
        }
        sight.light = sight.light * (1 / static_cast<float>(std::max(1, hits)));
        sight.cover = static_cast<float>(hits) / kSamples;
      } else if (std::abs(x) <= reach && std::abs(y) <= reach) {
        sight = scene.look(x, y, perPixel);
      }
      if (sight.cover < 1 && scene.castsShadow()) {
        const float darkness = scene.groundDarkness(x, y);
        if (darkness > 0) row[column] = shaded(row[column], darkness, thisGrain, isAlpha);
      }
      if (sight.cover <= 0) continue;
      row[column] = laidOver(row[column], toPixel.pixel(sight.light, thisGrain), coverOf(sight.cover), isAlpha);
    }
  });
}

}  // namespace ruvo
