// Saving a picture as an icon or a cursor: the choices, the words, and the picture and mask that come of them.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "base/geometry.h"
#include "formats/format_table.h"
#include "image/clsDIB.h"

namespace ruvo {

enum class IconKind { Icon, Cursor };

// In the order of their items.
enum class HowToTake { WholeIcon, KeepAspect };
inline constexpr std::array<const char*, 2> kHowToTakeTexts = {"Stretch source to full icon/cursor size",
                                                               "Stretch source preserving aspect ratio"};
inline constexpr const char* kUseTransparentText = "Make transparency  (transparent areas are as white on Mask)";

// Sides of the sizes offered for an icon, the usual ones or also the larger ones. A cursor has one size.
std::span<const int> iconSides(bool larger);
inline constexpr int kCursorSide = 32;
// "32 x 32"
std::string squareText(int side);

inline constexpr const char* kNoFileSpecification = "No file specification yet";
inline constexpr const char* kCursorSaveFailed = "Failed to save cursor file.";
inline constexpr const char* kSavedTo = "Saved to ";

const FormatRow& formatOf(IconKind kind);
// The path with the kind's extension behind it when it ends in another one or none.
std::string iconPath(IconKind kind, const std::string& path);

struct IconChoices {
  int side = kCursorSide;
  HowToTake how = HowToTake::WholeIcon;
  bool transparent = false;
  Colour transparentColour = kWhite;  // pixels of the picture in this colour
  Point hotSpot = {};                 // of a cursor
};

// Where the picture lands within the icon: all of it, or its own shape in the middle.
Rect placeWithin(Size picture, int side, HowToTake how);
// The colour of the picture under a pixel of the icon; nothing where the icon is wider than the picture.
std::optional<Colour> colourUnder(const clsDIB& picture, const IconChoices& choices, Point iconPixel);

// The picture at the icon's size and its mask (32 bits, white where see-through, the picture black there). Pixels are
// taken as they are when the picture fits a whole number of times, else filtered; see-through ones never run into their
// neighbours. A picture with alpha keeps it. What stays free around is see-through, or else white.
struct IconPair {
  clsDIB image;
  clsDIB mask;
};
IconPair iconPair(const clsDIB& picture, const IconChoices& choices);

bool saveIcon(const std::filesystem::path& file, IconKind kind, const clsDIB& picture, const IconChoices& choices);

}  // namespace ruvo
