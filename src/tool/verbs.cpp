#include "tool/verbs.h"

#include <limits>

#include "animation/model/series_resize.h"
#include "animation/model/session_limits.h"

namespace ruvo::tool {
namespace {

using enum OptionKind;

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

constexpr OptionRow kNative = {"--native", Switch, "",
                               0,          0,      "read PNG with the program's own reader instead of the platform's"};

constexpr OptionRow kConvertOptions[] = {
    {"--bpp", Choice, "1|4|8|24|32", 0, 0, "reduce to so many bits a pixel, or drop (24) or keep (32) the alpha"},
    {"--dither", Choice, "stucki|floyd|burke|ordered", 0, 0, "how --bpp 1 spreads black and white (stucki)"},
    {"--quality", Number, "N", 1, 100, "of a JPEG, 1 to 100 (75)"},
    {"--interlaced", Switch, "", 0, 0, "write a GIF or PNG interlaced"},
    {"--transparent-top-pixel", Switch, "", 0, 0, "make the colour of the top left pixel see-through"},
    {"--resize", OptionKind::Size, "WxH", 0, 0, "resample to another size first"},
    {"--nearest", Switch, "", 0, 0, "resize by picking pixels"},
    {"--frame", Number, "N", 1, 65535, "take frame N of a GIF as it is shown, or image N of an icon (1)"},
    {"--native", Switch, "", 0, 0,
     "read PNG and GIF with the program's own readers, write PNG and JPEG with its own writers"},
};
constexpr OptionRow kDecodeOptions[] = {kNative};
constexpr OptionRow kPaletteOptions[] = {
    {"--optimal", Number, "N", 1, 256, "the best N entries for the picture"},
    {"--web", Switch, "", 0, 0, "the 216 colours of the web"},
    {"--16", Switch, "", 0, 0, "the sixteen colours"},
    {"--halftone", Number, "L", 0, 4, "8, 27, 64, 125 or 216 evenly spaced colours for L = 0 to 4"},
};
constexpr OptionRow kComposedOptions[] = {
    {"--png", Switch, "", 0, 0, "write frame001.png and so on (the usual)"},
    {"--rgba", Switch, "", 0, 0, "write frame001.rgba and so on: raw, top line first, R G B A"},
};
constexpr OptionRow kMinimiseOptions[] = {
    {"--global", Switch, "", 0, 0, "one colour table for all frames, as far as 256 entries hold them"},
    {"--unused", Switch, "", 0, 0, "without colours that no pixel has, and each colour once"},
    {"--slack", Switch, "", 0, 0, "without see-through margins of frames and of the whole animation"},
    {"--no-interlace", Switch, "", 0, 0, "lines in their order"},
};

constexpr OptionRow kReduceOptions[] = {
    {"--entries", Number, "N", 2, 256, "at most so many entries a colour table"},
    {"--globalise", Switch, "", 0, 0, "one table for all frames"},
};

constexpr int kMostWord = 65535;  // of a number in a GIF's 16 bits

constexpr OptionRow kSetOptions[] = {
    {"--frame", Number, "K", 1, clsGIF::kMostFrames, "only frame K, else all; --loops and --comment are the file's"},
    {"--delay", Number, "N", 0, kMostWord, "hundredths of a second until the next frame"},
    {"--disposal", Number, "M", 0, 7, "0 unspecified, 1 leave it, 2 to background, 3 to previous"},
    {"--left", Number, "N", 0, kMostWord, "place on the screen; frame 1 stays at 0"},
    {"--top", Number, "N", 0, kMostWord, "the same"},
    {"--interlace", Switch, "", 0, 0, "lines interlaced"},
    {"--no-interlace", Switch, "", 0, 0, "lines in their order"},
    {"--local", Switch, "", 0, 0, "a colour table of its own for each frame"},
    {"--global", Switch, "", 0, 0, "the common colour table, as far as 256 entries hold all"},
    {"--sorted", Switch, "", 0, 0, "mark colour tables as sorted"},
    {"--not-sorted", Switch, "", 0, 0, "or not"},
    {"--loops", Number, "N", 0, kMostLoops, "rounds of the animation, 0 without end"},
    {"--comment", Text, "TEXT", 0, 0, "at most 255 characters; an empty one goes"},
};
constexpr OptionRow kResizeOptions[] = {
    {"--percent", Number, "P", kLeastResizePercent, kMostResizePercent, "of each side, 10 to 300"},
    {"--area", Switch, "", 0, 0, "of the area instead"},
    {"--screen-only", Switch, "", 0, 0, "frames keep their scale; a smaller screen cuts them"},
    {"--keep", Choice, "width|height|both", 0, 0, "with --screen-only: sides of the screen that stay"},
    {"--left", Number, "N", 0, kMostScreenSide, "move the frames to the right (a smaller screen: to the left)"},
    {"--top", Number, "N", 0, kMostScreenSide, "move the frames down (a smaller screen: up)"},
};

constexpr OptionRow kRotateOptions[] = {
    {"--antialias", Switch, "", 0, 0, "mix neighbouring pixels"},
    {"--grow", Switch, "", 0, 0, "make OUT a square that shows the whole picture"},
    {"--fill", Text, "RRGGBB", 0, 0, "the colour around the picture (FFFFFF)"},
    {"--transparent", Text, "RRGGBB", 0, 0, "pixels of this colour become the fill colour"},
};

constexpr VerbRow kVerbs[] = {
    {"info",
     "FILE...",
     1,
     kAnyNumber,
     "Tell what is in files",
     "For each file one line with its name, then one \"  key: value\" a line: format, width, height, bits (a pixel, "
     "as\n"
     "stored), colours (of the picture on white). A GIF adds version, screen, loops, comment, global entries and a "
     "line\n"
     "a frame; an icon or cursor a line an image; a JPEG with camera data a line a tag. Control characters show as "
     "\\n\n"
     "or \\x1B.\n",
     {},
     info},
    {"convert", "IN OUT", 2, 2, "Write a picture in another format",
     "The format is that of OUT's extension: bmp, gif, jpg, png, tif, tga, pcx, ico, cur, or rgba (raw, top line "
     "first,\n"
     "R G B A). Without --bpp a BMP gets the least bits that hold the picture, a GIF 8, PNG, TIFF and icons 24 or, "
     "with\n"
     "alpha, 32. Alpha that the format or depth can not hold is composed onto white. A picture of at most 256 colours\n"
     "keeps them exactly at 8 bits; otherwise colours are chosen and dithered. --bpp 1, 4 and 8 limit the colours of\n"
     "JPEG, TGA and PCX too, which are written with 24 bits. A GIF's first frame stands for the whole file.\n",
     kConvertOptions, convert},
    {"decode", "IN OUT.pam", 2, 2, "Write every picture of a file as PAM",
     "One PAM (P7, RGB_ALPHA, straight alpha) after another: a GIF's frames as they are shown, each image of an icon "
     "or\n"
     "cursor with its mask as alpha, else the one picture with its alpha.\n",
     kDecodeOptions, decode},
    {"colours", "FILE", 1, 1, "Count the colours of a picture", "On white, where it is see-through.\n", {}, colours},
    {"palette", "[FILE] OUT.pal", 1, 2, "Write a colour table",
     "Exactly one of the options. --optimal needs FILE, the others take no colours from it. OUT.pal is a JASC-PAL text "
     "of\n"
     "256 entries, those that are not used black.\n",
     kPaletteOptions, palette},
    {"filter",
     "NAME [VALUE...] IN OUT",
     3,
     kAnyNumber,
     "Apply an effect to a picture",
     "Values come in the order below, or as NAME=VALUE; those that are left out have the standard in brackets. A "
     "colour\n"
     "is RRGGBB, or none where the list says so. Lengths count pixels.\n\n",
     {},
     filter,
     filterNames},
    {"rotate", "ANGLE IN OUT", 3, 3, "Turn a picture by any angle",
     "ANGLE is in degrees, -360 to 360; above 0 turns to the left. Without --grow OUT has the size of IN.\n",
     kRotateOptions, rotate},
    {"exif list", "FILE", 1, 1, "List the camera data of a JPEG", "One line a tag.\n", {}, exifList},
    {"exif erase",
     "FILE BLOCK",
     2,
     2,
     "Take the camera data out of a JPEG",
     "What is taken out is first written to BLOCK, then FILE is rewritten without it.\n",
     {},
     exifErase},
    {"exif restore",
     "FILE BLOCK",
     2,
     2,
     "Put camera data back into a JPEG",
     "BLOCK is what exif erase wrote. FILE must have no camera data.\n",
     {},
     exifRestore},
    {"gif frames",
     "IN OUTDIR",
     2,
     2,
     "Write each frame of a GIF as it is stored",
     "OUTDIR/frame001.gif and so on, each with its own place, delay and transparency. OUTDIR is made when missing.\n",
     {},
     gifFrames},
    {"gif composed", "IN OUTDIR", 2, 2, "Write each frame of a GIF as it is shown", "OUTDIR is made when missing.\n",
     kComposedOptions, gifComposed},
    {"gif rewrite",
     "IN OUT",
     2,
     2,
     "Read a GIF and write it anew",
     "Frames, palettes, loops and the ASCII characters of the first comment survive; other extensions do not.\n"
     "A file without a loop count is written with 0, which is without end.\n",
     {},
     gifRewrite},
    {"gif minimise", "IN OUT", 2, 2, "Write a GIF in fewer bytes that is shown as before",
     "Without an option all four are on. Inconsistent data is repaired and the comment goes. Prints both sizes: a "
     "file\n"
     "that was small already, or was packed more tightly, may grow.\n",
     kMinimiseOptions, gifMinimise},
    {"gif set", "IN OUT", 2, 2, "Write a GIF with other settings of its frames",
     "At least one option besides --frame. Tables that become global lose unused and repeated colours first.\n",
     kSetOptions, gifSet},
    {"gif resize", "IN OUT", 2, 2, "Write a GIF with all frames and its screen resized",
     "--percent is needed. Pixels are picked, so that no new colours arise.\n", kResizeOptions, gifResize},
    {"gif check", "IN", 1, 1, "Tell what is inconsistent in a GIF's data", "", {}, gifCheck},
    {"gif reduce", "--entries N IN OUT", 2, 2, "Give a GIF fewer colours",
     "The transparent entry is one of the N. Tables without duplicate and unused entries are reduced one by one, or, "
     "with\n"
     "--globalise, all together to one. Colours go to the nearest that stays; nothing is dithered.\n",
     kReduceOptions, gifReduce},
};

}  // namespace

std::span<const VerbRow> verbTable() {
  return kVerbs;
}

}  // namespace ruvo::tool
