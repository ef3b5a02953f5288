#include "shell/theme_style.h"

#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>
#include <functional>

#include "shell/theme.h"

namespace ruvo::theme {
namespace {

// The glyph of a title bar button, as thin lines in a square of ten units.
void drawGlyph(QPainter& painter, QStyle::SubControl control, const QRectF& box) {
  switch (control) {
    case QStyle::SC_TitleBarCloseButton:
      painter.drawLine(box.topLeft(), box.bottomRight());
      painter.drawLine(box.topRight(), box.bottomLeft());
      break;
    case QStyle::SC_TitleBarMaxButton:
      painter.drawRect(box);
      break;
    case QStyle::SC_TitleBarMinButton:
      painter.drawLine(box.bottomLeft(), box.bottomRight());
      break;
    default: {  // back to normal: two overlapping squares
      const qreal shift = box.width() * 0.3;
      painter.drawRect(box.adjusted(0, shift, -shift, 0));
      painter.drawPolyline(QPolygonF{
          QPointF(box.left() + shift, box.top() + shift), QPointF(box.left() + shift, box.top()), box.topRight(),
          QPointF(box.right(), box.bottom() - shift), QPointF(box.right() - shift, box.bottom() - shift)});
    }
  }
}

// A box or a circle that stands out from its ground in both themes.
void drawIndicator(QPainter& painter, const QStyleOption& option, bool round) {
  const Roles& r = roles();
  const bool on = (option.state & QStyle::State_On) != 0;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if ((option.state & QStyle::State_Enabled) == 0) painter.setOpacity(0.45);
  QRectF box(0, 0, 15, 15);
  box.moveCenter(QRectF(option.rect).center());
  const bool hot = (option.state & (QStyle::State_MouseOver | QStyle::State_HasFocus)) != 0;
  painter.setPen(QPen(on || hot ? r.accent : r.quietInk, 1.2));
  painter.setBrush(on ? r.accent : r.field);
  round ? painter.drawEllipse(box) : painter.drawRoundedRect(box, 3, 3);
  if (on && round) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(r.accentInk);
    painter.drawEllipse(box.center(), 3, 3);
  } else if (on) {
    painter.setPen(QPen(r.accentInk, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{box.topLeft() + QPointF(3.5, 7.8), box.topLeft() + QPointF(6.4, 10.7),
                                   box.topLeft() + QPointF(11.6, 4.6)});
  }
  painter.restore();
}

// An icon that a function paints, at any size and scale.
class PaintedIcon : public QIconEngine {
 public:
  using Paint = std::function<void(QPainter&, const QRectF&)>;
  explicit PaintedIcon(Paint paint) : paint_(std::move(paint)) {}
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paint_(*painter, QRectF(rect));
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new PaintedIcon(*this); }

 private:
  Paint paint_;
};

// The sign of a message box: a glyph on a disc.
QIcon signIcon(QChar glyph, const QColor& disc) {
  return QIcon(new PaintedIcon([glyph, disc](QPainter& painter, const QRectF& box) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc);
    const qreal margin = box.width() / 16;
    painter.drawEllipse(box.adjusted(margin, margin, -margin, -margin));
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(box.height()) * 5 / 8);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(box, Qt::AlignCenter, glyph);
  }));
}

// A title bar button's glyph as an icon: those of a maximized document stand in the menu bar.
QIcon glyphIcon(QStyle::SubControl control) {
  return QIcon(new PaintedIcon([control](QPainter& painter, const QRectF& box) {
    const qreal margin = box.width() / 4;
    painter.setPen(QPen(roles().ink, box.width() / 14));
    drawGlyph(painter, control, box.adjusted(margin, margin, -margin, -margin));
  }));
}

}  // namespace

QIcon ShellStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
  switch (which) {
    case SP_MessageBoxInformation:
      return signIcon('i', "#2563D9");
    case SP_MessageBoxQuestion:
      return signIcon('?', "#2563D9");
    case SP_MessageBoxWarning:
      return signIcon('!', "#D97A12");
    case SP_MessageBoxCritical:
      return signIcon('!', "#C8342B");
    case SP_TitleBarCloseButton:
      return glyphIcon(SC_TitleBarCloseButton);
    case SP_TitleBarNormalButton:
      return glyphIcon(SC_TitleBarNormalButton);
    case SP_TitleBarMinButton:
      return glyphIcon(SC_TitleBarMinButton);
    default:
      return QProxyStyle::standardIcon(which, option, widget);
  }
}

