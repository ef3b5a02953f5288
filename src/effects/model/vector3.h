// Points and directions in space.
#pragma once

#include <cmath>
#include <numbers>

namespace ruvo {

struct Vector3 {
  float x = 0;
  float y = 0;
  float z = 0;

  friend constexpr Vector3 operator+(Vector3 a, Vector3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
  friend constexpr Vector3 operator-(Vector3 a, Vector3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
  friend constexpr Vector3 operator-(Vector3 a) { return {-a.x, -a.y, -a.z}; }
  friend constexpr Vector3 operator*(Vector3 a, float f) { return {a.x * f, a.y * f, a.z * f}; }
};

constexpr float dot(Vector3 a, Vector3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline float lengthOf(Vector3 a) {
  return std::sqrt(dot(a, a));
}
inline Vector3 unit(Vector3 a) {
  return a * (1 / lengthOf(a));
}
// Degrees as the sine and cosine want them.
constexpr double radiansOf(double degrees) {
  return degrees * std::numbers::pi / 180;
}

// Towards a light that shines from `from` degrees (clockwise from upwards in the picture's plane) and stands `height`
// degrees out of that plane towards the viewer: x right, y up, z to the viewer.
inline Vector3 towardsLight(double from, double height) {
  const double across = std::cos(radiansOf(height));
  return {static_cast<float>(std::sin(radiansOf(from)) * across),
          static_cast<float>(std::cos(radiansOf(from)) * across), static_cast<float>(std::sin(radiansOf(height)))};
}

}  // namespace ruvo
