#include "animation/model/change_bpp.h"

#include <bit>

#include "animation/model/basGIFaniChangePal.h"
#include "animation/model/basGIFaniMinimize.h"

namespace ruvo {
namespace {

constexpr const char* kFailedGlobal = "Failed to change palette entries for frames using global palette.";
constexpr const char* kFailedLocal = "Failed to change palette entries for frames using local palette.";

// A global palette whose transparent entries differ stays where it is.
std::string reduceGlobal(clsGIF& gif, int entries) {
  if (!gif.GlobalPaletteExists() || !anyFrameUsesGlobal(gif)) return {};
  if (!ReduceGlobalPalette(gif, entries)) return kFailedGlobal;
  MoveGlobalTransparentIndex(gif, 0);
  return {};
}

std::string reduceLocals(clsGIF& gif, int entries, int from, int to, const Progress& progress) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (gif.LocalPaletteUsed(frame)) {
      if (!ReduceLocalPalette(gif, frame, entries)) return kFailedLocal;
      MoveLocalTransparentIndex(gif, frame, 0);
    }
    progress.report(from + (to - from) * frame / gif.FramesCount());
  }
  return {};
}

std::string reduceEach(clsGIF& gif, int entries, const Progress& progress) {
  std::string failure = reduceGlobal(gif, entries);
  if (!failure.empty()) return failure;
  progress.report(30);
  return reduceLocals(gif, entries, 30, 80, progress);
}

std::string globalise(clsGIF& gif, int entries) {
  clsPal palette;
  if (!BuildCommonPalette(gif, palette, entries)) return kFailedGlobal;
  // Nothing opaque anywhere: there are no colours to bring together.
  if (palette.MaxCount() == 0 || ApplyCommonPalette(gif, palette)) return {};
  return kFailedGlobal;
}

}  // namespace

std::string bppItemText(std::size_t item) {
  const int entries = kBppTargets.at(item);
  const int bits = std::bit_width(static_cast<unsigned>(entries)) - 1;
  return "Upto " + std::to_string(entries) + " entries" + (item == 0 ? "" : " only") + "   (" + std::to_string(bits) +
         " BPP)";
}

std::string changeBpp(clsGIF& Gif, const ChangeBppOrder& Order, const Progress& progress) {
  progress.report(10);
  // Colours that nothing shows would take places from those that are seen.
  cleanPalettes(Gif);
  progress.report(20);
  std::string failure = Order.globalise ? globalise(Gif, Order.entries) : reduceEach(Gif, Order.entries, progress);
  Gif.Remask_All_Frames();
  progress.finish();
  return failure;
}

}  // namespace ruvo
