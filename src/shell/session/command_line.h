// The program's command line.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/geometry.h"

namespace ruvo {

struct ProgramArguments {
  bool help = false;
  bool version = false;
  bool noSplash = false;
  bool exitWhenShown = false;
  std::optional<std::filesystem::path> screenshot;
  std::optional<Size> size;  // of the window that is shown, logical pixels
  std::string file;          // as typed; empty when none
  bool animation = false;    // the file opens in the animation window
  std::string error;         // one line; empty when the command line is understood

  // A run that shows or pictures the window for itself and is not the one instance: it hands nothing over, takes
  // nothing over and writes no settings.
  bool alone() const { return screenshot.has_value() || exitWhenShown; }
};

// `arguments` without the program's own name. "--" ends the options. A single "-" letter option is not ours (those of
// the window toolkit were taken out before).
ProgramArguments parseCommandLine(std::span<const std::string> arguments);

// What --help prints.
std::string_view helpText();

}  // namespace ruvo
