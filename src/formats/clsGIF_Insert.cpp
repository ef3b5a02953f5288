// Frames that come in from files, surfaces and colours.
#include "formats/clsGIF_Model.h"
#include "image/clsPalDither.h"
#include "platform/imaging/picture_loader.h"
#include "platform/raster/blit.h"

namespace ruvo {
namespace {

void applySettings(GifFrame& frame, const GifFrameSettings& settings) {
  GifControl& control = frame.control;
  if (settings.Delay) control.Delay = toWord(*settings.Delay);
  if (settings.DisposalMethod) control.DisposalMethod = toDisposal(*settings.DisposalMethod);
  if (settings.UseTransparentColor) control.UseTransparentColor = *settings.UseTransparentColor;
  if (settings.TransparentColorIndex && isTableIndex(*settings.TransparentColorIndex)) {
    control.TransparentColorIndex = static_cast<std::uint8_t>(*settings.TransparentColorIndex);
  }
  if (settings.Left) frame.image.Left = toWord(*settings.Left);
  if (settings.Top) frame.image.Top = toWord(*settings.Top);
  if (settings.Interlaced) frame.image.Interlaced = *settings.Interlaced;
  maskFrame(frame, control.TransparentColorIndex);
}

// A frame that leaves its own file goes on with that file's global table only where the same one awaits it.
void bringTable(GifFrame& frame, const GifModel& from, const GifModel& to) {
  const bool same = from.globalExists && to.globalExists && from.globalEntries == to.globalEntries &&
                    from.globalSorted == to.globalSorted && from.global == to.global;
  if (!frame.image.LocalPaletteUsed && !same) frame.image.LocalPaletteUsed = true;
}

// The first frame stands at 0, 0, and the screen holds it.
void growScreen(GifModel& model, GifFrame& first) {
  first.image.Left = first.image.Top = 0;
  model.width = std::max(model.width, toWord(first.width()));
  model.height = std::max(model.height, toWord(first.height()));
}

// A code when no frame of that size can come in at that place.
int mayInsert(const GifModel& model, int place, Size size) {
  if (place < 1 || place > model.count() + 1) return kGifOther;
  if (model.count() >= clsGIF::kMostFrames) return kGifTooManyFrames;
  if (!gifSizeAllowed(size.width, size.height, place)) return kGifBadSize;
  const GifFrame& first = model.frameOrNone(1);
  const bool moves = place == 1 && model.count() > 0;
  return moves && !gifSizeAllowed(first.width(), first.height(), 2) ? kGifBadSize : kGifOk;
}

// False when there is no memory for one more.
bool insert(GifModel& model, int place, GifFrame&& frame) {
  try {
    const auto placed = model.frames.insert(model.frames.begin() + (place - 1), std::move(frame));
    if (place == 1) growScreen(model, *placed);
  } catch (const std::bad_alloc&) {
    return false;
  }
  if (model.count() == 1) {
    model.signature = "GIF";
    model.version = "89a";
  }
  return true;
}

// The first image of a file among the frames that are there.
int insertIncoming(GifModel& model, GifModel& incoming, int place, const GifFrameSettings& settings) {
  GifFrame& frame = incoming.frames.front();
  if (const int code = mayInsert(model, place, {frame.width(), frame.height()}); code != kGifOk) return code;
  applySettings(frame, settings);
  bringTable(frame, incoming, model);
  return insert(model, place, std::move(frame)) ? kGifOk : kGifUnknownError;
}

// The same with everything else that the file has.
int startWith(GifModel& model, GifModel&& incoming, const GifFrameSettings& settings) {
  applySettings(incoming.frames.front(), settings);
  model = std::move(incoming);
  return kGifOk;
}

void takeLocalTable(GifImage& image, std::span<const raster::TableEntry> entries) {
  image.LocalPaletteUsed = true;
  image.LocalPaletteEntries = std::max(2, static_cast<int>(entries.size()));
  std::copy(entries.begin(), entries.end(), image.LocalPalette.begin());
}

void takeIndexed(GifImage& image, const clsDIB& picture) {
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    std::copy_n(picture.surface().pictureRow(y), picture.DIBWidth(), image.XOR->surface().pictureRow(y));
  }
  takeLocalTable(image, picture.surface().table().first(static_cast<std::size_t>(highestIndex(picture)) + 1));
}

// What the dither made of the picture.
void takeRows(GifImage& image, const clsPalDither& dither, const clsDIB& picture) {
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    const auto row = dither.row(picture.surface().memoryRowOf(y));
    std::copy_n(row.begin(), picture.DIBWidth(), image.XOR->surface().pictureRow(y));
  }
}

