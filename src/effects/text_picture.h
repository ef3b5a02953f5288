// A text as a picture: laid out once, at pixels of the picture, whatever the scale of the screen. Right-to-left scripts,
// marks that combine, and fonts that stand in for characters which the chosen one lacks come with the layout.
#pragma once

#include <QFont>
#include <QStringList>
#include <QTextLayout>
#include <cstdint>
#include <deque>

#include "effects/model/text_choices.h"
#include "image/clsDIB.h"

namespace ruvo {

class TextPicture {
 public:
  explicit TextPicture(const TextChoices& choices);

  // Pixels, with the overhang of slanted letters and marks; 0 x 0 when there is nothing to be seen. May pass the limits
  // of a picture.
  std::int64_t width() const { return width_; }
  std::int64_t height() const { return height_; }
  bool empty() const { return width_ == 0; }
  // Which fonts stand in for the chosen one, and whether some can not have the style or no font has them, in
  // words; empty when there is nothing to be told.
  QString fontNote() const;

  // The picture: 32 bits with alpha. A see-through ground has the letters' colour at alpha 0; without antialias alpha is
  // 0 or 255. `scale`, at most 1, gives it smaller, and no more of it than `room` holds. False for an empty text, a
  // picture past the limits, or without memory.
  bool render(clsDIB& picture) const;
  bool renderSample(clsDIB& picture, double scale, Size room) const;

 private:
  struct Line {
    explicit Line(const QString& text, const QFont& font) : layout(text, font) {}
    QTextLayout layout;
    QPointF at;
    double width = 0;
  };

  QFont fontOf() const;
  void layOut(Line& line);
  void noteGlyphs(const QTextLayout& layout, QRectF& ink);
  bool paint(clsDIB& picture, Size size, double scale) const;

  TextChoices choices_;
  std::deque<Line> lines_;
  QPointF origin_;  // of the layout in the picture
  std::int64_t width_ = 0;
  std::int64_t height_ = 0;
  QString family_;        // of the font that is used
  QStringList standIns_;  // for single characters
  bool styleMissing_ = false;
  bool glyphMissing_ = false;
};

}  // namespace ruvo
