#include "fuzz_entry.h"
#include "platform/imaging/codecs.h"

RUVO_FUZZ_ENTRY(tiff, data) {
  ruvo::imaging::MemorySource source(data);
  ruvo::imaging::readTiff(source, 1 << 16);
}
