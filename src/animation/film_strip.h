// The film strip (`picFilm` with `vsbFilm`): up to four frames one below the other between perforated edges, the
// selected one framed in blue, each with its number. A click selects; a drag asks to move the frame to another place.
#pragma once

#include <QWidget>

#include "animation/model/gif_view.h"

class QScrollBar;

namespace ruvo {

class FilmStrip : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kFramesShown = 4;

  explicit FilmStrip(QWidget* parent = nullptr);

  // Draws from the model when it paints; null for none. changed() after the model did.
  void setGif(const clsGIF* gif);
  void changed();
  void setPattern(BgdPattern pattern);
  // Scrolls so that the frame is seen: the third of the four when it stands above place 4.
  void setSelected(int frame);
  int selected() const { return selected_; }
  void setMovable(bool movable) { movable_ = movable; }

  QSize sizeHint() const override;

 Q_SIGNALS:
  void frameClicked(int frame);
  void moveAsked(int from, int to);

 private:
  class Film;  // picFilm
  Film* film_ = nullptr;
  QScrollBar* bar_ = nullptr;  // vsbFilm
  const clsGIF* gif_ = nullptr;
  BgdPattern pattern_ = kPatternOriginal;
  int selected_ = 1;
  bool movable_ = false;
};

}  // namespace ruvo
