// The live sample of an effect window: what the present choices make of the picture, reduced to fit, or at full size to
// scroll about in.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "base/colour.h"
#include "effects/effect_subject.h"

class QCheckBox;

namespace ruvo {

class ucCanvasA;

class SamplePanel : public QWidget {
  Q_OBJECT

 public:
  // Changes a picture as chosen; `scale` is 1 for the real size, below for a reduced sample. False when it can not.
  using Apply = std::function<bool(clsDIB& picture, double scale)>;
  // What the subject refers to outlives the panel.
  SamplePanel(const EffectSubject& subject, Apply apply, QWidget* parent);

  // The choices have changed. A sample that is quick to make is shown at once, a large one when the hand rests.
  void refresh();
  ucCanvasA& picture() const { return *picSample_; }
  // Pixels of the sample for each of the picture.
  double scale() const { return scale_; }
  // Where the effect moves pixels a right click picks what is seen, not what the picture has at that place.
  void pickWhatIsSeen() { pickSeen_ = true; }

 Q_SIGNALS:
  // A right click on the sample; the colour of the picture itself at that place.
  void colourPicked(ruvo::Colour colour);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool fullSize() const;
  void prepare();
  void show();
  void layOnGround(clsDIB& sample) const;
  void pick(int x, int y);

  const clsDIB& subject_;
  const clsDIB* beneath_;  // null where white is
  Apply apply_;
  ucCanvasA* picSample_;
  QCheckBox* ckbShowFullSize_;
  clsDIB reduced_;         // the picture at the sample's size; empty when it is shown as it is
  clsDIB reducedBeneath_;  // the same of what lies beneath
  double scale_ = 1;
  bool prepared_ = false;
  bool pickSeen_ = false;
  QTimer later_;
};

}  // namespace ruvo
