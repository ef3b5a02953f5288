// The global colour table and the frames' own ones.
#include "base/rounding.h"
#include "formats/clsGIF_Model.h"

namespace ruvo {
namespace {

Colour colourOf(const GifTable& table, int index) {
  return isTableIndex(index) ? table[static_cast<std::size_t>(index)].colour() : kBlack;
}

void split(Colour colour, int& r, int& g, int& b) {
  r = redOf(colour);
  g = greenOf(colour);
  b = blueOf(colour);
}

void change(GifTable& table, int index, int r, int g, int b) {
  if (isTableIndex(index)) table[static_cast<std::size_t>(index)] = {clampToByte(b), clampToByte(g), clampToByte(r), 0};
}

int toEntries(int entries) {
  return std::clamp(entries, 0, 256);
}

}  // namespace

void setTable(clsDIB& dib, const GifTable& table) {
  dib.SetPaletteToDIB8BPP({reinterpret_cast<const std::uint8_t*>(table.data()), sizeof(table)});
}

bool clsGIF::GlobalPaletteExists() const {
  return model_->globalExists;
}
void clsGIF::setGlobalPaletteExists(bool exists) {
  model_->globalExists = exists;
}
bool clsGIF::GlobalPaletteSorted() const {
  return model_->globalSorted;
}
void clsGIF::setGlobalPaletteSorted(bool sorted) {
  model_->globalSorted = sorted;
}
int clsGIF::GlobalPaletteEntries() const {
  return model_->globalEntries;
}
void clsGIF::setGlobalPaletteEntries(int entries) {
  model_->globalEntries = toEntries(entries);
}
const GifTable& clsGIF::getGlobalPalette() const {
  return model_->global;
}
raster::TableEntry* clsGIF::GlobalPalettePtr() {
  return model_->global.data();
}
void clsGIF::CopyToGlobalPalette(const GifTable& Table) {
  model_->global = Table;
}
Colour clsGIF::GlobalPaletteColor(int Index) const {
  return colourOf(model_->global, Index);
}
void clsGIF::GlobalPaletteR_G_B_Get(int Index, int& R, int& G, int& B) const {
  split(colourOf(model_->global, Index), R, G, B);
}
void clsGIF::GlobalPaletteR_G_B_Change(int Index, int R, int G, int B) {
  change(model_->global, Index, R, G, B);
}

int clsGIF::GlobalPaletteR_G_B_Find(int R, int G, int B) const {
  for (int i = 0; i < model_->globalEntries; ++i) {
    const raster::TableEntry& e = model_->global[static_cast<std::size_t>(i)];
    if (e.red == R && e.green == G && e.blue == B) return i;
  }
  return -1;
}

int clsGIF::GlobalTransparentColorIndex() const {
  int shared = -1;
  for (const GifFrame& frame : model_->frames) {
    if (frame.image.LocalPaletteUsed || !frame.control.UseTransparentColor) continue;
    const int index = frame.control.TransparentColorIndex;
    if (shared >= 0 && shared != index) return -1;
    shared = index;
  }
  return shared;
}

bool clsGIF::LocalPaletteUsed(int Frame) const {
  return model_->frameOrNone(Frame).image.LocalPaletteUsed;
}
void clsGIF::setLocalPaletteUsed(int Frame, bool used) {
  if (GifFrame* frame = model_->frame(Frame)) frame->image.LocalPaletteUsed = used;
}
bool clsGIF::LocalPaletteSorted(int Frame) const {
  return model_->frameOrNone(Frame).image.LocalPaletteSorted;
}
void clsGIF::setLocalPaletteSorted(int Frame, bool sorted) {
  if (GifFrame* frame = model_->frame(Frame)) frame->image.LocalPaletteSorted = sorted;
}
int clsGIF::LocalPaletteEntries(int Frame) const {
  return model_->frameOrNone(Frame).image.LocalPaletteEntries;
}
void clsGIF::setLocalPaletteEntries(int Frame, int entries) {
  if (GifFrame* frame = model_->frame(Frame)) frame->image.LocalPaletteEntries = toEntries(entries);
}
const GifTable& clsGIF::getLocalPalette(int Frame) const {
  return model_->frameOrNone(Frame).image.LocalPalette;
}
raster::TableEntry* clsGIF::LocalPalettePtr(int Frame) {
  GifFrame* frame = model_->frame(Frame);
  return frame ? frame->image.LocalPalette.data() : nullptr;
}
Colour clsGIF::LocalPaletteColor(int Frame, int Index) const {
  return colourOf(getLocalPalette(Frame), Index);
}
void clsGIF::LocalPaletteR_G_B_Get(int Frame, int Index, int& R, int& G, int& B) const {
  split(LocalPaletteColor(Frame, Index), R, G, B);
}
void clsGIF::LocalPaletteR_G_B_Change(int Frame, int Index, int R, int G, int B) {
  if (GifFrame* frame = model_->frame(Frame)) change(frame->image.LocalPalette, Index, R, G, B);
}
Colour clsGIF::FrameTransparentColor(int Frame) const {
  return LocalPaletteColor(Frame, FrameTransparentColorIndex(Frame));
}
int clsGIF::PaletteIndex_In_DIB_XY(int Frame, int X, int Y) const {
  return clsDIB::PaletteIndex_In_DIB_XY(FrameDIBXOR(Frame), X, Y);
}

void clsGIF::UpdateLocalPalettePerGlobal(int Frame) {
  GifFrame* frame = model_->frame(Frame);
  if (!frame) return;
  frame->image.LocalPalette = model_->global;
  frame->image.LocalPaletteEntries = model_->globalEntries;
  frame->image.LocalPaletteUsed = false;
  maskFrame(*frame, frame->control.TransparentColorIndex);
}

void clsGIF::UpdateLocalPalettePerLocal(int Frame) {
  if (GifFrame* frame = model_->frame(Frame)) maskFrame(*frame, frame->control.TransparentColorIndex);
}

}  // namespace ruvo
