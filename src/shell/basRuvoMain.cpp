#include "shell/basRuvoMain.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <system_error>

#include "base/paths.h"
#include "base/rounding.h"
#include "document/frmRuvoPaint.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/per_user_store.h"
#include "platform/desktop/single_instance.h"
#include "platform/desktop/texts.h"
#include "platform/imaging/imaging_service.h"
#include "shell/basWinVer.h"
#include "shell/frmRuvoAbout.h"
#include "shell/frmRuvomain.h"
#include "shell/ruvo_application.h"
#include "shell/screenshot.h"
#include "shell/session/session_texts.h"
#include "shell/session/startup_rules.h"
#include "shell/termination_signals.h"

namespace ruvo {
namespace {

using std::chrono::milliseconds;

constexpr const char* kProgramFolderVariable = "RUVO_PROGRAM_FOLDER";
// How soon a file that had to wait is tried again.
constexpr milliseconds kRetry{100};
// What the window system puts around the main window, about.
constexpr QSize kAroundWindow(8, 36);

std::filesystem::path findProgramFolder() {
  const char* named = std::getenv(kProgramFolderVariable);
  const std::filesystem::path folder =
      named && *named ? pathOf(named) : pathOf(QCoreApplication::applicationDirPath().toStdString());
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(folder, error).lexically_normal();
  // "/opt/ruvo/" and "/opt/ruvo" are one folder, told without the separator.
  return error ? folder : whole.has_filename() ? whole : whole.parent_path();
}

bool animationWindowOpen() {
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && isAnimationTitle(widget->windowTitle().toStdString())) return true;
  }
  return false;
}

}  // namespace

SplashClock SplashClock::real() {
  return {[] { return MonotonicClock().now(); },
          [](milliseconds upTo) {
            QEventLoop loop;
            QTimer::singleShot(upTo, Qt::PreciseTimer, &loop, &QEventLoop::quit);
            loop.exec();
          }};
}

void waitWithEvents(const SplashClock& clock, milliseconds time, const bool& cut) {
  const milliseconds end = clock.now() + time;
  for (milliseconds now = clock.now(); now < end && !cut; now = clock.now()) clock.pump(end - now);
}

basRuvoMain::basRuvoMain(ProgramArguments arguments, SplashClock clock)
    : arguments_(std::move(arguments)), clock_(std::move(clock)) {}

basRuvoMain::~basRuvoMain() = default;

int basRuvoMain::run() {
  try {
    findFolders();
    signals_ = std::make_unique<TerminationSignals>([this] { endNow(); });
    if (!arguments_.alone()) {
      if (const auto status = claimInstance()) return *status;
    }
    readPlatform();
    showSplash();
    if (ended_) return leave();
    openMainWindow();
    if (arguments_.alone()) return pictureOrLeave();
    if (!remindOfDisplay()) {
      window_->close();
      return leave();
    }
    endSplash();
    acceptHandOvers();
    return loop();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "ruvopaint: %s\n", error.what());
    desktop::desktop().message(nullptr, kTextStartFailed);
    return 1;
  }
}

void basRuvoMain::findFolders() {
  const bool alone = arguments_.alone();
  if (alone) unattended_ = std::make_unique<UnattendedDesktop>();
  state_.programFolder = findProgramFolder();
  // Before anything changes the current folder.
  std::error_code ignored;
  startFile_ = outsidePathFromArgument(arguments_.file, std::filesystem::current_path(ignored));
  if (arguments_.animation && !startFile_.empty()) startFile_.insert(0, kAnimationMark);
  if (arguments_.screenshot) arguments_.screenshot = std::filesystem::absolute(*arguments_.screenshot, ignored);
  temp_ = std::make_unique<SessionTemp>(
      systemTempFolder(), alone ? SessionTemp::Use::Alone : SessionTemp::Use::Instance, state_.programFolder);
  state_.tempFolder = temp_->path();
  settings_.emplace(state_.programFolder / kSettingsFileName,
                    alone ? SettingsFile::Mode::ReadOnly : SettingsFile::Mode::ReadWrite);
  fileHistory_.emplace(*settings_, kPaintHistorySection);
  fileHistoryGifAni_.emplace(*settings_, kGifAniHistorySection);
}

