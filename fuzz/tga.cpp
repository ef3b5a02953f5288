#include "formats/clsTGA.h"

#include "fuzz_entry.h"

RUVO_FUZZ_ENTRY(tga, data) {
  ruvo::clsTGA().loadBytes(data);
}
