#include <algorithm>

#include "image/clsPal.h"
#include "image/octree.h"
#include "image/row_reader.h"

namespace ruvo {

void clsPal::CreateOptimal(const clsDIB& Dib, int Colours, int Depth) {
  ClearUp();
  if (Dib.empty()) return;
  Octree tree(std::clamp(Colours, 1, kMostEntries), std::clamp(Depth, 2, 8));
  RowReader reader(Dib.surface());
  for (int y = 0; y < Dib.DIBHeight(); ++y) {
    const Pixel32* row = reader.pixels(y);
    for (int x = 0; x < Dib.DIBWidth(); ++x) tree.add(row[x].colour());
    tellRow(y, Dib.DIBHeight());
  }
  tellEnd();
  for (const Colour c : tree.leafColours()) {
    if (maxCount_ < kMostEntries) append(c);
  }
  rebuildMatch();
  tellEnd();
}

}  // namespace ruvo
