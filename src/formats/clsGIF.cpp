#include "formats/clsGIF.h"

#include "base/rounding.h"
#include "formats/clsGIF_Model.h"

namespace ruvo {

const GifFrame& GifModel::frameOrNone(int number) const {
  if (has(number)) return frames[static_cast<std::size_t>(number) - 1];
  static const GifFrame none = {{}, {std::make_shared<clsDIB>(), std::make_shared<clsDIB>()}};
  return none;
}

clsGIF::clsGIF() : model_(std::make_unique<GifModel>()) {}
clsGIF::~clsGIF() = default;
clsGIF::clsGIF(clsGIF&&) noexcept = default;
clsGIF& clsGIF::operator=(clsGIF&&) noexcept = default;

clsGIF clsGIF::clone() const {
  clsGIF copy;
  *copy.model_ = *model_;
  return copy;
}

void clsGIF::ClearUp() {
  *model_ = GifModel();
}

std::string clsGIF::FlagErrMessage(int Code, const std::string& FileName) {
  const auto line = [Code]() -> std::string {
    switch (Code) {
      case kGifNotFound:
        return "File not found.";
      case kGifNotGif:
        return "Not a GIF file.";
      case kGifNoSignature:
        return "No GIF signature.";
      case kGifUnknownVersion:
        return "Unknown GIF version.";
      case kGifNoTrailer:
        return "No GIF trailer found.";
      case kGifBadSize:
        return "Unallowed GIF size or max width/height excceded, refer Help.";
      case kGifOpenFailed:
        return "Failed to open this file as animated GIF.";
      case kGifUnknownError:
        return "Unknown error on loading GIF file.";
      case kGifOutOfBounds:
        return "Invalid/corrupted file - failed to read within boundary";
      case kGifTooManyFrames:
        return "No of frames exceeds maximum allowed: " + std::to_string(kMostFrames) + ".";
      case kGifNoFrame:
        return "No frame found.";
      default:
        return "Invalid GIF file/failed to read GIF image.";
    }
  };
  return FileName.empty() ? line() : line() + "\n\n" + FileName;
}

int clsGIF::statedWidth() const {
  return model_->stated.width;
}
int clsGIF::statedHeight() const {
  return model_->stated.height;
}

std::string clsGIF::GIFVersion() const {
  return model_->version;
}
int clsGIF::BgdWidth() const {
  return model_->width;
}
int clsGIF::BgdHeight() const {
  return model_->height;
}
void clsGIF::setBgdWidth(int width) {
  model_->width = toWord(width);
}
void clsGIF::setBgdHeight(int height) {
  model_->height = toWord(height);
}
int clsGIF::BgdColorIndex() const {
  return model_->background;
}
void clsGIF::setBgdColorIndex(int index) {
  model_->background = clampToByte(index);
}
double clsGIF::PixelAspectRatio() const {
  return model_->aspect / 64.0;
}
void clsGIF::setPixelAspectRatio(double ratio) {
  // The comparison also keeps what is no number away from the conversion.
  model_->aspect = ratio > 0 ? clampToByte(roundToInt(std::min(ratio, 4.0) * 64)) : 0;
}
int clsGIF::NetscapeLoops() const {
  return model_->loops;
}
void clsGIF::setNetscapeLoops(int loops) {
  model_->loops = toWord(loops);
}
bool clsGIF::hasComment() const {
  return !model_->comment.empty();
}
const std::string& clsGIF::CommentText() const {
  return model_->comment;
}
void clsGIF::setCommentText(const std::string& text) {
  model_->comment = text;
}
int clsGIF::FramesCount() const {
  return model_->count();
}

int clsGIF::FrameWidth(int Frame) const {
  return model_->frameOrNone(Frame).width();
}
int clsGIF::FrameHeight(int Frame) const {
  return model_->frameOrNone(Frame).height();
}
const clsDIB& clsGIF::FrameDIBXOR(int Frame) const {
  return *model_->frameOrNone(Frame).image.XOR;
}
const clsDIB& clsGIF::FrameDIBAND(int Frame) const {
  return *model_->frameOrNone(Frame).image.AND;
}
clsDIB* clsGIF::ownFrameDIBXOR(int Frame) {
  GifFrame* frame = model_->frame(Frame);
  return frame ? ownSurface(frame->image.XOR) : nullptr;
}
clsDIB* clsGIF::ownFrameDIBAND(int Frame) {
  GifFrame* frame = model_->frame(Frame);
  return frame ? ownSurface(frame->image.AND) : nullptr;
}
int clsGIF::FrameLeft(int Frame) const {
  return model_->frameOrNone(Frame).image.Left;
}
int clsGIF::FrameTop(int Frame) const {
  return model_->frameOrNone(Frame).image.Top;
}
void clsGIF::setFrameLeft(int Frame, int left) {
  if (GifFrame* frame = model_->frame(Frame)) frame->image.Left = toWord(left);
}
void clsGIF::setFrameTop(int Frame, int top) {
  if (GifFrame* frame = model_->frame(Frame)) frame->image.Top = toWord(top);
}
bool clsGIF::FrameInterlaced(int Frame) const {
  return model_->frameOrNone(Frame).image.Interlaced;
}
void clsGIF::setFrameInterlaced(int Frame, bool interlaced) {
  if (GifFrame* frame = model_->frame(Frame)) frame->image.Interlaced = interlaced;
}
bool clsGIF::FrameUseTransparentColor(int Frame) const {
  return model_->frameOrNone(Frame).control.UseTransparentColor;
}
void clsGIF::setFrameUseTransparentColor(int Frame, bool use) {
  if (GifFrame* frame = model_->frame(Frame)) frame->control.UseTransparentColor = use;
}
int clsGIF::FrameTransparentColorIndex(int Frame) const {
  return model_->frameOrNone(Frame).control.TransparentColorIndex;
}
void clsGIF::setFrameTransparentColorIndex(int Frame, int index) {
  GifFrame* frame = model_->frame(Frame);
  if (frame && isTableIndex(index)) frame->control.TransparentColorIndex = static_cast<std::uint8_t>(index);
}
int clsGIF::FrameDelay(int Frame) const {
  return model_->frameOrNone(Frame).control.Delay;
}
void clsGIF::setFrameDelay(int Frame, int delay) {
  if (GifFrame* frame = model_->frame(Frame)) frame->control.Delay = toWord(delay);
}
bool clsGIF::hasUserInput(int Frame) const {
  return model_->frameOrNone(Frame).control.UserInput;
}
int clsGIF::FrameDisposalMethod(int Frame) const {
  return model_->frameOrNone(Frame).control.DisposalMethod;
}
void clsGIF::setFrameDisposalMethod(int Frame, int method) {
  if (GifFrame* frame = model_->frame(Frame)) frame->control.DisposalMethod = toDisposal(method);
}

}  // namespace ruvo
