#include "formats/clsPNG.h"
#include "fuzz_entry.h"

// The first byte chooses the settings.
RUVO_FUZZ_ENTRY(png_native, data) {
  if (data.empty()) return;
  ruvo::clsPNG png;
  png.AlphaSet = (data[0] & 1) != 0;
  png.setOwnerBkgd = (data[0] & 2) != 0;
  png.setOwnerBkgdPattern = (data[0] & 4) != 0;
  png.BitmapBPP = (data[0] & 8) != 0 ? 24 : 0;
  png.openBytes(data.subspan(1));
}
