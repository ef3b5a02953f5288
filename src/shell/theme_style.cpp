#include "shell/theme_style.h"

#include <QPainter>
#include <QStyleOption>

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
      painter.drawPolyline(QPolygonF{QPointF(box.left() + shift, box.top() + shift), QPointF(box.left() + shift, box.top()),
                                     box.topRight(), QPointF(box.right(), box.bottom() - shift),
                                     QPointF(box.right() - shift, box.bottom() - shift)});
    }
  }
}

}  // namespace

ShellStyle::ShellStyle() : QProxyStyle("Fusion") {}

int ShellStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
  switch (hint) {
    case SH_ToolTip_WakeUpDelay: return 450;
    case SH_EtchDisabledText: return 0;
    case SH_WindowFrame_Mask: return 0;  // no rounded corners cut out of a document window
    default: return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

int ShellStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_MdiSubWindowFrameWidth) return 3;
  if (metric == PM_TitleBarHeight) return 28;
  return QProxyStyle::pixelMetric(metric, option, widget);
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
