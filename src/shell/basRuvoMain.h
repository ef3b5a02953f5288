// `Sub Main`: the start of the program step by step, what the session owns while it runs, and its end.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "base/clock.h"
#include "document/model/session_state.h"
#include "shell/session/basINI.h"
#include "shell/session/command_line.h"
#include "shell/session/file_history.h"
#include "shell/session/outside_open.h"
#include "shell/session/session_temp.h"
#include "shell/session_services.h"

class QTimer;

namespace ruvo {

class frmRuvoAbout;
class frmRuvomain;
class TerminationSignals;
class UnattendedDesktop;

namespace desktop {
class PerUserStore;
class SingleInstance;
}  // namespace desktop

// Time for the splash: what the clock says, and how to let events through until `upTo` has gone by.
struct SplashClock {
  std::function<std::chrono::milliseconds()> now;
  std::function<void(std::chrono::milliseconds upTo)> pump;

  static SplashClock real();
};
// Lets events through for a time, or until `cut` turns true.
void waitWithEvents(const SplashClock& clock, std::chrono::milliseconds time, const bool& cut);

// How long the splash stands before the main window comes, and over it.
inline constexpr std::chrono::milliseconds kSplashBefore{2000};
inline constexpr std::chrono::milliseconds kSplashOver{1000};

class basRuvoMain {
 public:
  explicit basRuvoMain(ProgramArguments arguments, SplashClock clock = SplashClock::real());
  ~basRuvoMain();

  // Runs the program to its end; the process's exit status.
  int run();

 private:
  // In the order of the start.
  void findFolders();
  std::optional<int> claimInstance();  // a status ends the program
  void readPlatform();
  void showSplash();
  void openMainWindow();
  bool remindOfDisplay();  // false: the user would rather not go on
  void endSplash();
  void acceptHandOvers();
  int loop();
  int pictureOrLeave();
  void endNow();
  int leave();

  OutsideHost outsideHost();
  void openFromOutside(const std::string& text, PendingOpen command);
  void runWaiting();

  ProgramArguments arguments_;
  SplashClock clock_;
  SessionState state_;
  std::string startFile_;  // absolute, with the mark of an animation; empty when none
  bool ended_ = false;     // the system asked to end
  std::unique_ptr<UnattendedDesktop> unattended_;
  std::unique_ptr<TerminationSignals> signals_;
  std::unique_ptr<SessionTemp> temp_;
  std::unique_ptr<desktop::PerUserStore> store_;
  std::unique_ptr<desktop::SingleInstance> instance_;
  std::optional<SettingsFile> settings_;
  std::optional<FileHistory> fileHistory_;
  std::optional<FileHistory> fileHistoryGifAni_;
  std::optional<SessionServices> services_;
  std::unique_ptr<frmRuvoAbout> splash_;
  std::unique_ptr<frmRuvomain> window_;
  std::unique_ptr<OutsideOpener> opener_;
  std::unique_ptr<QTimer> retry_;  // runs while something from outside waits
};

}  // namespace ruvo
