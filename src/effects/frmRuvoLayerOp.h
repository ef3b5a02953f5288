// A second picture is laid over or under: loaded from a file and put in place by hand on the sample, or by numbers.
#pragma once

#include <QPointF>
#include <optional>

#include "effects/argument_window.h"

namespace ruvo {

class frmRuvoLayerOp : public ArgumentWindow {
  Q_OBJECT

 public:
  frmRuvoLayerOp(const EffectSubject& subject, EffectHost& host, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void limitPlace();
  void centre();
  void dragTo(QPointF place);

  Size layer_;                   // of the second picture
  std::optional<QPointF> grab_;  // where the drag is, logical pixels of the sample
};

}  // namespace ruvo
