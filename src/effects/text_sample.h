// The sample of the text window (`picSample`): the text as it will lie on the picture, in the picture's own pixels as long
// as it fits.
#pragma once

#include <QImage>
#include <QWidget>

#include "base/geometry.h"
#include "image/clsDIB.h"

namespace ruvo {

class TextPicture;

class TextSample : public QWidget {
 public:
  // The text begins at `corner` of the picture, which must outlive the sample; without one it lies on white.
  TextSample(const clsDIB* ground, Point corner, QWidget* parent);

  void show(const TextPicture& text);
  // 1 as long as the whole text fits.
  double scale() const { return scale_; }
  // In device pixels, as the sample was made last; for tests.
  const QImage& image() const { return image_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Size deviceSize() const;
  void drawGround(clsDIB& sample) const;
  void make();

  const clsDIB* ground_;
  Point corner_;
  const TextPicture* text_ = nullptr;  // of the last show()
  double scale_ = 1;
  QImage image_;
};

}  // namespace ruvo
