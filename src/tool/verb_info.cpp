#include "base/paths.h"
#include "formats/clsEXIF.h"
#include "formats/clsGIF.h"
#include "formats/clsICO.h"
#include "tool/exif_lines.h"
#include "tool/picture_input.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

const char* yesNo(bool value) {
  return value ? "yes" : "no";
}

void tellFrame(const clsGIF& gif, int frame, std::ostream& out) {
  out << "  frame " << frame << ": left " << gif.FrameLeft(frame) << ", top " << gif.FrameTop(frame) << ", width "
      << gif.FrameWidth(frame) << ", height " << gif.FrameHeight(frame) << ", delay " << gif.FrameDelay(frame)
      << ", disposal " << gif.FrameDisposalMethod(frame) << ", transparent ";
  if (gif.FrameUseTransparentColor(frame)) {
    out << gif.FrameTransparentColorIndex(frame);
  } else {
    out << "none";
  }
  out << ", interlaced " << yesNo(gif.FrameInterlaced(frame)) << ", local entries "
      << (gif.LocalPaletteUsed(frame) ? gif.LocalPaletteEntries(frame) : 0) << '\n';
}

void tellGif(const clsGIF& gif, std::ostream& out) {
  out << "  version: " << gif.GIFVersion() << '\n'
      << "  screen: " << gif.BgdWidth() << " x " << gif.BgdHeight() << '\n'
      << "  loops: " << gif.NetscapeLoops() << '\n'
      << "  comment: " << printable(gif.CommentText()) << '\n'
      << "  global entries: " << (gif.GlobalPaletteExists() ? gif.GlobalPaletteEntries() : 0) << '\n'
      << "  frames: " << gif.FramesCount() << '\n';
  for (int frame = 1; frame <= gif.FramesCount(); ++frame) tellFrame(gif, frame, out);
}

void tellIcon(const clsICO& icon, std::ostream& out) {
  out << "  images: " << icon.IconCount() << '\n';
  for (int i = 0; i < icon.IconCount(); ++i) {
    const clsICO::Image& image = icon.images()[static_cast<std::size_t>(i)];
    out << "  image " << i + 1 << ": ";
    if (!image.readable) {
      out << "width " << image.statedWidth << ", height " << image.statedHeight << ", bits " << image.statedBPP
          << ", not readable\n";
      continue;
    }
    out << "width " << icon.IconWidth(i) << ", height " << icon.IconHeight(i) << ", bits " << icon.IconBPP(i)
        << ", alpha " << yesNo(image.XOR.DIBhasAlpha());
    if (icon.FileType() == kCursorType) out << ", hot spot " << icon.HotSpotX(i) << ' ' << icon.HotSpotY(i);
    out << ", bytes " << icon.IconBytesInRes(i) << '\n';
  }
}

void tellExif(const std::string& file, std::ostream& out) {
  clsEXIF exif;
  const std::string listed = exif.ListInfoTags(pathOf(file));
  if (exif.state() != clsEXIF::kWithExif) return;
  for (const std::string& line : exifLines(listed)) out << "  exif: " << line << '\n';
}

// Everything is read before the first line goes out: a refused file has only its error.
bool tellFile(const std::string& file, Console& console) {
  const FormatRow* row = formatOfFile(file, console);
  if (!row) return false;
  const ReadPicture read = readPicture(pathOf(file), *row);
  if (!read) {
    refuseRead(file, read, console);
    return false;
  }
  clsGIF gif;
  if (row->format == Format::Gif && !loadGif(file, gif, console)) return false;
  clsICO icon;
  const bool isIcon = row->format == Format::Ico || row->format == Format::Cur;
  if (isIcon && !loadIcon(file, *row, icon, console)) return false;

  console.out() << printable(file) << '\n'
                << "  format: " << row->name << '\n'
                << "  width: " << read.width << '\n'
                << "  height: " << read.height << '\n'
                << "  bits: " << (read.fileDepth > 0 ? read.fileDepth : clsDIB::BPPperActualDIB(read.dib)) << '\n'
                << "  colours: " << clsDIB::CountColorsDIB(read.dib) << '\n';
  if (row->format == Format::Gif) tellGif(gif, console.out());
  if (isIcon) tellIcon(icon, console.out());
  if (row->format == Format::Jpeg) tellExif(file, console.out());
  return true;
}

}  // namespace

int info(const Arguments& arguments, Console& console) {
  int status = 0;
  for (const std::string& file : arguments.operands()) {
    if (!tellFile(file, console)) status = 1;
  }
  return status;
}

}  // namespace ruvo::tool
