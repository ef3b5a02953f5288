// Exchanges red, green and blue.
#pragma once

#include "effects/effect_window.h"

class QComboBox;

namespace ruvo {

class frmRuvoSwapEle : public EffectWindow {
  Q_OBJECT

 public:
  frmRuvoSwapEle(const EffectSubject& subject, QWidget* parent);

 protected:
  bool apply(clsDIB& picture, double scale, const Progress& progress) override;

 private:
  QComboBox* cboSwap_;
};

}  // namespace ruvo
