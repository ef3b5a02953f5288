// Entries of one colour.
#include <algorithm>
#include <utility>

#include "animation/model/basGIFaniMinimize.h"

namespace ruvo {
namespace {

// Rows of (from, to); an index stands once among the "from" that count.
using Redirections = std::vector<std::pair<std::uint8_t, std::uint8_t>>;

struct SortedEntry {
  unsigned key = 0;  // red, green, blue: ordered like their decimals one behind the other
  int index = 0;
};

// Equal keys must come out in the order that this way of sorting gives them: which one of them stays depends on it.
void sortByMiddle(std::span<SortedEntry> rows, int lower, int upper) {
  const unsigned middle = rows[static_cast<std::size_t>((lower + upper) / 2)].key;
  int low = lower, high = upper;
  while (low <= high) {
    while (rows[static_cast<std::size_t>(low)].key < middle) ++low;
    while (rows[static_cast<std::size_t>(high)].key > middle) --high;
    if (low <= high) std::swap(rows[static_cast<std::size_t>(low++)], rows[static_cast<std::size_t>(high--)]);
  }
  if (lower < high) sortByMiddle(rows, lower, high);
  if (low < upper) sortByMiddle(rows, low, upper);
}

// The frames that one table serves, and what they use of it.
struct Users {
  struct Frame {
    int number;
    IndexSet used{};
    int transparent = -1;
  };
  std::vector<Frame> frames;

