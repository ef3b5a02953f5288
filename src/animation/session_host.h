// What the panels of the animation window and the windows over it need of that window. frmRuvoGIFani implements it;
// tests may do so with a recorder.
#pragma once

#include "animation/model/gif_session.h"
#include "base/progress.h"

class QWidget;

namespace ruvo {

class MainWindowLink;

class SessionHost {
 public:
  virtual ~SessionHost() = default;

  virtual GifSession& session() = 0;
  virtual MainWindowLink& link() = 0;
  virtual QWidget* window() = 0;  // parent for message boxes

  // The frame that the lists show, from 1; 0 without frames.
  virtual int selectedFrame() const = 0;
  virtual void selectFrame(int frame) = 0;

  virtual bool animating() const = 0;
  virtual void startAnimation() = 0;  // nothing with fewer than two frames
  virtual void stopAnimation() = 0;

  // The model changed: lists, labels, surfaces, film strip and view are made anew, and the frame is selected (as near
  // as there is one).
  virtual void refreshAll(int frame) = 0;
  // Only colours or settings changed.
  virtual void refreshFrame() = 0;
  virtual void showFileSize() = 0;  // measured anew
  virtual void setPattern(int item) = 0;  // of cboBgdPattern

  // Long work: the window's controls are locked and `picProgress` is shown from begin to end.
  virtual Progress beginWork() = 0;
  virtual void endWork() = 0;
};

}  // namespace ruvo
