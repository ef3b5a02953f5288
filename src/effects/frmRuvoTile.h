// The picture is covered with a tile: a loaded image, or the part of it that is marked on the canvas.
#pragma once

#include "effects/effect_window.h"

class QLabel;

namespace ruvo {

class ucCanvas;

class frmRuvoTile : public EffectWindow {
  Q_OBJECT

 public:
  frmRuvoTile(const EffectSubject& subject, EffectHost& host, QWidget* parent);

 protected:
  bool apply(clsDIB& picture, double scale, const Progress& progress) override;
  QString refusal() override;

 private:
  void load();
  void takeSubject();
  void showSource(const clsDIB& source);
  void takeTile();

  EffectHost& host_;
  ucCanvas* canvas_;
  QLabel* size_;
  clsDIB tile_;
};

}  // namespace ruvo
