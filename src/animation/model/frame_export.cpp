#include "animation/model/frame_export.h"

#include <new>
#include <vector>

#include "animation/model/palette_maps.h"
#include "formats/gif_player.h"

namespace ruvo {
namespace {

// The picture that a file shall hold of a frame.
class Exporter {
 public:
  Exporter(const clsGIF& gif, int frame, const FrameExport& how) : gif_(gif), frame_(frame) {
    const Size own{gif.FrameWidth(frame), gif.FrameHeight(frame)};
    size_ = how.uniform ? GifPlayer::screenSize(gif) : own;
    place_ = how.uniform ? GifPlayer::framePlace(gif, frame) : Point{};
    const Rect whole{0, 0, size_.width, size_.height};
    area_ = Rect::fromSize(place_.x, place_.y, own.width, own.height).intersected(whole);
    markUsed(gif, frame, used_);
    seeThrough_ = how.transparent && gif.FrameUseTransparentColor(frame) && (area_ != whole || used_[transparent()]);
  }

  // False when there is no memory.
  bool into(clsGIF& file) const {
    clsDIB picture;
    if (!exact(picture) && !deep(picture)) return false;
    GifFrameSettings settings;
    settings.UseTransparentColor = seeThrough_;
    return file.FrameInsertImage(picture, 1, settings);
  }

 private:
  std::size_t transparent() const { return static_cast<std::size_t>(gif_.FrameTransparentColorIndex(frame_)); }
  Colour ground() const { return gif_.FrameUseTransparentColor(frame_) ? gif_.FrameTransparentColor(frame_) : kWhite; }

  // Indices 0 to 255 for the colours of the picture. The first one is the see-through one, when there is such.
  struct Table {
    std::vector<raster::TableEntry> entries;
    std::size_t firstOpaque = 0;

    std::uint8_t indexOf(Colour colour) {
      std::size_t index = firstOpaque;
      while (index < entries.size() && entries[index].colour() != colour) ++index;
      if (index == entries.size()) entries.push_back(raster::TableEntry::of(colour));
      return static_cast<std::uint8_t>(index);
    }
  };

  // False for more colours than a table holds.
  bool exact(clsDIB& picture) const {
    Table table;
    if (seeThrough_) table = {{raster::TableEntry::of(ground())}, 1};
    IndexMap map{};
    for (std::size_t i = 0; i < map.size(); ++i) {
      if (!used_[i] || (seeThrough_ && i == transparent())) continue;
      map[i] = table.indexOf(gif_.LocalPaletteColor(frame_, static_cast<int>(i)));
    }
    const bool covered = area_ == Rect{0, 0, size_.width, size_.height};
    const std::uint8_t surround = seeThrough_ || covered ? 0 : table.indexOf(ground());
    if (table.entries.size() > map.size()) return false;
    if (!picture.CreateBlankDIB(size_.width, size_.height, 8, kWhite, true, true)) return false;
    std::ranges::copy(table.entries, picture.surface().table().begin());
    std::ranges::fill(picture.surface().bytes(), surround);
    const raster::Surface& from = gif_.FrameDIBXOR(frame_).surface();
    for (int y = area_.top; y < area_.bottom; ++y) {
      const std::uint8_t* row = from.pictureRow(y - place_.y) + (area_.left - place_.x);
      std::transform(row, row + area_.width(), picture.surface().pictureRow(y) + area_.left,
                     [&map](std::uint8_t index) { return map[index]; });
    }
    return true;
  }

  // In full colours. (A see-through picture never needs it: its surround takes no entry.)
  bool deep(clsDIB& picture) const {
    if (!picture.CreateBlankDIB(size_.width, size_.height, 32, ground())) return false;
    gif_.FrameDraw(picture.surface(), frame_, place_.x - gif_.FrameLeft(frame_), place_.y - gif_.FrameTop(frame_));
    return true;
  }

  const clsGIF& gif_;
  int frame_;
  Size size_;
  Point place_;
  Rect area_;  // of the picture that the frame covers
  IndexSet used_{};
  bool seeThrough_ = false;
};

std::string fileName(std::string_view title, std::string_view number) {
  std::string name(title.empty() ? "Untitled" : title);
  return name.append("_").append(number).append(".gif");
}

}  // namespace

bool exportFrame(const clsGIF& gif, int frame, const std::filesystem::path& target, const FrameExport& how) {
  if (frame < 1 || frame > gif.FramesCount()) return false;
  try {
    clsGIF file;
    return Exporter(gif, frame, how).into(file) && file.Save(target);
  } catch (const std::bad_alloc&) {
    return false;
  }
}

std::string exportName(std::string_view title, int frame) {
  return fileName(title, std::to_string(frame));
}

std::string extractName(std::string_view title, int frame) {
  return fileName(title, (frame < 10 ? "0" : "") + std::to_string(frame));
}

}  // namespace ruvo
