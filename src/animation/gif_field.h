// Shows an animation: one frame by itself on the chosen ground, or running. The picture is shown at its own size when it
// fits, else in proportion, in the middle. Used by every window with a `picDisp`.
#pragma once

#include <QTimer>
#include <QWidget>

#include "animation/model/gif_view.h"

namespace ruvo {

class GifField : public QWidget {
  Q_OBJECT

 public:
  explicit GifField(QWidget* parent = nullptr);

  // The model outlives the field or is taken away first (null). It may change between calls; changed() then makes the
  // surfaces anew. Stops an animation.
  void setGif(const clsGIF* gif);
  void changed();

  void setPattern(BgdPattern pattern);
  BgdPattern pattern() const { return pattern_; }
  // Stops an animation and shows the frame.
  void showFrame(int frame);
  int frame() const { return frame_; }  // that is shown, running or not

  bool running() const { return timer_.isActive(); }
  void start();  // nothing with fewer than two frames
  void stop();   // and shows the frame of before

  // The place on the frame's own picture under a place of the widget, by the still view; (-1, -1) outside of it.
  QPoint framePointAt(const QPoint& place) const;

  QSize sizeHint() const override;

 Q_SIGNALS:
  void runningChanged(bool running);
  void ticked(int frame);
  void pressed(QPoint framePoint, Qt::MouseButton button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;  // the ground follows the theme's base colour

 private:
  void tick();
  QRect pictureRect() const;

  const clsGIF* gif_ = nullptr;
  GifView view_;
  QTimer timer_;  // Timer1
  BgdPattern pattern_ = kPatternOriginal;
  int frame_ = 1;
  int selected_ = 1;
};

}  // namespace ruvo
