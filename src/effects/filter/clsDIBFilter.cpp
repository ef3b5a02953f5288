#include "effects/filter/clsDIBFilter.h"

#include "base/rounding.h"

namespace ruvo {

void clsDIBFilter::Filtertemp_Progress(int row, int height) const {
  progress_.report(roundToInt(static_cast<double>(row) / (height - 1) * 100));
}

void clsDIBFilter::Filtertemp_ProgressEnd() const {
  progress_.finish();
}

}  // namespace ruvo
