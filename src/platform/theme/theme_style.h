// The widget style: Fusion with flat menus, tool buttons, fields and sliders, flat title bars and frames for the
// document windows, clear scroll bars, check and radio indicators, and plain signs in message boxes.
#pragma once

#include <QProxyStyle>

class QStyleOptionSlider;
class QStyleOptionTitleBar;
class QStyleOptionToolButton;

namespace ruvo::theme {

class ShellStyle : public QProxyStyle {
 public:
  ShellStyle();

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;

 private:
  void drawToolButton(const QStyleOptionToolButton& button, QPainter& painter, const QWidget* widget) const;
  void drawSlider(const QStyleOptionSlider& slider, QPainter& painter, const QWidget* widget) const;
  void drawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const;
  void drawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const;
};

}  // namespace ruvo::theme
