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
  // `light` points to the light, in the frame of the cube; rounded corners throw a smaller shadow.
  CubeShadow(Vector3 light, float bend) {
    const float half = 1 - 0.35f * bend;
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
    const float distance = inside > 0 ? std::sqrt(outside2) : inside;
    const float along = thrown_ > 0.001f ? (p.x * throw_.x + p.z * throw_.z) / thrown_ : 0;
    const float soft = 0.03f + 0.13f * std::max(0.0f, along - 0.6f);
    return 1 - smoothStep(-soft, soft, distance);
  }

 private:
  struct Side {
    float nx, nz, reach;
  };
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
        shadow_(static_cast<float>(cube.look.shadow)) {}

  struct Sight {
    bool hit = false;
    bool nearRim = false;  // the outline of the cube passes within about a pixel
    Light light;
  };
  // What the viewer sees there; `perPixel` is the side of a pixel.
  Sight look(float x, float y, float perPixel) const {
    const Vector3 ray = unit(rayThrough(x, y));
    for (int axis = 0; axis < 3; ++axis) {
      const float from = part(viewer_, axis);
      if (std::abs(from) <= 1) continue;
      const float way = ((from > 0 ? 1.0f : -1.0f) - from) / part(ray, axis);
      if (!(way > 0)) continue;
      const Vector3 hit = viewer_ + ray * way;
      const auto within = [&](int other, float most) { return other == axis || std::abs(part(hit, other)) <= most; };
      if (!within(0, 1) || !within(1, 1) || !within(2, 1)) continue;
      if (within(0, flat_) && within(1, flat_) && within(2, flat_)) return {true, false, shade(hit, past(hit))};
      return lookAtRounding(hit, ray, perPixel);
    }
    return {};
  }

  // Edges whose rounding is finer than the eye sees; others are found as rims.
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
    const float lit = smoothStep(0, 0.3f, dot(light_, axes_[1]));
    const float base = 1 - 0.7f * bend_;
    const float besideX = std::max(0.0f, std::abs(place.x) - base);
    const float besideZ = std::max(0.0f, std::abs(place.z) - base);
    const float beside2 = besideX * besideX + besideZ * besideZ;
    const float contact = beside2 < 2.25f ? std::exp(-4.5f * std::sqrt(beside2)) : 0;
    return shadow_ * (1 - (1 - 0.85f * lit * cubeShadow_.at(place) * fade) * (1 - 0.5f * contact));
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

  // On from where the ray meets the sharp cube. Each step is as long as nothing can be nearer.
  Sight lookAtRounding(Vector3 p, Vector3 ray, float perPixel) const {
    constexpr int kMostSteps = 40;
    const float closeEnough = 0.02f * perPixel;
    float nearest = 1;
    for (int i = 0; i < kMostSteps; ++i) {
      const Vector3 over = past(p);
      const float free = lengthOf(over) - bend_;
      if (free < closeEnough) {
        const float facingViewer = -dot(over, ray) / std::max(bend_, 1e-4f);
        return {true, facingViewer * facingViewer < 2.5f * perPixel / bend_, shade(p, over)};
      }
      nearest = std::min(nearest, free);
      p = p + ray * free;
      if (std::abs(p.x) > 1.01f || std::abs(p.y) > 1.01f || std::abs(p.z) > 1.01f) break;
    }
    return {false, nearest < perPixel, {}};
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
    constexpr float kMargin = 0.5f;
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
      Light light;
      int hits = 0, samples = 1;
      bool fine = marks[column] != 0;
      if (!fine && std::abs(x) <= reach && std::abs(y) <= reach) {
        const CubeScene::Sight sight = scene.look(x, y, perPixel);
        fine = sight.nearRim;
        hits = sight.hit;
        light = sight.light;
      }
      if (fine) {
        samples = kFine * kFine;
        hits = 0;
        light = {};
        for (int i = 0; i < samples; ++i) {
          const auto within = [](int k) { return (static_cast<float>(k) + 0.5f) / kFine; };
          const auto sight = scene.look(placeX(column, within(i % kFine)), placeY(within(i / kFine)), perPixel);
          light = light + sight.light;
          hits += sight.hit;
        }
      }
      if (hits < samples && scene.castsShadow()) {
        const float darkness = scene.groundDarkness(x, y);
        if (darkness > 0) row[column] = shaded(row[column], darkness, thisGrain, isAlpha);
      }
      if (hits == 0) continue;
      const Pixel32 paint = toPixel.pixel(light * (1 / static_cast<float>(hits)), thisGrain);
      row[column] = laidOver(row[column], paint, kFullCover * hits / samples, isAlpha);
    }
  });
}

}  // namespace ruvo
