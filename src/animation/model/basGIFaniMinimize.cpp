#include "animation/model/basGIFaniMinimize.h"

#include <algorithm>

#include "base/number_format.h"

namespace ruvo {
namespace {

bool anyFrame(const clsGIF& gif, bool (clsGIF::*says)(int) const) {
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if ((gif.*says)(frame)) return true;
  }
  return false;
}

int localFrames(const clsGIF& gif) {
  int count = 0;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) count += gif.LocalPaletteUsed(frame);
  return count;
}

int entriesOfAll(const clsGIF& gif) {
  int entries = gif.GlobalPaletteEntries();
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    if (gif.LocalPaletteUsed(frame)) entries += gif.LocalPaletteEntries(frame);
  }
  return entries;
}

}  // namespace

int PaletteSizeForEntries(int Entries) {
  return 1 << gifTableBits(std::min(Entries, 256));
}

bool cleanPalettes(clsGIF& Gif) {
  bool changed = RectifyGIFData(Gif);
  const int before = entriesOfAll(Gif);
  RemoveUnusedGlobal(Gif);
  changed |= RemoveDuplicateGlobal(Gif) > 0;
  for (int frame = 1; frame <= Gif.FramesCount(); ++frame) {
    RemoveUnusedLocal(Gif, frame);
    changed |= RemoveDuplicateLocal(Gif, frame) > 0;
  }
  return changed || entriesOfAll(Gif) != before;
}

MinimizeOptions minimizeOffers(const clsGIF& Gif) {
  return {.localToGlobal = anyFrameUsesLocal(Gif),
          .removeUnused = true,
          .removeInterlace = anyFrame(Gif, &clsGIF::FrameInterlaced),
          .removeSlack = anyFrame(Gif, &clsGIF::FrameUseTransparentColor)};
}

MinimizeResult minimizeGif(clsGIF& Gif, const MinimizeOptions& Options, const Progress& progress) {
  MinimizeResult result;
  // What is not offered does not count, so its cleaning is not done either.
  const MinimizeOptions options = Options & minimizeOffers(Gif);
  if (!options.any()) return result;
  progress.report(0);
  result.changed = RectifyGIFData(Gif);
  bool cleaned = false;
  const auto cleanOnce = [&] {
    if (!cleaned) result.changed |= cleanPalettes(Gif);
    cleaned = true;
  };
  if (options.localToGlobal) {
    cleanOnce();
    result.localFrames = localFrames(Gif);
    result.converted = LocalToGlobalAllFrames(Gif);
    result.endedEarly = result.converted < result.localFrames;
  }
  if (!result.endedEarly) {
    progress.report(30);
    if (options.removeUnused) cleanOnce();
    progress.report(60);
    if (options.removeSlack) {
      cleanOnce();
      // A frame that lost all that was see-through is not transparent any more, and its table may do with an entry less.
      if (RemoveSlackTransparentAreas(Gif)) cleanPalettes(Gif);
    }
    progress.report(85);
    for (int frame = 1; frame <= Gif.FramesCount() && options.removeInterlace; ++frame) {
      Gif.setFrameInterlaced(frame, false);
    }
    Gif.setCommentText({});
  }
  result.changed |= !result.endedEarly || result.converted > 0;
  progress.report(90);
  Gif.Remask_All_Frames();
  progress.report(100);
  progress.finish();
  return result;
}

std::string minimizeMessage(const MinimizeResult& Result) {
  if (!Result.endedEarly) return {};
  std::string words = "Failed to convert any local palette to global.";
  if (Result.converted > 0) {
    words = "Converted " + std::to_string(Result.converted) + " frames only, out of " +
            std::to_string(Result.localFrames) + " local frames (as colors involved exceed 256).";
  }
  return words + "\n(You might wish to run Optimize/Change BPP function)";
}

std::string minimizedSizeText(std::int64_t original, std::int64_t now) {
  const auto bytes = [](std::int64_t count) { return formatNumber(static_cast<double>(count), "#,#0"); };
  return "Orig file size:  " + bytes(original) + "       New:  " + bytes(now) + " bytes";
}

}  // namespace ruvo
