// The widget style: Fusion, with flat title bars for the document windows and calmer tool tips.
#pragma once

#include <QProxyStyle>

class QStyleOptionTitleBar;

namespace ruvo::theme {

class ShellStyle : public QProxyStyle {
 public:
  ShellStyle();

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;

 private:
  void drawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const;
};

}  // namespace ruvo::theme
