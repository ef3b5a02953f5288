// Every test program starts as the programs do: with the coders of the formats at hand.
#include <gtest/gtest.h>

#include "formats/register_codecs.h"

namespace ruvo::test {
namespace {

struct Codecs : testing::Environment {
  void SetUp() override { registerFormatCodecs(); }
};
[[maybe_unused]] const testing::Environment* const codecs = testing::AddGlobalTestEnvironment(new Codecs);

}  // namespace
}  // namespace ruvo::test
