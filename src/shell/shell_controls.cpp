#include "shell/shell_controls.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "platform/theme/theme.h"

namespace ruvo::shell {
namespace {

// The picture within an option tile. It has a name and a click of its own, which is that of the tile.
class TilePicture : public QWidget {
 public:
  TilePicture(QIcon picture, QAbstractButton* tile) : QWidget(tile), picture_(std::move(picture)), tile_(tile) {
    setGeometry(2, 2, tile->width() - 4, tile->height() - 4);
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override { tile_->setDown(event->button() == Qt::LeftButton); }
  void mouseReleaseEvent(QMouseEvent* event) override {
    tile_->setDown(false);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) tile_->click();
  }
  void paintEvent(QPaintEvent*) override {
    QRect place(0, 0, kIconSide, kIconSide);
    place.moveCenter(rect().center());
    QPainter painter(this);
    picture_.paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }

 private:
  QIcon picture_;
  QAbstractButton* tile_;
};

}  // namespace

PictureOption::PictureOption(const QString& optionName, const QString& pictureName, const QString& picture,
                             const QString& caption, QWidget* parent)
    : PictureButton(optionName, QString(), caption, parent) {
  setFixedSize(30, 28);
  auto* image = new TilePicture(theme::icon(picture), this);
  image->setObjectName(pictureName);
  image->setToolTip(caption);
}

ColorBox::ColorBox(const QString& name, const QString& tip, Colour colour, QWidget* parent)
    : QWidget(parent), colour_(colour) {
  setObjectName(name);
  setToolTip(tip);
  setAccessibleName(tip);
  setFixedSize(36, 32);
  setFocusPolicy(Qt::TabFocus);
}

void ColorBox::setBackColor(Colour colour) {
  colour_ = colour;
  update();
}

void ColorBox::mouseReleaseEvent(QMouseEvent* event) {
  if (!rect().contains(event->position().toPoint())) return;
  if (event->button() == Qt::LeftButton && leftClicked) leftClicked();
  if (event->button() == Qt::RightButton && rightClicked) rightClicked();
}

void ColorBox::keyPressEvent(QKeyEvent* event) {
  const bool takes = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (takes && leftClicked) return leftClicked();
  QWidget::keyPressEvent(event);
}

void ColorBox::paintEvent(QPaintEvent*) {
  // A light ring within a dark one: the box stands out from any colour behind and within it.
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF outer = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const QColor edge = hasFocus() ? theme::roles().accent : theme::roles().dark ? QColor("#0A0C0F") : QColor("#8793A1");
  painter.setPen(QPen(edge, hasFocus() ? 2 : 1));
  painter.setBrush(theme::roles().dark ? QColor("#59636F") : QColor("#FFFFFF"));
  painter.drawRoundedRect(outer, 4, 4);
  painter.setPen(Qt::NoPen);
  painter.setBrush(toQColor(colour_));
  painter.drawRoundedRect(outer.adjusted(2, 2, -2, -2), 2.5, 2.5);
}

}  // namespace ruvo::shell
