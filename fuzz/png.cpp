#include "fuzz_entry.h"
#include "platform/imaging/codecs.h"

RUVO_FUZZ_ENTRY(png, data) {
  ruvo::imaging::MemorySource source(data);
  ruvo::imaging::readPng(source, 1 << 16);
}
