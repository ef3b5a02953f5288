// Files that come from outside: named on the command line, handed over by a second start, or dropped. They wait in a
// queue until the program is ready for them.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "document/model/session_state.h"

namespace ruvo {

// A path argument as it is handed on: without double quotes, absolute. One of 4 characters or less stays as it is,
// since it is not opened (and would be if it grew).
std::string outsidePathFromArgument(std::string_view argument, const std::filesystem::path& currentFolder);

// The file that a text from outside asks to open: quotes removed, at least 5 characters, existing, of an openable kind.
// Nothing otherwise; nobody is told.
std::optional<std::filesystem::path> fileFromOutside(std::string_view text);

// A second start hands its file over as one text: the path, with this in front when it opens as an animation. (A path
// that is handed over begins with a slash, or is too short to be opened.)
inline constexpr std::string_view kAnimationMark = "animated-gif:";

// What opening needs of the main window.
struct OutsideHost {
  std::function<bool()> busy;  // a modal dialog is up or a command runs: everything waits
  std::function<void()> unloadToolWindows;
  std::function<bool()> anyDocumentOpen;
  std::function<bool()> sdiOnly;
  std::function<void(const std::filesystem::path&, PendingOpen)> openInNewWindow;
  // Asks first when there are changes.
  std::function<void(const std::filesystem::path&, PendingOpen)> openInActiveDocument;
  std::function<void(const std::filesystem::path&)> openAnimation;
};

class OutsideOpener {
 public:
  explicit OutsideOpener(OutsideHost host) : host_(std::move(host)) {}

  // Every text acts, equal to the one before or not. An empty one is left out. With CommandLine a text that names no
  // file to open is passed over in silence, and one with the mark opens an animation; with FileOpen (a dropped file) the opening says what is wrong.
  void push(std::string text, PendingOpen command);
  bool waiting() const { return !queue_.empty(); }
  // Opens what waits, in order, until the host is busy. Safe to call from within an opening.
  void run();

 private:
  struct Waiting {
    std::string text;
    PendingOpen command;
  };
  void open(const Waiting& next);

  OutsideHost host_;
  std::deque<Waiting> queue_;
  bool running_ = false;
};

}  // namespace ruvo