bool takeReduced(GifImage& image, const clsDIB& picture) {
  clsPal pal;
  clsPalDither dither;
  if (dither.ExactRows(picture, pal, 8)) {
    takeRows(image, dither, picture);
  } else {
    clsDIB deep;  // the dither shows its result in the picture that it gets
    if (!deep.CreateBlankDIB(picture.DIBWidth(), picture.DIBHeight(), 32, kWhite)) return false;
    clsDIB::PaintFromDIBtoDIB(picture, deep);
    pal.CreateOptimal(deep, 256, 8);
    dither.DitherToPalette256(deep, pal);
    takeRows(image, dither, deep);
  }
  takeLocalTable(image, pal.entriesInUse());
  return true;
}

int codeOf(imaging::LoadError error) {
  switch (error) {
    case imaging::LoadError::Missing:
      return kGifNotFound;
    case imaging::LoadError::TooLarge:
      return kGifBadSize;
    default:
      return kGifOpenFailed;
  }
}

// A picture of another format, or the code that says why there is none.
int readPicture(const std::filesystem::path& file, clsDIB& picture) {
  imaging::LoadResult loaded = imaging::LoadPicture(file);
  if (!loaded) loaded = imaging::LoadImageThroughGDIPlus(file);
  if (!loaded) return codeOf(loaded.error);
  return picture.CreateDIBFromPic(loaded.picture, false) ? kGifOk : kGifOpenFailed;
}

}  // namespace

int clsGIF::LoadFromGIFFileAddOn(const std::filesystem::path& FileName, int FrameNo, const GifFrameSettings& Settings) {
  GifModel incoming;
  const int code = readFirstImage(FileName, incoming);
  model_->stated = incoming.stated;
  if (code != kGifOk) return code;
  return FrameNo == 1 ? startWith(*model_, std::move(incoming), Settings)
                      : insertIncoming(*model_, incoming, FrameNo, Settings);
}

int clsGIF::FrameReplaceImage(const std::filesystem::path& FileName, int Frame) {
  GifFrame* old = model_->frame(Frame);
  if (!old) return kGifOther;
  GifModel incoming;
  const int code = readFirstImage(FileName, incoming);
  model_->stated = incoming.stated;
  if (code != kGifOk) return code;
  GifFrame& frame = incoming.frames.front();
  if (!gifSizeAllowed(frame.width(), frame.height(), Frame)) return kGifBadSize;
  bringTable(frame, incoming, *model_);
  frame.control = old->control;
  frame.image.Left = old->image.Left;
  frame.image.Top = old->image.Top;
  maskFrame(frame, frame.control.TransparentColorIndex);
  if (model_->count() == 1) model_->width = model_->height = 0;
  if (Frame == 1) growScreen(*model_, frame);
  *old = std::move(frame);
  return kGifOk;
}

int clsGIF::FrameInsertImage(const std::filesystem::path& FileName, int Frame, const GifFrameSettings& Settings) {
  GifModel incoming;
  const int code = readFirstImage(FileName, incoming);
  if (code == kGifNoSignature || code == kGifNotGif) {
    clsDIB picture;
    if (const int refused = readPicture(FileName, picture); refused != kGifOk) return refused;
    if (const int refused = mayInsert(*model_, Frame, picture.size()); refused != kGifOk) return refused;
    return FrameInsertImage(picture, Frame, Settings) ? kGifOk : kGifOther;
  }
  model_->stated = incoming.stated;
  if (code != kGifOk) return code;
  return Frame == 1 && model_->frames.empty() ? startWith(*model_, std::move(incoming), Settings)
                                              : insertIncoming(*model_, incoming, Frame, Settings);
}

bool clsGIF::FrameInsertImage(const clsDIB& Picture, int Frame, const GifFrameSettings& Settings) {
  if (mayInsert(*model_, Frame, Picture.size()) != kGifOk) return false;
  try {
    GifFrame frame;
    if (!createSurfaces(frame.image, Picture.size())) return false;
    if (Picture.surface().depth() == 8) {
      takeIndexed(frame.image, Picture);
    } else if (!takeReduced(frame.image, Picture)) {
      return false;
    }
    applySettings(frame, Settings);
    return insert(*model_, Frame, std::move(frame));
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool clsGIF::FrameInsertBlank(int Frame, int Width, int Height, Colour Color, const GifFrameSettings& Settings) {
  if (mayInsert(*model_, Frame, {Width, Height}) != kGifOk) return false;
  try {
    GifFrame frame;
    if (!createSurfaces(frame.image, {Width, Height})) return false;
    const int index = model_->globalExists ? GlobalPaletteR_G_B_Find(redOf(Color), greenOf(Color), blueOf(Color)) : -1;
    if (index < 0) {
      const std::array<raster::TableEntry, 2> table = {raster::TableEntry::of(Color), raster::TableEntry{}};
      takeLocalTable(frame.image, table);
    } else {
      frame.image.LocalPalette = model_->global;
      frame.image.LocalPaletteEntries = model_->globalEntries;
      frame.image.LocalPaletteSorted = model_->globalSorted;
      std::ranges::fill(frame.image.XOR->surface().bytes(), static_cast<std::uint8_t>(index));
    }
    applySettings(frame, Settings);
    return insert(*model_, Frame, std::move(frame));
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace ruvo
