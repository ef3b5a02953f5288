#include "shell/session/command_line.h"

#include <charconv>

#include "base/limits.h"
#include "base/paths.h"

namespace ruvo {
namespace {

// "1200x800".
std::optional<Size> sizeOf(std::string_view text) {
  Size size;
  const char* end = text.data() + text.size();
  const auto width = std::from_chars(text.data(), end, size.width);
  if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x') return std::nullopt;
  const auto height = std::from_chars(width.ptr + 1, end, size.height);
  const bool whole = height.ec == std::errc() && height.ptr == end;
  return whole && pictureSizeAllowed(size.width, size.height) ? std::optional(size) : std::nullopt;
}

class Parser {
 public:
  explicit Parser(std::span<const std::string> arguments) : rest_(arguments) {}

  ProgramArguments parse() {
    bool options = true;
    while (!rest_.empty() && result_.error.empty()) {
      const std::string argument = next();
      if (options && argument == "--") {
        options = false;
      } else if (options && argument.size() > 1 && argument[0] == '-') {
        option(argument);
      } else {
        takeFile(argument);
      }
    }
    return result_;
  }

 private:
  std::string next() {
    const std::string argument = rest_.front();
    rest_ = rest_.subspan(1);
    return argument;
  }

  void takeFile(const std::string& file) {
    if (!result_.file.empty()) result_.error = "only one FILE can be named";
    result_.file = file;
  }

  void option(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    if (name == "--screenshot" || name == "--size" || name == "--animated-gif") {
      if (equals == std::string::npos && rest_.empty()) {
        result_.error = name + " needs a value";
        return;
      }
      valued(name, equals == std::string::npos ? next() : argument.substr(equals + 1));
    } else if (argument == "--help" || argument == "-h") {
      result_.help = true;
    } else if (argument == "--version") {
      result_.version = true;
    } else if (argument == "--no-splash") {
      result_.noSplash = true;
    } else if (argument == "--exit-when-shown") {
      result_.exitWhenShown = true;
    } else {
      result_.error = "unknown option " + argument;
    }
  }

  void valued(const std::string& name, const std::string& value) {
    if (name == "--screenshot") {
      result_.screenshot = pathOf(value);
      if (value.empty()) result_.error = "--screenshot needs a file name";
      return;
    }
    if (name == "--animated-gif") {
      result_.animation = true;
      takeFile(value);
      if (value.empty()) result_.error = "--animated-gif needs a file name";
      return;
    }
    result_.size = sizeOf(value);
    if (!result_.size) result_.error = "--size needs a size such as 1200x800";
  }

  std::span<const std::string> rest_;
  ProgramArguments result_;
};

}  // namespace

ProgramArguments parseCommandLine(std::span<const std::string> arguments) {
  return Parser(arguments).parse();
}

std::string_view helpText() {
  return R"(ruvopaint - Ruvo Paint & Animated GIF Editor

SYNOPSIS
    ruvopaint [OPTION]... [FILE]
    ruvopaint [OPTION]... --animated-gif FILE

DESCRIPTION
    Opens the program, with the picture FILE when one is named. When the
    program already runs for this user, FILE is handed to it and opens there;
    while an animation is open there, the second start ends and FILE is not
    opened.

    --animated-gif FILE   open FILE to view and edit the animation, in a
                          window of its own
    --no-splash           do not show the start window
    --screenshot OUT.png  show FILE, write a picture of its window (the main
                          window, or that of the animation) to OUT.png and
                          end. Such a run stands apart:
                          it hands no file over and writes no settings. With
                          no display it draws without one.
    --size WxH            size of that window (it has a least size)
    --exit-when-shown     end as soon as the window was painted, to measure
                          how long a start takes; stands apart as well
    --help, -h            show this text
    --version             show the program's version

    The window toolkit's own options (-platform, -style and others) work too.

FILES
    RuvoPaint.ini         the settings, in the program folder
    ruvopaint-UID         pictures of the undo history and other passing
                          files, in the folder for temporary files; only its
                          owner may read it

ENVIRONMENT
    RUVO_PROGRAM_FOLDER   stands as program folder in place of the folder of
                          the executable, for an executable in a place that
                          its user may not write to
    TMPDIR                the folder for temporary files, else /tmp

EXIT STATUS
    0 when all went well, 1 when --screenshot could not open FILE or write
    OUT.png or the program could not start, 2 for a wrong command line.
)";
}

}  // namespace ruvo
