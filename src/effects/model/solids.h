// A cube and a sphere, drawn into a picture with light and shadow.
#pragma once

#include <cstdint>

#include "base/colour.h"
#include "base/progress.h"
#include "image/clsDIB.h"

namespace ruvo {

// What both have in common. Shares are 0 to 1 unless something else is said.
struct SolidLook {
  double size = 0.6;     // of the smaller side of the picture: the space that the solid takes, however it is turned
  double centreX = 0.5;  // of the width and height; the solid may reach over the edges
  double centreY = 0.5;
  Colour colour = 0;
  std::int64_t background = -1;  // packed; below 0 the picture stays
  double lightFrom = 315;        // degrees, clockwise from upwards
  double lightHeight = 45;       // degrees from the picture's plane towards the viewer, 0 to 90
  double ambient = 0.25;         // of the light comes from everywhere
  double gloss = 0.5;
  double shadow = 0.5;  // darkness of the shadow on the ground on which the solid lies
};

struct Cube {
  SolidLook look;
  double turn = 35;       // degrees around the upright axis
  double tilt = 25;       // degrees, -90 to 90: seen from above when positive, and only then is there a ground
  double rounding = 0.1;  // how far from the edges the faces bend towards each other, of half an edge, 0 to 0.5
};

struct Sphere {
  SolidLook look;
};

// Pictures of 32 bits; false when stopped or without memory.
bool drawCube(clsDIB& picture, const Cube& cube, const Progress& progress);
bool drawSphere(clsDIB& picture, const Sphere& sphere, const Progress& progress);

}  // namespace ruvo