  Users(const clsGIF& gif, int onlyFrame) {
    const int first = onlyFrame > 0 ? onlyFrame : 1;
    const int last = onlyFrame > 0 ? onlyFrame : gif.FramesCount();
    for (int number = first; number <= last; ++number) {
      if (onlyFrame <= 0 && gif.LocalPaletteUsed(number)) continue;
      Frame frame{number};
      markUsed(gif, number, frame.used);
      if (gif.FrameUseTransparentColor(number)) frame.transparent = gif.FrameTransparentColorIndex(number);
      frames.push_back(frame);
    }
  }
  // Entries, and more when pixels or a see-through index lie past them.
  int needed(int entries) const {
    for (const Frame& frame : frames) {
      const auto last = std::find(frame.used.rbegin(), frame.used.rend(), true);
      entries = std::max({entries, static_cast<int>(frame.used.rend() - last), frame.transparent + 1});
    }
    return entries;
  }
};

struct Merged {
  IndexMap map = identityMap();
  GifTable table{};
  int entries = 0;
  int count = 0;  // of entries that are gone
};

Redirections redirectionsOf(const GifTable& table, int entries, int transparent) {
  std::vector<SortedEntry> rows;
  for (int i = 0; i < entries; ++i) {
    const raster::TableEntry& e = table[static_cast<std::size_t>(i)];
    rows.push_back({static_cast<unsigned>(e.red << 16 | e.green << 8 | e.blue), i});
  }
  Redirections redirections;
  if (entries < 2) return redirections;
  sortByMiddle(rows, 0, entries - 1);
  int keep = 0;  // a place among the sorted rows
  unsigned last = rows[0].key;
  for (int i = 1; i < entries; ++i) {
    const SortedEntry& before = rows[static_cast<std::size_t>(i) - 1];
    if (rows[static_cast<std::size_t>(i)].key != last) {
      last = rows[static_cast<std::size_t>(i)].key;
      keep = i - 1;
    } else if (before.index == transparent) {
      redirections.emplace_back(keep, redirections.size());
    } else {
      redirections.emplace_back(before.index, keep);
    }
  }
  return redirections;
}

// The table packed without the redirected entries; its count stays, and so do pixels of other entries. That is right
// only where pixels happen to stand below what was dropped, and for such tables it is how their files have always come
// out.
Merged mergeInPlace(const GifTable& table, int entries, const Redirections& redirections) {
  Merged result;
  result.entries = entries;
  result.count = static_cast<int>(redirections.size());
  IndexSet dropped{};
  for (const auto& [from, to] : redirections) {
    if (!dropped[from]) result.map[from] = to;
    dropped[from] = true;
  }
  std::size_t next = 0;
  for (std::size_t i = 0; i < static_cast<std::size_t>(entries); ++i) {
    if (!dropped[i]) result.table[next++] = table[i];
  }
  return result;
}

bool looksTheSame(const GifTable& before, const Merged& after, const Users& users) {
  for (const Users::Frame& frame : users.frames) {
    for (int i = 0; i < 256; ++i) {
      const auto index = static_cast<std::size_t>(i);
      if (!frame.used[index]) continue;
      const int now = after.map[index];
      if (!sameColour(before[index], after.table[static_cast<std::size_t>(now)])) return false;
      if ((i == frame.transparent) != (now == frame.transparent)) return false;
    }
  }
  return true;
}

// The lowest of equal entries stays, and everything behind moves down. See-through entries stand by themselves.
Merged mergeAll(const GifTable& table, int entries, const Users& users) {
  IndexSet alone{};
  for (const Users::Frame& frame : users.frames) {
    if (frame.transparent >= 0) alone[static_cast<std::size_t>(frame.transparent)] = true;
  }
  Merged result;
  result.map.fill(0);
  for (std::size_t i = 0; i < static_cast<std::size_t>(entries); ++i) {
    std::size_t first = 0;
    while (first < i && (alone[i] || alone[first] || !sameColour(table[first], table[i]))) ++first;
    if (first < i) {
      result.map[i] = result.map[first];
      ++result.count;
    } else {
      result.map[i] = static_cast<std::uint8_t>(result.entries);
      result.table[static_cast<std::size_t>(result.entries++)] = table[i];
    }
  }
  return result;
}

// OnlyFrame 0: the global table.
int removeDuplicates(clsGIF& gif, int onlyFrame) {
  const bool global = onlyFrame == 0;
  const GifTable table = global ? gif.getGlobalPalette() : gif.getLocalPalette(onlyFrame);
  const int entries = global ? gif.GlobalPaletteEntries() : gif.LocalPaletteEntries(onlyFrame);
  int transparent = gif.GlobalTransparentColorIndex();
  if (!global) transparent = gif.FrameUseTransparentColor(onlyFrame) ? gif.FrameTransparentColorIndex(onlyFrame) : -1;
  const Redirections redirections = redirectionsOf(table, entries, transparent);
  if (redirections.empty()) return 0;
  const Users users(gif, onlyFrame);
  Merged merged = mergeInPlace(table, entries, redirections);
  const bool inPlace = looksTheSame(table, merged, users);
  if (!inPlace) merged = mergeAll(table, users.needed(entries), users);
  if (merged.count == 0) return 0;
  if (!(global ? mapGlobalPixels(gif, merged.map) : mapFramePixels(gif, onlyFrame, merged.map))) return 0;
  if (global) {
    setGlobalTable(gif, merged.table, merged.entries);
  } else {
    setFrameTable(gif, onlyFrame, merged.table, merged.entries);
  }
  if (inPlace) return merged.count;
  if (global) gif.setBgdColorIndex(merged.map[static_cast<std::size_t>(gif.BgdColorIndex())]);
  for (const Users::Frame& frame : users.frames) {
    const auto index = static_cast<std::size_t>(gif.FrameTransparentColorIndex(frame.number));
    gif.setFrameTransparentColorIndex(frame.number, merged.map[index]);
  }
  return merged.count;
}

}  // namespace

int RemoveDuplicateGlobal(clsGIF& Gif) {
  return Gif.GlobalPaletteExists() ? removeDuplicates(Gif, 0) : 0;
}

int RemoveDuplicateLocal(clsGIF& Gif, int Frame) {
  return Gif.LocalPaletteUsed(Frame) ? removeDuplicates(Gif, Frame) : 0;
}

}  // namespace ruvo
