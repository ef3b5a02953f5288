#include "platform/imaging/metafile.h"
#include "fuzz_entry.h"

// The font library keeps its configuration until the process ends, behind pointers that the leak checker can not follow.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig";
}

RUVO_FUZZ_ENTRY(metafile, data) {
  using namespace ruvo;
  const imaging::LoadResult loaded = imaging::readMetafile(data);
  raster::Surface target;
  if (!loaded || !target.create(96, 72, 32)) return;
  imaging::playMetafile(loaded.picture, target, {-4, 3, 90, 80});
}
