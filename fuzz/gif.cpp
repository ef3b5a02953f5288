#include "fuzz_entry.h"
#include "platform/imaging/codecs.h"

RUVO_FUZZ_ENTRY(gif, data) {
  ruvo::imaging::MemorySource source(data);
  ruvo::imaging::readGif(source, 1 << 16);
}