std::optional<int> basRuvoMain::claimInstance() {
  store_ = std::make_unique<desktop::PerUserStore>();
  instance_ = std::make_unique<desktop::SingleInstance>(*store_, toText(temp_->userFolder()));
  instance_->setAnimationTest(animationWindowOpen);
  // The first one may end while it is being asked; then this one's turn has come.
  for (;;) {
    const bool other = instance_->claim() == desktop::SingleInstance::Role::Second;
    switch (decideSecondStart(other, other && instance_->firstShowsAnimation(), startFile_)) {
      case SecondStart::Proceed:
        return std::nullopt;
      case SecondStart::EndSilently:
        return 0;
      case SecondStart::SayAlreadyRunning:
        desktop::desktop().message(nullptr, kTextAlreadyRunning, desktop::Icon::Exclamation);
        return 0;
      case SecondStart::HandOver:
        if (instance_->handOver(QString::fromStdString(startFile_)) == desktop::SingleInstance::HandOver::Taken)
          return 0;
        break;
    }
  }
}

void basRuvoMain::readPlatform() {
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    state_.pixelsPerInchX = roundToInt(screen->logicalDotsPerInchX());
    state_.pixelsPerInchY = roundToInt(screen->logicalDotsPerInchY());
  }
  state_.versionCode = basWinVer::versionCode(basWinVer::platformVersion());
  state_.imagingFound = imaging::imagingFound();
  std::error_code ignored;
  // The library is linked in: it is the system's, or it is not there.
  state_.gdiPlusUsable = decideGdiPlusUsable({.inSystem = state_.imagingFound,
                                              .inProgramFolder = false,
                                              .currentFolder = utf8Of(std::filesystem::current_path(ignored)),
                                              .programFolder = utf8Of(state_.programFolder),
                                              .versionCode = state_.versionCode});
}

void basRuvoMain::showSplash() {
  if (arguments_.alone() || arguments_.noSplash) return;
  state_.splashShowing = true;
  splash_ = std::make_unique<frmRuvoAbout>(frmRuvoAbout::Use::Splash);
  splash_->show();
  waitWithEvents(clock_, kSplashBefore, ended_);
}

void basRuvoMain::openMainWindow() {
  services_.emplace(
      SessionServices{state_, *settings_, *fileHistory_, *fileHistoryGifAni_,
                      [this](const std::string& text, PendingOpen command) { openFromOutside(text, command); }});
  window_ = std::make_unique<frmRuvomain>(*services_);
  if (arguments_.size && !arguments_.animation) {
    window_->resize(arguments_.size->width, arguments_.size->height);
  } else if (!arguments_.alone()) {
    // On a small or strongly scaled screen no part of it begins outside.
    window_->resize(window_->size().boundedTo(window_->screen()->availableSize() - kAroundWindow));
  }
  opener_ = std::make_unique<OutsideOpener>(outsideHost());
  retry_ = std::make_unique<QTimer>();
  retry_->setInterval(kRetry);
  QObject::connect(retry_.get(), &QTimer::timeout, retry_.get(), [this] { runWaiting(); });
  window_->show();
  // The file's window takes its size from what is free in the shown main window.
  QCoreApplication::processEvents();
  opener_->push(startFile_, PendingOpen::CommandLine);
  runWaiting();
  QWidget* animation = window_->animationWindow();
  if (arguments_.size && animation) animation->resize(arguments_.size->width, arguments_.size->height);
  std::error_code ignored;
  std::filesystem::current_path(state_.programFolder, ignored);
}

