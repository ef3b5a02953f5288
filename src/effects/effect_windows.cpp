#include "effects/effect_windows.h"

#include <QHash>
#include <type_traits>

#include "effects/argument_window.h"
#include "effects/frmRuvoAdjEle.h"
#include "effects/frmRuvoCast.h"
#include "effects/frmRuvoColorTheme.h"
#include "effects/frmRuvoContrast.h"
#include "effects/frmRuvoLayerOp.h"
#include "effects/frmRuvoSwapEle.h"
#include "effects/frmRuvoTile.h"

namespace ruvo {
namespace {

using Make = std::unique_ptr<EffectWindow> (*)(const EffectSubject& subject, EffectHost& host, QWidget* parent);

template <typename Window>
std::unique_ptr<EffectWindow> make(const EffectSubject& subject, EffectHost& host, QWidget* parent) {
  if constexpr (std::is_constructible_v<Window, const EffectSubject&, QWidget*>) {
    return std::make_unique<Window>(subject, parent);
  } else {
    return std::make_unique<Window>(subject, host, parent);
  }
}

// Windows with controls of their own, by name. Every other effect has one made from its arguments.
const QHash<QString, Make>& ownWindows() {
  static const QHash<QString, Make> kWindows = {
      {"frmRuvoContrast", make<frmRuvoContrast>}, {"frmRuvoColorTheme", make<frmRuvoColorTheme>},
      {"frmRuvoAdjEle", make<frmRuvoAdjEle>},     {"frmRuvoSwapEle", make<frmRuvoSwapEle>},
      {"frmRuvoCast", make<frmRuvoCast>},         {"frmRuvoLayerOp", make<frmRuvoLayerOp>},
      {"frmRuvoTile", make<frmRuvoTile>},
  };
  return kWindows;
}

}  // namespace

std::unique_ptr<EffectWindow> makeEffectWindow(const EffectItem& item, const EffectSubject& subject, EffectHost& host,
                                               QWidget* parent) {
  if (!item.window) return nullptr;
  const QString name = QString::fromLatin1(item.window);
  if (const Make make = ownWindows().value(name)) return make(subject, host, parent);
  const Effect* effect = effectOf(item.effects.front());
  return effect ? std::make_unique<ArgumentWindow>(name, *effect, subject, host, parent) : nullptr;
}

}  // namespace ruvo
