// The process: its command line, its application object, and `Sub Main`.
#include <fontconfig/fontconfig.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>
#include <vector>

#include "formats/register_codecs.h"
#include "shell/basRuvoMain.h"
#include "shell/frmRuvoAbout.h"
#include "shell/ruvo_application.h"
#include "platform/theme/theme.h"

namespace {

bool isSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

// Whether there is anything to show windows on.
bool hasDisplay(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument.starts_with("-platform") || argument.starts_with("--platform") || argument == "-display") return true;
  }
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

// `words` are those after the program's name.
ruvo::ProgramArguments parsed(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  return ruvo::parseCommandLine(words);
}

// A question about the program, which needs no window.
bool answered(const ruvo::ProgramArguments& arguments) {
  if (arguments.help) {
    std::fputs(std::string(ruvo::helpText()).c_str(), stdout);
  } else if (arguments.version) {
    std::printf("ruvopaint %s\n", ruvo::programVersion());
  }
  return arguments.help || arguments.version;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 1) return 2;
  // A file that may not grow, or a reader that has gone, is a failed write where it happens. By themselves these
  // signals would end the program, and the pictures in it.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  const ruvo::ProgramArguments first = parsed(argc, argv);
  if (answered(first)) return 0;
  if (!hasDisplay(argc, argv)) {
    if (!first.alone()) {
      std::fputs("ruvopaint: there is no display to open a window on\n", stderr);
      return 1;
    }
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  }
  // The list of fonts takes about as long to read as the toolkit takes to start, which needs it right afterwards.
  const std::jthread fonts([] { FcInit(); });
  // The menu bar changes with the active document and holds a maximised document's buttons: it stays in the window. (To
  // ask the desktop for one costs a start more than all menus together.)
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  // Takes the toolkit's own options out of the words.
  ruvo::RuvoApplication application(argc, argv);
  const ruvo::ProgramArguments arguments = parsed(argc, argv);
  if (answered(arguments)) return 0;
  if (!arguments.error.empty()) {
    std::fprintf(stderr, "ruvopaint: %s (see --help)\n", arguments.error.c_str());
    return 2;
  }
  ruvo::registerFormatCodecs();
  ruvo::theme::apply(application);
  return ruvo::basRuvoMain(arguments).run();
}
