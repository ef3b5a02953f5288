// The first byte is the code size, and for the interlace; the picture's size follows.
#include "formats/basGIFLZWDec.h"

#include "fuzz_entry.h"

RUVO_FUZZ_ENTRY(gif_lzw, data) {
  if (data.size() < 3) return;
  ruvo::clsDIB dib;
  if (!dib.CreateBlankDIB(1 + data[1], 1 + data[2], 8, ruvo::kWhite, true)) return;
  ruvo::basGIFLZWDec::Decode(dib, (data[0] & 0x80) != 0, data[0] & 0x0F, data.subspan(3));
}
