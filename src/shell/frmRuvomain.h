// The main window: an MDI frame that holds the whole tool state in visible controls and passes each change by name to
// the active document. It holds no picture. Every control's objectName is its fixed name.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

#include "document/main_window_link.h"
#include "shell/session_services.h"

class QMdiSubWindow;
class QMenu;

namespace ruvo {

namespace shell {
enum class PaletteKind;
}

class frmRuvomain : public QMainWindow, public MainWindowLink {
  Q_OBJECT

 public:
  // The constructor is the window's load: it starts the imaging service, builds the controls, reads the settings and
  // lists the histories. `services` outlives the window.
  explicit frmRuvomain(SessionServices& services);
  ~frmRuvomain() override;

  // A modal dialog or a menu is up: what comes from outside has to wait.
  bool busy() const;
  // A file from outside when only one window is allowed: asks first when there are changes.
  void openInActiveDocument(PendingOpen command, const QString& file);

  // The animation window; null while none is open.
  QWidget* animationWindow() const;

  // --- Operations that others call by name
  void updateColorToUse();  // gives the current colour to the box that was asked for
  void cmdGlass_Click();
  void cmdMode_Click(int index);  // 0 to View mode, 1 to Paint mode
  void MDI_UpdateOptionMenus();   // the option flags into every Options menu
  void MDI_List_File_History();
  void MDI_List_File_History_GIFani();

  // --- MainWindowLink
  SessionState& session() override;
  ToolboxState toolbox() const override;
  QWidget* window() override { return this; }
  void openDocument(PendingOpen command, const QString& file) override;
  int documentCount() const override;
  frmRuvoPaint* activeDocument() const override;
  void setDocumentChanged(int slot, bool changed) override;
  void releaseDocument(frmRuvoPaint* document) override;
  void closeAllDocuments() override;
  void setDocumentCaption(frmRuvoPaint* document, const QString& shortened, const QString& wholePath) override;
  void setStatusPanel(int panel, const QString& text) override;
  void setProgress(int percent) override;
  void endProgress() override;
  void setEditButtons(const EditButtonState& state) override;
  void setZoomButtons(bool in, bool out, bool original) override;
  void setScrollButtons(bool corners, bool panoramic) override;
  void setGlass(bool enabled, bool out) override;
  void MDI_disableAllButtonsOnToolBar() override;
  void setMagnify(int magnify) override;
  void setZoomScale(int scale) override;
  void setFitIn(bool checked) override;
  void selectTool(int index) override;
  void FlatAllToolsImages() override;
  void SetOptionFrame(int index) override;
  void colorPicked(Colour colour, bool second) override;
  void showCustomPictures() override;
  void unloadToolWindows(bool spareBrowser) override;
  void addToFileHistory(const QString& path) override;
  void addToAnimationHistory(const QString& path) override;
  void openAnimation(const QString& file) override;
  void openFromHistory(int index) override;
  void ramReminder() override;
  void gdiPlusMissingMessage(const QString& prefix) override;
  QString lastFolder(const QString& key) const override;
  void setLastFolder(const QString& key, const QString& folder) override;
  WindowPlacement placement(const QString& section) const override;
  void setPlacement(const QString& section, const WindowPlacement& placement) override;
  void mnuAnimatedGIFNew_Click(int index) override;
  void mnuFileHistoryGIFani_Click(int index) override;
  void mnuOptionsSub_Click(int index) override;
  void mnuSubMonitorRAM_Click(int index) override;
  void mnuOptionsSessionOnlySub_Click(int index) override;
  void mnuFileExit_Click() override;
  void mnuHelpSub_Click(int index) override;
  void arrangeWindows(int index) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct Private;
  using DocumentCall = void (frmRuvoPaint::*)();

  // Load
  using PaletteAsked = std::function<void(shell::PaletteKind, int box)>;
  void buildControls();
  QWidget* buildToolbar(QWidget* parent);
  QWidget* buildToolPanel(QWidget* parent);
  QWidget* buildOptionArea(QWidget* parent, const PaletteAsked& palette);
  void startImaging();
  void loadSettings();
  void storeSettings();
  void addShortcuts();
  // Routing
  void tell(DocumentCall call);
  void tell(void (frmRuvoPaint::*call)(int), int index);
  void toolClicked(int index);
  void editButtonClicked(int index);
  void newClicked();
  void openClicked();
  void brushSizeChanged(bool byKeys);
  void fitInClicked();
  void swapColors();
  void boxRightClicked(int box);
  void showColorValues(int box);
  void paletteAsked(shell::PaletteKind kind, int box);
  void colorChosen(Colour colour);
  void handCustomPictures(frmRuvoPaint& document);
  // Menus
  void buildMenus();
  void menuTriggered(const QString& control, int index);
  void showMenusOf(frmRuvoPaint* document);
  void updateMainMenu();
  void clipboardChanged();
  void historyClicked(int index);
  void listHistory(const QString& control, const FileHistory& history, HistoryPaths& paths);
  void toggleOption(const QString& control, int index);
  void listWindows(QMenu& menu);
  // Documents
  QMdiSubWindow* windowOf(const frmRuvoPaint* document) const;
  frmRuvoPaint* documentOf(const QMdiSubWindow* window) const;
  void windowActivated(QMdiSubWindow* window);
  void showActive(frmRuvoPaint* document);
  void activateAnother();
  void placeWindow(QMdiSubWindow& window, int place);
  void fitWindow(QMdiSubWindow& window);
  void removeDocument(frmRuvoPaint* document);
  bool closeDocuments();
  bool confirmClosing();
  frmRuvoPaint* documentAt(int slot) const;
  // Animation
  void animationEnded(const QString& selectedFrameFile);
  bool closeAnimation();

  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
