#include "animation/model/gif_texts.h"

#include <algorithm>
#include <cstdio>

#include "animation/model/gif_view.h"
#include "base/number_format.h"
#include "base/paths.h"

namespace ruvo {
namespace {

std::string textOf(const char* text) {
  return text;
}
std::string textOf(const std::string& text) {
  return text;
}
std::string textOf(std::int64_t number) {
  return std::to_string(number);
}
// Texts and numbers one after another.
template <typename... Parts>
std::string line(const Parts&... parts) {
  return (std::string() + ... + textOf(parts));
}

const char* yesOrNo(bool yes) {
  return yes ? "Y" : "N";
}

std::string transparentColour(const clsGIF& gif, int frame) {
  if (!gif.FrameUseTransparentColor(frame)) return "(No transp color)";
  const Colour c = gif.FrameTransparentColor(frame);
  return line("At ", gif.FrameTransparentColorIndex(frame), " / RGB(", redOf(c), ",", greenOf(c), ",", blueOf(c), ")");
}

// The count of a table, and how many entries a file has for it when it has more. A frame without any table has 0.
std::string tableEntries(const clsGIF& gif, int frame) {
  const bool global = !gif.LocalPaletteUsed(frame) && gif.GlobalPaletteExists();
  const int entries = global ? gif.GlobalPaletteEntries() : gif.LocalPaletteEntries(frame);
  const int stored = 1 << gifTableBits(entries);
  return entries == stored || entries < 1 ? line(entries) : line(entries, " (as ", stored, ")");
}

std::string seconds(std::int64_t milliseconds) {
  return formatNumber(static_cast<double>(milliseconds) / 1000, "0.00") + " s";
}

}  // namespace

std::string disposalName(int method) {
  return method >= 0 && method < static_cast<int>(kDisposalNames.size())
             ? kDisposalNames[static_cast<std::size_t>(method)]
             : "Disposal ?";
}

std::vector<std::string> frameLinePieces(const clsGIF& gif, int frame) {
  if (frame < 1 || frame > gif.FramesCount()) return {};
  return {
      line(frame),
      line(gif.FrameWidth(frame), "x", gif.FrameHeight(frame)),
      line("[", gif.FrameLeft(frame), ", ", gif.FrameTop(frame), "]"),
      line("Transp: ", yesOrNo(gif.FrameUseTransparentColor(frame))),
      transparentColour(gif, frame),
      disposalName(gif.FrameDisposalMethod(frame)),
      gif.LocalPaletteUsed(frame) ? "Local" : "Global",
      tableEntries(gif, frame),
      line("I'laced: ", yesOrNo(gif.FrameInterlaced(frame))),
      line("Delay: ", gif.FrameDelay(frame)),
  };
}

std::vector<std::string> frameLines(const clsGIF& gif) {
  constexpr std::size_t kGap = 2;
  std::vector<std::vector<std::string>> frames;
  std::vector<std::size_t> widths;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) {
    const auto& pieces = frames.emplace_back(frameLinePieces(gif, frame));
    widths.resize(pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) widths[i] = std::max(widths[i], pieces[i].size());
  }
  std::vector<std::string> lines;
  for (const auto& pieces : frames) {
    std::string& text = lines.emplace_back();
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      text += pieces[i];
      if (i + 1 < pieces.size()) text.append(kGap + widths[i] - pieces[i].size(), ' ');
    }
  }
  return lines;
}

std::string frameLineTabbed(const clsGIF& gif, int frame) {
  std::string text;
  for (const std::string& piece : frameLinePieces(gif, frame)) text += (text.empty() ? "" : "\t") + piece;
  return text;
}

std::string originalFileText(const clsGIF& gif, std::int64_t fileSize) {
  return line("Original  file:  ", fileSize, " bytes.  ", gif.FramesCount(), " frames   (Bgr size:  ", gif.BgdWidth(),
              " x ", gif.BgdHeight(), "    Global exists:  ", yesOrNo(gif.GlobalPaletteExists()),
              "    Loops: ", gif.NetscapeLoops(), ")");
}

std::string currentTotalText(const clsGIF& gif) {
  return line("Current total:  ", gif.FramesCount());
}

std::string backgroundText(const clsGIF& gif) {
  return line("(Current Bgd: ", gif.BgdWidth(), " x ", gif.BgdHeight(), "   )");
}

std::string fileSizeText(std::int64_t bytes) {
  return "File size:   " + formatNumber(static_cast<double>(bytes), kFormatAnimationSize) + "  bytes";
}

std::string measuredSizeText(std::int64_t bytes) {
  return "File size:  " + formatNumber(static_cast<double>(bytes), kFormatAnimationSize) + " bytes";
}

std::int64_t runningTime(const clsGIF& gif) {
  std::int64_t time = 0;
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) time += tickMilliseconds(gif, frame);
  return time;
}

std::string runningTimeText(const clsGIF& gif, int frame) {
  const std::int64_t all = runningTime(gif);
  std::string text = "Running time:  " + seconds(all);
  if (frame >= 1 && frame <= gif.FramesCount()) {
    const std::int64_t own = tickMilliseconds(gif, frame);
    const double share = 100.0 * static_cast<double>(own) / static_cast<double>(all);
    text += line("   Frame ", frame, ":  ", seconds(own), " (", formatNumber(share, "0"), " %)");
  }
  return text;
}

std::string fileAddress(const std::filesystem::path& file) {
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string address = "file://";
  for (const char c : utf8Of(file)) {
    if (kPlain.find(c) != std::string_view::npos) {
      address += c;
      continue;
    }
    char code[4];
    std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    address += code;
  }
  return address;
}

std::string browserPage(const std::filesystem::path& gifFile) {
  return "<HTML>\n<BODY>\n<center>\n<table>\n<IMG SRC=\"" + fileAddress(gifFile) +
         "\", border=0>\n</table>\n</center>\n</BODY>\n</HTML>\n";
}

}  // namespace ruvo
