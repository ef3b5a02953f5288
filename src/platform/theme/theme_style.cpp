#include "platform/theme/theme_style.h"

#include <QComboBox>
#include <QPainter>
#include <QStyleOption>

#include "platform/theme/painted_icon.h"
#include "platform/theme/theme.h"

namespace ruvo::theme {
namespace {

// Side of a check box and width of a radio button.
constexpr int kIndicator = 15;
constexpr int kMenuMark = 8;  // side of the arrow of a button that has a menu

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

// A rectangle with round corners; a transparent border is none.
void drawRounded(QPainter& painter, const QRect& rect, const QColor& ground, const QColor& border, qreal radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(border.alpha() == 0 ? QPen(Qt::NoPen) : QPen(border));
  painter.setBrush(ground);
  const qreal inset = border.alpha() == 0 ? 0 : 0.5;
  painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), radius, radius);
  painter.restore();
}

// A box or a circle that stands out from its ground in both themes.
void drawIndicator(QPainter& painter, const QStyleOption& option, bool round) {
  const Roles& r = roles();
  const bool on = (option.state & QStyle::State_On) != 0;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if ((option.state & QStyle::State_Enabled) == 0) painter.setOpacity(0.45);
  QRectF box(0, 0, kIndicator, kIndicator);
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

// The sign of a message box: a glyph on a disc.
QIcon signIcon(QChar glyph, const QColor& disc) {
  return QIcon(new PaintedIcon([glyph, disc](QPainter& painter, const QRectF& box, QIcon::Mode) {
    painter.setRenderHint(QPainter::Antialiasing);
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
  return QIcon(new PaintedIcon([control](QPainter& painter, const QRectF& box, QIcon::Mode) {
    painter.setRenderHint(QPainter::Antialiasing);
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
    case SH_ComboBox_Popup: {
      // A long list with a scroll bar below its box; as a menu it would take the height of the screen.
      const auto* box = qobject_cast<const QComboBox*>(widget);
      if (box && box->count() > box->maxVisibleItems()) return 0;
      return QProxyStyle::styleHint(hint, option, widget, returned);
    }
    default:
      return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

int ShellStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  switch (metric) {
    case PM_MdiSubWindowFrameWidth:
    case PM_MenuBarHMargin:
      return 3;
    case PM_TitleBarHeight:
      return 28;
    case PM_MenuBarVMargin:
      return 2;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return kIndicator + 2;  // with room for its border
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return 6;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

void ShellStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  switch (element) {
    case PE_IndicatorCheckBox:
      return drawIndicator(*painter, *option, false);
    case PE_IndicatorRadioButton:
      return drawIndicator(*painter, *option, true);
    case PE_PanelLineEdit: {
      const auto* field = qstyleoption_cast<const QStyleOptionFrame*>(option);
      if (field == nullptr || field->lineWidth <= 0) break;  // within a combo or spin box
      const bool focus = (option->state & State_HasFocus) != 0;
      drawRounded(*painter, option->rect, roles().field, focus ? roles().accent : roles().line, 4);
      return;
    }
    case PE_PanelButtonCommand:
      // A button that stays down is told from the others at a glance.
      if ((option->state & State_On) == 0) break;
      drawRounded(*painter, option->rect, roles().selected, roles().accent, 4);
      return;
    case PE_PanelMenu: {
      // A border that shows in front of a dark workspace, too.
      QColor border = roles().quietInk;
      border.setAlphaF(0.6F);
      painter->fillRect(option->rect, roles().raised);
      painter->setPen(border);
      painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
      return;
    }
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
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ShellStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const Roles& r = roles();
  if (element == CE_MenuBarEmptyArea) {
    painter->fillRect(option->rect, r.window);
    return;
  }
  const auto* item = element == CE_MenuBarItem ? qstyleoption_cast<const QStyleOptionMenuItem*>(option) : nullptr;
  if (item == nullptr) return QProxyStyle::drawControl(element, option, painter, widget);
  painter->fillRect(item->rect, r.window);
  const bool enabled = (item->state & State_Enabled) != 0;
  if (enabled && (item->state & State_Selected) != 0) {
    const bool open = (item->state & State_Sunken) != 0;
    drawRounded(*painter, item->rect.adjusted(0, 1, 0, -1), open ? r.pressed : r.hover, Qt::transparent, 4);
  }
  int flags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
  if (!proxy()->styleHint(SH_UnderlineShortcut, item, widget)) flags |= Qt::TextHideMnemonic;
  proxy()->drawItemText(painter, item->rect, flags, item->palette, enabled, item->text, QPalette::WindowText);
}

void ShellStyle::drawToolButton(const QStyleOptionToolButton& button, QPainter& painter, const QWidget* widget) const {
  const Roles& r = roles();
  const bool enabled = (button.state & State_Enabled) != 0;
  const bool checked = (button.state & State_On) != 0;
  QColor ground = Qt::transparent;
  QColor border = Qt::transparent;
  if (checked) {
    ground = enabled ? r.selected : r.hover;
    border = enabled ? r.accent : r.line;
  } else if (enabled && (button.state & State_Sunken) != 0) {
    ground = r.pressed;
  } else if (enabled && (button.state & State_MouseOver) != 0) {
    ground = r.hover;
  }
  if ((button.state & State_HasFocus) != 0 && (button.state & State_KeyboardFocusChange) != 0) border = r.accent;
  if (ground.alpha() != 0 || border.alpha() != 0) drawRounded(painter, button.rect, ground, border, 5);
  QStyleOptionToolButton label = button;
  label.rect = proxy()->subControlRect(CC_ToolButton, &button, SC_ToolButton, widget).adjusted(2, 2, -2, -2);
  proxy()->drawControl(CE_ToolButtonLabel, &label, &painter, widget);
  if ((button.features & QStyleOptionToolButton::HasMenu) == 0) return;
  QStyleOption mark = button;
  mark.rect = QRect(button.rect.bottomRight() - QPoint(kMenuMark, kMenuMark), QSize(kMenuMark, kMenuMark));
  proxy()->drawPrimitive(PE_IndicatorArrowDown, &mark, &painter, widget);
}

void ShellStyle::drawSlider(const QStyleOptionSlider& slider, QPainter& painter, const QWidget* widget) const {
  const Roles& r = roles();
  const QRect handle = proxy()->subControlRect(CC_Slider, &slider, SC_SliderHandle, widget);
  QRect groove(slider.rect.left() + 2, 0, slider.rect.width() - 4, 4);
  groove.moveTop(slider.rect.center().y() - 1);
  drawRounded(painter, groove, r.pressed, Qt::transparent, 2);
  QRect done = groove;
  done.setRight(handle.center().x());
  const bool enabled = (slider.state & State_Enabled) != 0;
  drawRounded(painter, done, enabled ? r.accent : r.line, Qt::transparent, 2);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(r.raised, 1.5));
  painter.setBrush(enabled ? r.accent : r.line);
  painter.drawEllipse(QRectF(handle).center(), 7, 7);
}

void ShellStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
  const auto* bar = control == CC_TitleBar ? qstyleoption_cast<const QStyleOptionTitleBar*>(option) : nullptr;
  const auto* button = control == CC_ToolButton ? qstyleoption_cast<const QStyleOptionToolButton*>(option) : nullptr;
  const auto* slider = control == CC_Slider ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  const auto* scroll = control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
  // All but those in two parts, of which one opens a menu.
  const bool flatButton = button != nullptr && (button->features & QStyleOptionToolButton::MenuButtonPopup) == 0;
  const bool lying = slider != nullptr && slider->orientation == Qt::Horizontal && slider->tickPosition == 0;
  if (bar == nullptr && !flatButton && !lying && scroll == nullptr) {
    return QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
  painter->save();
  if (bar != nullptr) drawTitleBar(*bar, *painter, widget);
  if (flatButton) drawToolButton(*button, *painter, widget);
  if (lying) drawSlider(*slider, *painter, widget);
  if (scroll != nullptr) drawScrollBar(*scroll, *painter, widget);
  painter->restore();
}

// A plain handle that is told from its groove at a glance, between two small arrows.
void ShellStyle::drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const {
  const Roles& r = roles();
  const bool across = bar.orientation == Qt::Horizontal;
  const bool enabled = (bar.state & State_Enabled) != 0 && bar.maximum > bar.minimum;
  const auto inkOf = [&](SubControl part) {
    QColor ink = r.quietInk;
    const bool hot = (bar.activeSubControls & part) != 0 && (bar.state & State_MouseOver) != 0;
    const bool held = (bar.activeSubControls & part) != 0 && (bar.state & State_Sunken) != 0;
    ink.setAlphaF(!enabled ? 0.25F : held ? 1.0F : hot ? 0.85F : 0.6F);
    return ink;
  };
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(bar.rect, r.window);
  const QRectF handle = proxy()->subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget);
  const qreal inset = (across ? handle.height() : handle.width()) / 4;
  painter.setPen(Qt::NoPen);
  painter.setBrush(inkOf(SC_ScrollBarSlider));
  if (enabled)
    painter.drawRoundedRect(across ? handle.adjusted(1, inset, -1, -inset) : handle.adjusted(inset, 1, -inset, -1),
                            inset, inset);
  const bool mirrored = across && bar.direction == Qt::RightToLeft;
  for (const SubControl part : {SC_ScrollBarSubLine, SC_ScrollBarAddLine}) {
    const QPointF centre = QRectF(proxy()->subControlRect(CC_ScrollBar, &bar, part, widget)).center();
    const qreal tip = (part == SC_ScrollBarAddLine) != mirrored ? 1.8 : -1.8;
    const auto at = [&](qreal along, qreal beside) {
      return centre + (across ? QPointF(along, beside) : QPointF(beside, along));
    };
    painter.setPen(QPen(inkOf(part), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{at(-tip, -3.4), at(tip, 0), at(-tip, 3.4)});
  }
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
