// Effects by name and arguments by name, as the command line gives them.
#pragma once

#include <map>
#include <string>

#include "effects/model/effect_table.h"
#include "support/pictures.h"

namespace ruvo::test {

using Given = std::map<std::string, double>;

inline EffectInput inputOf(const Effect& effect, const Given& given = {}) {
  std::vector<EffectValue> values = standardValues(effect);
  std::size_t used = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto found = given.find(effect.arguments[i].name);
    if (found == given.end()) continue;
    values[i].number = found->second;
    ++used;
  }
  EXPECT_EQ(used, given.size()) << effect.name;
  return EffectInput(values);
}

inline clsDIB after(clsDIB picture, const char* name, const Given& given = {}, bool keepSize = false,
                    double scale = 1) {
  const Effect* effect = effectOf(name);
  EXPECT_NE(effect, nullptr) << name;
  EffectInput input = inputOf(*effect, given);
  input.keepSize = keepSize;
  input.scale = scale;
  EXPECT_TRUE(effect->apply(picture, input, {})) << name;
  return picture;
}

// The largest difference of a channel between two pictures of one size.
inline int farthest(const clsDIB& a, const clsDIB& b) {
  EXPECT_EQ(a.size(), b.size());
  return farthest(&a.surface(), [&](int x, int y) { return pixelAt(b, x, y); });
}

// Mean of a channel, red first.
inline double meanChannel(const clsDIB& picture, int channel) {
  double sum = 0;
  for (int y = 0; y < picture.DIBHeight(); ++y) {
    for (int x = 0; x < picture.DIBWidth(); ++x) sum += pixelAt(picture, x, y).colour() >> (8 * channel) & 0xFF;
  }
  return sum / picture.DIBWidth() / picture.DIBHeight();
}

// Every pixel of its own colour, alike after no shift or turn.
inline clsDIB speckled(int width, int height) {
  return dibOf(width, height, [](int x, int y) { return Pixel32::plain(rgb(x * 37 + y * 11, x * 5 + y * 59, x * y)); });
}

}  // namespace ruvo::test
