#include "formats/clsICO.h"
#include "fuzz_entry.h"

RUVO_FUZZ_ENTRY(ico, data) {
  ruvo::clsICO file;
  const bool opened = file.openBytes(data);
  if (opened != (file.firstReadable() >= 0)) __builtin_trap();
  ruvo::clsDIB target;
  for (int i = 0; i < file.IconCount(); ++i) {
    const bool readable = file.images()[static_cast<std::size_t>(i)].readable;
    if (readable != (file.DIBXOR(i).size() == file.DIBAND(i).size() && !file.DIBXOR(i).empty())) __builtin_trap();
    if (file.IconWidth(i) > 64 || file.IconHeight(i) > 64 || i > 20) continue;
    target.CreateBlankDIB(64, 64, 32, ruvo::kWhite);
    file.DrawIcon_To_DIB(i, target, 1, -1);
    file.withAlpha(i);
  }
}
