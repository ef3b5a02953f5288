// What the program's session offers its main window. basRuvoMain owns all of it and outlives the window.
//
// The window's constructor is its load: it reads the settings (readSettings), builds its controls and lists the
// histories. basRuvoMain then shows it, opens the file named at the start, changes to the program folder and asks the
// display reminder. The window's close is the shutdown up to the writing of the settings (writeSettings).
#pragma once

#include <functional>
#include <string>

#include "document/model/session_state.h"
#include "shell/session/basINI.h"
#include "shell/session/file_history.h"
#include "shell/session/settings.h"

namespace ruvo {

struct SessionServices {
  SessionState& state;
  const SettingsFile& settingsFile;
  const FileHistory& fileHistory;
  const FileHistory& fileHistoryGifAni;
  // Queues a path that came from outside and opens it as soon as no dialog is up and no command runs.
  std::function<void(const std::string& text, PendingOpen command)> openFromOutside;
};

}  // namespace ruvo