bool basRuvoMain::remindOfDisplay() {
  if (!needsDepthReminder(desktop::desktop().screenBitsPerPixel(), state_.options.remindColorSetting)) return true;
  return desktop::desktop().message(window_.get(), kTextDepthReminder, desktop::Icon::Question,
                                    desktop::Buttons::YesNo) == desktop::Answer::Yes;
}

void basRuvoMain::endSplash() {
  if (!splash_) return;
  splash_->releaseTopmost();
  waitWithEvents(clock_, kSplashOver, ended_);
  splash_.reset();
  state_.splashShowing = false;
}

void basRuvoMain::acceptHandOvers() {
  QObject::connect(instance_.get(), &desktop::SingleInstance::received, window_.get(), [this](const QString& text) {
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->raise();
    window_->activateWindow();
    openFromOutside(text.toStdString(), PendingOpen::CommandLine);
  });
  instance_->deliver();
}

int basRuvoMain::loop() {
  // The window may have been closed under the splash.
  const int status = window_->isHidden() || ended_ ? 0 : QApplication::exec();
  leave();
  return status;
}

int basRuvoMain::pictureOrLeave() {
  QWidget* animation = window_->animationWindow();
  QWidget& shown = animation ? *animation : *window_;
  const bool painted = waitUntilPainted(shown);
  int status = 0;
  if (!startFile_.empty() && !animation && window_->documentCount() == 0) {
    std::fprintf(stderr, "ruvopaint: cannot open %s\n", arguments_.file.c_str());
    status = 1;
  } else if (!painted) {
    std::fprintf(stderr, "ruvopaint: the window was not shown\n");
    status = 1;
  } else if (arguments_.screenshot && !writePictureOf(shown, *arguments_.screenshot)) {
    std::fprintf(stderr, "ruvopaint: cannot write %s\n", utf8Of(*arguments_.screenshot).c_str());
    status = 1;
  }
  if (status == 0 && arguments_.exitWhenShown) {
    std::puts("shown");
    std::fflush(stdout);
  }
  state_.closingConfirmed = true;
  window_->close();
  leave();
  return status;
}

// Asked by the system: no question is put any more, and every dialog and the loop end as if they were cancelled.
void basRuvoMain::endNow() {
  ended_ = true;
  state_.closingConfirmed = true;
  QCoreApplication::exit(0);
}

int basRuvoMain::leave() {
  splash_.reset();
  retry_.reset();
  if (ended_ && window_) window_->close();
  if (!state_.fileToDeleteAtExit.empty() && fileExists(state_.fileToDeleteAtExit)) {
    deleteIfPossible(state_.fileToDeleteAtExit);
  }
  // No file is taken that nobody would open any more.
  instance_.reset();
  window_.reset();
  return 0;
}

OutsideHost basRuvoMain::outsideHost() {
  return {
      .busy =
          [this] {
            const auto* application = dynamic_cast<const RuvoApplication*>(qApp);
            return window_->busy() || QApplication::mouseButtons() != Qt::NoButton ||
                   (application && application->insideCommand());
          },
      .unloadToolWindows = [this] { window_->unloadToolWindows(false); },
      .anyDocumentOpen = [this] { return window_->documentCount() > 0; },
      .sdiOnly = [this] { return state_.options.sdiOnly; },
      .openInNewWindow = [this](const std::filesystem::path& file,
                                PendingOpen command) { window_->openDocument(command, toText(file)); },
      .openInActiveDocument = [this](const std::filesystem::path& file,
                                     PendingOpen command) { window_->openInActiveDocument(command, toText(file)); },
      .openAnimation = [this](const std::filesystem::path& file) { window_->openAnimation(toText(file)); }};
}

void basRuvoMain::openFromOutside(const std::string& text, PendingOpen command) {
  opener_->push(text, command);
  // From the event loop, where no command is under way.
  QTimer::singleShot(0, retry_.get(), [this] { runWaiting(); });
}

void basRuvoMain::runWaiting() {
  opener_->run();
  if (opener_->waiting()) {
    retry_->start();
  } else {
    retry_->stop();
  }
}

}  // namespace ruvo
