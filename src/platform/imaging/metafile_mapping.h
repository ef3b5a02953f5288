// Mapping modes ([MS-WMF] 2.1.1.16): from logical units to the pixels of the device that a metafile was made for.
#pragma once

#include "platform/imaging/metafile_geometry.h"

namespace ruvo::imaging::meta {

struct Mapping {
  enum Mode { Text = 1, LoMetric, HiMetric, LoEnglish, HiEnglish, Twips, Isotropic, Anisotropic };

  int mode = Text;
  PointF windowOrigin;
  PointF windowExtent{1, 1};
  PointF viewportOrigin;
  PointF viewportExtent{1, 1};
  // Of that device.
  PointF pixelsPerMillimetre{96 / 25.4, 96 / 25.4};

  // Numbers outside 1 to 8 change nothing.
  void setMode(int newMode);
  // Window and viewport extents count in the last two modes only; zero extents change nothing.
  void setWindowExtent(PointF extent);
  void setViewportExtent(PointF extent);
  void scaleExtent(PointF Mapping::*extent, PointF multiply, PointF divide);

  Affine toDevice() const;

 private:
  PointF pageScale() const;
};

}  // namespace ruvo::imaging::meta
