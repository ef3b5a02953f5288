// Which window asks for the values of an item of the Effects menu.
#pragma once

#include <memory>

#include "effects/effect_window.h"
#include "effects/model/effect_table.h"

namespace ruvo {

// Null for an item that has no window. `host` outlives the window.
std::unique_ptr<EffectWindow> makeEffectWindow(const EffectItem& item, const EffectSubject& subject, EffectHost& host,
                                               QWidget* parent);

}  // namespace ruvo
