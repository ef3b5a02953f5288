#include "effects/model/effect_table.h"

#include <algorithm>

namespace ruvo {
namespace {

using Topic = std::span<const Effect> (*)();
// In the order of help.
const std::vector<Topic> kTopics = {};

const std::vector<EffectItem> kItems = {};

}  // namespace

std::vector<EffectValue> standardValues(const Effect& effect) {
  std::vector<EffectValue> values;
  for (const EffectArgument& argument : effect.arguments) values.push_back({argument.standard, nullptr});
  return values;
}

std::span<const Effect> effectTable() {
  static const std::vector<Effect> kAll = [] {
    std::vector<Effect> all;
    for (const Topic topic : kTopics) {
      const std::span<const Effect> rows = topic();
      all.insert(all.end(), rows.begin(), rows.end());
    }
    return all;
  }();
  return kAll;
}

const Effect* effectOf(std::string_view name) {
  const std::span<const Effect> all = effectTable();
  const auto found = std::ranges::find(all, name, [](const Effect& effect) { return std::string_view(effect.name); });
  return found == all.end() ? nullptr : &*found;
}

std::span<const EffectItem> effectMenu() {
  return kItems;
}

const EffectItem* effectItemOf(std::string_view control, int index) {
  const auto found = std::ranges::find_if(
      kItems, [&](const EffectItem& item) { return item.index == index && control == item.control; });
  return found == kItems.end() ? nullptr : &*found;
}

}  // namespace ruvo
