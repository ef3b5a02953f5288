#include "platform/theme/controls.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCursor>
#include <QFrame>
#include <QHelpEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>

#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"

namespace ruvo::theme {

void Panel::paintEvent(QPaintEvent*) {
  const Roles& r = roles();
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

bool PictureButton::event(QEvent* event) {
  const QPointer<PictureButton> alive(this);
  const bool used = QToolButton::event(event);
  if (event->type() == QEvent::ContextMenu && alive) {
    // The menu takes the pointer away unseen; the button would go on looking pointed at.
    setAttribute(Qt::WA_UnderMouse, rect().contains(mapFromGlobal(QCursor::pos())));
    update();
  }
  return used;
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
  palette.setColor(QPalette::Window, roles().line);
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
    palette.setColor(QPalette::Active, QPalette::WindowText, roles().quietInk);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, roles().quietInk);
    made->setPalette(palette);
  }
  return made;
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
  return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && fontMetrics().horizontalAdvance(text()) > width()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), desktop::plainToolTip(text()), this);
    return true;
  }
  return QLabel::event(event);
}

}  // namespace ruvo::theme