ShellStyle::ShellStyle() : QProxyStyle("Fusion") {}

int ShellStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
  switch (hint) {
    case SH_ToolTip_WakeUpDelay:
      return 450;
    case SH_EtchDisabledText:
      return 0;
    case SH_DialogButtonBox_ButtonsHaveIcons:
      return 0;
    case SH_WindowFrame_Mask:
      return 0;  // no rounded corners cut out of a document window
    default:
      return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

int ShellStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_MdiSubWindowFrameWidth) return 3;
  if (metric == PM_TitleBarHeight) return 28;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

void ShellStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  switch (element) {
    case PE_IndicatorCheckBox:
      return drawIndicator(*painter, *option, false);
    case PE_IndicatorRadioButton:
      return drawIndicator(*painter, *option, true);
    case PE_FrameWindow: {
      const QRect outer = option->rect.adjusted(0, 0, -1, -1);
      painter->setPen(roles().line);
      painter->drawRect(outer);
      painter->setPen(roles().raised);
      painter->drawRect(outer.adjusted(1, 1, -1, -1));
      painter->drawRect(outer.adjusted(2, 2, -2, -2));
      return;
    }
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void ShellStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
  const auto* bar = control == CC_TitleBar ? qstyleoption_cast<const QStyleOptionTitleBar*>(option) : nullptr;
  if (bar == nullptr) return QProxyStyle::drawComplexControl(control, option, painter, widget);
  painter->save();
  drawTitleBar(*bar, *painter, widget);
  painter->restore();
}

void ShellStyle::drawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const {
  const Roles& r = roles();
  const bool active = (bar.titleBarState & Qt::WindowActive) != 0;
  painter.fillRect(bar.rect, active ? r.raised : r.window);
  painter.setPen(r.line);
  painter.drawLine(bar.rect.bottomLeft(), bar.rect.bottomRight());
  if (active) painter.fillRect(QRect(bar.rect.left(), bar.rect.top(), bar.rect.width(), 2), r.accent);

  if ((bar.subControls & SC_TitleBarSysMenu) != 0 && !bar.icon.isNull()) {
    QRect place = proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarSysMenu, widget);
    bar.icon.paint(&painter, QRect(place.center() - QPoint(8, 8), QSize(16, 16)));
  }
  const QRect text = proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarLabel, widget).adjusted(6, 0, -6, 0);
  painter.setPen(active ? r.ink : r.quietInk);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   bar.fontMetrics.elidedText(bar.text, Qt::ElideMiddle, text.width()));

  const bool minimised = (bar.titleBarState & Qt::WindowMinimized) != 0;
  const bool maximised = (bar.titleBarState & Qt::WindowMaximized) != 0;
  const std::pair<SubControl, bool> buttons[] = {
      {SC_TitleBarCloseButton, true},
      {SC_TitleBarMaxButton, !maximised},
      {SC_TitleBarMinButton, !minimised},
      {SC_TitleBarNormalButton, minimised || maximised},
  };
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [control, wanted] : buttons) {
    if (!wanted || (bar.subControls & control) == 0) continue;
    const QRect place = proxy()->subControlRect(CC_TitleBar, &bar, control, widget);
    if (!place.isValid()) continue;
    if ((bar.activeSubControls & control) != 0) {
      painter.setPen(Qt::NoPen);
      painter.setBrush((bar.state & State_Sunken) != 0 ? r.pressed : r.hover);
      painter.drawRoundedRect(place, 4, 4);
    }
    QRectF box(0, 0, 9, 9);
    box.moveCenter(QRectF(place).center());
    painter.setPen(QPen(active ? r.ink : r.quietInk, 1.2));
    painter.setBrush(Qt::NoBrush);
    drawGlyph(painter, control, box);
  }
}

}  // namespace ruvo::theme
