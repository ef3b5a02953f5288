// What the files of frmRuvoGIFani share.
#pragma once

#include <QComboBox>
#include <array>
#include <optional>

#include "animation/film_strip.h"
#include "animation/frmRuvoGIFani.h"
#include "animation/gif_field.h"
#include "animation/session_menus.h"
#include "animation/session_panels.h"
#include "document/main_window_link.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/texts.h"
#include "platform/theme/controls.h"

class QCheckBox;
class QVBoxLayout;

namespace ruvo {

class ucProgress;

inline constexpr const char* kPlacementSection = "GIFani Screen Pos";
inline constexpr const char* kGifFilter = "(*.gif)|*.gif|";

struct frmRuvoGIFani::Private {
  Private(frmRuvoGIFani& window, MainWindowLink& mainWindow)
      : self(window), link(mainWindow), session(mainWindow.session().tempFolder) {}

  // --- Build
  void build();
  QWidget* buildCommands();
  QWidget* buildFrameRow();
  QWidget* buildOptionRow();
  QWidget* buildStatus();
  void buildPanels(QVBoxLayout& column);
  void buildMenus();
  void addShortcuts();
  theme::PictureButton* addButton(QWidget* row, const QString& name, const char* picture, const QString& tip,
                                  const std::function<void()>& clicked);
  void restorePlacement();
  void storePlacement();

  // --- Lists
  void showModel(int frame);  // everything anew
  void fillLists();
  void showLabels();
  void showFile(const QString& file);  // that was opened or saved
  void showTimes();
  void showHistory();
  void enableControls();
  void showMeasuredSize();
  void select(int frame);
  void listClicked(int index);
  void step(int by);

  // --- Commands
  void menuTriggered(const QString& control, int index);
  void run(int command);
  void endOperations();
  bool openPanel(SessionPanel* panel);
  SessionPanel* openedPanel() const;
  void moveFrame(int from, int to);
  void copyFrame();
  void brightenOrDarken(int index);
  template <typename Window>
  bool runPaletteWindow(const char* tempName);
  void changeBpp();
  void editPalette();
  void cleanAfterPaletteWindow();
  void listSummary();
  void inquire(int index);

  // --- Files
  bool mayDropWork();
  void askForFile();
  void openFromHistory(int index);
  void save();
  void exportOne();
  void exportAll();
  bool exportTo(int frame, const std::filesystem::path& file);
  void selectBack();
  void showInBrowser();
  void exitSession();
  QString folderForFiles() const;

  void tell(const QString& words, desktop::Icon icon = desktop::Icon::Exclamation) const;
  bool ask(const QString& question, desktop::Buttons buttons = desktop::Buttons::YesNo) const;
  QWidget* messageParent() const { return self.isVisible() ? &self : link.window(); }
  int frame() const { return session.hasFrames() ? cboFrame->currentIndex() + 1 : 0; }
  BgdPattern pattern() const { return static_cast<BgdPattern>(cboBgdPattern->currentIndex()); }

  frmRuvoGIFani& self;
  MainWindowLink& link;
  GifSession session;
  std::unique_ptr<MenuSet> menus;

  std::array<theme::PictureButton*, kSessionCommandCount> cmdGIFaniMain{};
  std::array<theme::PictureButton*, 3> cmdPaletteBrightenDarken{};
  theme::PictureButton* cmdPrevious = nullptr;
  theme::PictureButton* cmdNext = nullptr;
  theme::PictureButton* cmdListDataSummary = nullptr;
  QComboBox* cboFrame = nullptr;
  QComboBox* cboFrameData = nullptr;
  QComboBox* cboBgdPattern = nullptr;
  QCheckBox* ckbSaveAsTransparent = nullptr;
  QCheckBox* ckbAtFullFrameSize = nullptr;
  QLabel* lblFile = nullptr;
  QLabel* lblInfoOrigFile = nullptr;
  QLabel* lblCurrentFrameCount = nullptr;
  QLabel* lblBgdInfo = nullptr;
  QLabel* lblRunningTime = nullptr;
  QLabel* lblFileSize = nullptr;
  FilmStrip* film = nullptr;
  GifField* picDisp = nullptr;
  ucProgress* picProgress = nullptr;

  MinimizePanel* minimise = nullptr;
  SettingsPanel* settings = nullptr;
  SeriesPanel* series = nullptr;
  ResizePanel* resize = nullptr;
  std::array<SessionPanel*, 4> panels{};

  bool busy = false;               // lists are being filled
  bool mayClose = false;           // what there was to ask has been asked
  bool unsavedBeforeTint = false;  // when the palettes were saved
  QWidget* focusBeforeWork = nullptr;
  QString frameForPaint;  // file of the frame that goes to the paint side
};

}  // namespace ruvo
