// Turning a picture by any angle from the command line.
#include "effects/filter/rotation_size.h"
#include "effects/model/rotation.h"
#include "tool/picture_input.h"
#include "tool/picture_output.h"
#include "tool/value_words.h"
#include "tool/verbs.h"

namespace ruvo::tool {
namespace {

// False when an option is no colour, which has been told.
template <typename Value>
bool takeColour(const Arguments& arguments, std::string_view option, Value& value, Console& console) {
  const auto text = arguments.text(option);
  if (!text) return true;
  const std::optional<Colour> colour = parseColour(*text);
  if (colour) {
    value = *colour;
  } else {
    console.refuse(std::string(option) + " takes RRGGBB");
  }
  return colour.has_value();
}

}  // namespace

int rotate(const Arguments& arguments, Console& console) {
  Rotation rotation;
  const std::optional<double> angle = parseReal(arguments.operand(0));
  if (!angle || *angle < -kMostAngle || *angle > kMostAngle)
    return console.refuse("ANGLE takes a number from " + numberText(-kMostAngle) + " to " + numberText(kMostAngle));
  rotation.angle = *angle;
  rotation.antialias = arguments.has("--antialias");
  rotation.grow = arguments.has("--grow");
  if (!takeColour(arguments, "--fill", rotation.fill, console)) return 1;
  if (!takeColour(arguments, "--transparent", rotation.transparent, console)) return 1;

  const std::string& source = arguments.operand(1);
  const std::string& target = arguments.operand(2);
  const PictureOutput plan(target, {});
  if (!plan.fault().empty()) return console.refuse(target, plan.fault());
  ReadPicture read = readFile(source, {.keepAlpha = plan.keepsAlpha()}, console);
  if (!read) return 1;
  if (rotation.grow && !rotationMayGrow(read.dib.size())) {
    const std::string side = std::to_string(rotatedSide(read.dib.size()));
    return console.refuse(source, "is too large to grow: " + side + " x " + side + " is more than a picture may have");
  }
  if (!rotatePicture(read.dib, rotation, {})) return console.refuse("not enough memory");
  const std::string fault = plan.write(std::move(read.dib));
  return fault.empty() ? 0 : console.refuse(target, fault);
}

}  // namespace ruvo::tool
