#include "animation/model/gif_discrepancies.h"

#include "animation/model/gif_repairs.h"
#include "base/geometry.h"

namespace ruvo {
namespace {

Rect rectOf(const clsGIF& gif, int frame) {
  return Rect::fromSize(gif.FrameLeft(frame), gif.FrameTop(frame), gif.FrameWidth(frame), gif.FrameHeight(frame));
}

bool disposedForNothing(const clsGIF& gif, int frame) {
  const int method = gif.FrameDisposalMethod(frame);
  if ((method != kDisposalToBackground && method != kDisposalToPrevious) || frame == gif.FramesCount()) return false;
  return !gif.FrameUseTransparentColor(frame + 1) &&
         rectOf(gif, frame).united(rectOf(gif, frame + 1)) == rectOf(gif, frame + 1);
}

class Lines {
 public:
  explicit Lines(const clsGIF& gif) : gif_(gif) {}

  void add(std::string line) { lines_.push_back(std::move(line)); }
  // A line for each frame that it is true of.
  template <typename Holds, typename Words>
  void addFrames(Holds holds, Words words) {
    for (int frame = 1; frame <= gif_.FramesCount(); ++frame) {
      if (holds(gif_, frame)) add("Frame " + std::to_string(frame) + words(frame));
    }
  }
  std::vector<std::string> take() { return std::move(lines_); }

 private:
  const clsGIF& gif_;
  std::vector<std::string> lines_;
};

void addIndices(Lines& lines, const clsGIF& gif) {
  const auto number = [](int value) { return std::to_string(value); };
  const std::string background = "Background Color Index coded at " + number(gif.BgdColorIndex());
  const std::string ofGlobal = " is outside the possible limit set by Global Palette Entries of ";
  if (backgroundWithoutTable(gif)) lines.add(background + " while there is no Global Palette in existence.");
  if (backgroundPastTable(gif)) lines.add(background + ofGlobal + number(gif.GlobalPaletteEntries()));
  const auto transparent = [&](int frame) {
    return ": Transparent Color Index at " + number(gif.FrameTransparentColorIndex(frame));
  };
  lines.addFrames(transparentPastGlobal,
                  [&](int frame) { return transparent(frame) + ofGlobal + number(gif.GlobalPaletteEntries()); });
  lines.addFrames(transparentPastLocal, [&](int frame) {
    return transparent(frame) + " is outside the possible limit set by its Local Palette Entries of " +
           number(gif.LocalPaletteEntries(frame));
  });
  lines.addFrames(copyHasOtherCount, [&](int frame) {
    return ": Local Palette Entry of " + number(gif.LocalPaletteEntries(frame)) +
           " is discrepant to its Global Palette Entry of " + number(gif.GlobalPaletteEntries());
  });
}

}  // namespace

std::vector<std::string> gifDiscrepancies(const clsGIF& Gif) {
  Lines lines(Gif);
  addIndices(lines, Gif);
  const auto fixed = [](const char* words) { return [words](int) { return std::string(words); }; };
  lines.addFrames(nothingSeeThrough, fixed(" code transparent, but no transparent color found in palette."));
  lines.addFrames(copyHasOtherColours,
                  fixed(": One or more Local Palette Colors not identical to Global Palette Colors at corresponding "
                        "positions."));
  lines.addFrames(disposedForNothing,
                  fixed(": Disposal method coded as Restore To Background/Previous, however the frame would be coverd "
                        "entirely by the succeeding frame (you may wish to change)."));
  lines.addFrames([](const clsGIF& gif, int frame) { return gif.FrameLeft(frame) > gif.BgdWidth() - 1; },
                  fixed(": Frame Left is coded greater than (background screen width - 1)."));
  lines.addFrames([](const clsGIF& gif, int frame) { return gif.FrameTop(frame) > gif.BgdHeight() - 1; },
                  fixed(": Frame Top is coded greater than (background screen height -1)."));
  return lines.take();
}

std::string discrepancyReport(const clsGIF& Gif) {
  const std::vector<std::string> lines = gifDiscrepancies(Gif);
  if (lines.empty()) {
    return "No discrepancy found.\n"
           "(If you suspect there is a problem with your currrent file, please try to save it"
           " with this program, then re-open the saved file.)\n";
  }
  std::string report;
  for (const std::string& line : lines) report += line + '\n';
  return report + "(You may try to run Minimize to rectify the listed discrepancies.)\n";
}

}  // namespace ruvo
