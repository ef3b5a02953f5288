#include "fuzz_entry.h"
#include "platform/imaging/codecs.h"

// Small pictures only: a large one costs seconds and finds nothing more.
RUVO_FUZZ_ENTRY(jpeg, data) {
  ruvo::imaging::MemorySource source(data);
  ruvo::imaging::readJpeg(source, 1 << 16);
}
