// The list of frames: copies, exchanges, removals.
#include "formats/clsGIF_Model.h"

namespace ruvo {
namespace {

// Whether that frame may stand at that place.
bool fits(const GifFrame& frame, int place) {
  return gifSizeAllowed(frame.width(), frame.height(), place);
}

}  // namespace

bool clsGIF::FrameCopy(int From, int To) {
  if (!model_->has(From) || !model_->has(To) || From == To || !fits(*model_->frame(From), To)) return false;
  *model_->frame(To) = *model_->frame(From);
  return true;
}

bool clsGIF::FrameSwap(int First, int Second) {
  if (!model_->has(First) || !model_->has(Second) || First == Second) return false;
  if (!fits(*model_->frame(First), Second) || !fits(*model_->frame(Second), First)) return false;
  std::swap(*model_->frame(First), *model_->frame(Second));
  return true;
}

bool clsGIF::FrameMoveTo(int From, int To) {
  if (!model_->has(From) || !model_->has(To) || From == To || !fits(*model_->frame(From), To)) return false;
  if (To == 1 && !fits(*model_->frame(1), 2)) return false;
  const auto at = [this](int number) { return model_->frames.begin() + (number - 1); };
  if (From < To) {
    std::rotate(at(From), at(From + 1), at(To + 1));
  } else {
    std::rotate(at(To), at(From), at(From + 1));
  }
  return true;
}

bool clsGIF::FrameMoveUp(int Frame) {
  return FrameMoveTo(Frame, Frame - 1);
}

bool clsGIF::FrameMoveDown(int Frame) {
  return FrameMoveTo(Frame, Frame + 1);
}

bool clsGIF::FrameDelete(int Frame) {
  if (!model_->has(Frame)) return false;
  model_->frames.erase(model_->frames.begin() + (Frame - 1));
  return true;
}

}  // namespace ruvo
