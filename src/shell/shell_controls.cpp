#include "shell/shell_controls.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "shell/theme.h"

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

void Panel::paintEvent(QPaintEvent*) {
  const theme::Roles& r = theme::roles();
  QPainter painter(this);
  const QRect inner = rect().adjusted(0, 0, -1, -1);
  if (border_ == Border::Frame) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(r.line);
    painter.setBrush(r.raised);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    return;
  }
  painter.fillRect(rect(), r.window);
  painter.setPen(r.line);
  if (border_ == Border::Top) painter.drawLine(inner.topLeft(), inner.topRight());
  if (border_ == Border::Right) painter.drawLine(inner.topRight(), inner.bottomRight());
  if (border_ == Border::Bottom) painter.drawLine(inner.bottomLeft(), inner.bottomRight());
}

PictureButton::PictureButton(const QString& name, const QString& picture, const QString& tip, QWidget* parent)
    : QToolButton(parent) {
  setObjectName(name);
  setIcon(theme::icon(picture));
  setIconSize({kIconSide, kIconSide});
  setToolTip(tip);
  setAccessibleName(tip.trimmed());
  setAutoRaise(true);
  setCheckable(true);
  // A click leaves the keyboard with the picture.
  setFocusPolicy(Qt::TabFocus);
}

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

QColor toQColor(Colour colour) {
  return QColor(redOf(colour), greenOf(colour), blueOf(colour));
}

Colour fromQColor(const QColor& colour) {
  return rgb(colour.red(), colour.green(), colour.blue());
}

QFrame* divider(Qt::Orientation orientation, QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setAutoFillBackground(true);
  QPalette palette = line->palette();
  palette.setColor(QPalette::Window, theme::roles().line);
  line->setPalette(palette);
  if (orientation == Qt::Vertical)
    line->setFixedWidth(1);
  else
    line->setFixedHeight(1);
  return line;
}

namespace {

// A combo box whose list may be wider than the box, so that no item is cut. The list is measured when it opens: most
// never do.
class WideListCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

  void showPopup() override {
    int widest = 0;
    for (int i = 0; i < count(); ++i) widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(i)));
    view()->setTextElideMode(Qt::ElideNone);
    view()->setMinimumWidth(widest + 40);
    QComboBox::showPopup();
  }
};

}  // namespace

QComboBox* combo(const QString& name, const QStringList& items, int first, int width, QWidget* parent) {
  auto* box = new WideListCombo(parent);
  box->setObjectName(name);
  // Before the items: a box that is as wide as its place has no need to measure each of them.
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(1);
  box->addItems(items);
  box->setCurrentIndex(first);
  if (width > 0) box->setFixedWidth(width);
  box->setMaxVisibleItems(20);
  return box;
}

QLabel* label(const QString& text, QWidget* parent, LabelKind kind) {
  auto* made = new QLabel(text, parent);
  made->setTextFormat(Qt::PlainText);
  if (kind == LabelKind::Heading) {
    QFont font = made->font();
    font.setWeight(QFont::DemiBold);
    made->setFont(font);
  } else if (kind == LabelKind::Quiet) {
    QPalette palette = made->palette();
    palette.setColor(QPalette::Active, QPalette::WindowText, theme::roles().quietInk);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, theme::roles().quietInk);
    made->setPalette(palette);
  }
  return made;
}

}  // namespace ruvo::shell
