#include "formats/clsPCX.h"

#include "fuzz_entry.h"

RUVO_FUZZ_ENTRY(pcx, data) {
  ruvo::clsPCX().loadBytes(data);
}
