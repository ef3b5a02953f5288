// What a document needs of the main window. frmRuvomain implements it; tests implement it with a recorder.
#pragma once

#include <QString>
#include <QStringList>

#include "document/model/session_state.h"
#include "document/model/window_placement.h"

class QWidget;

namespace ruvo {

class frmRuvoPaint;

// Which toolbar buttons (`cmdEditTB` 0 to 12) a document's state allows.
struct EditButtonState {
  bool undo = false;     // buttons 0 and 1
  bool redo = false;     // 2
  bool region = false;   // 3 and 4
  bool paste = false;    // 5 and 6
  bool picture = false;  // 7 to 12
};

// Status panels of the main window.
enum StatusPanel { kPanelMessage = 0, kPanelMode = 1, kPanelPixel = 2, kPanelScreenSize = 3, kPanelNetSize = 4 };

class MainWindowLink {
 public:
  virtual ~MainWindowLink() = default;

  virtual SessionState& session() = 0;
  virtual ToolboxState toolbox() const = 0;
  virtual QWidget* window() = 0;  // parent for message boxes

  // --- Document list
  // Opens a document window in a free slot; its first activation runs at once and acts on the command.
  virtual void openDocument(PendingOpen command, const QString& file) = 0;
  virtual int documentCount() const = 0;
  // The one that the controls act on, whether or not the program has the focus; null while none is open.
  virtual frmRuvoPaint* activeDocument() const = 0;
  virtual void setDocumentChanged(int slot, bool changed) = 0;
  virtual void releaseDocument(frmRuvoPaint* document) = 0;  // from the document's unload
  virtual void closeAllDocuments() = 0;                      // each by its own closing question
  virtual void setDocumentCaption(frmRuvoPaint* document, const QString& shortened, const QString& wholePath) = 0;

  // --- Status, progress, toolbar
  virtual void setStatusPanel(int panel, const QString& text) = 0;
  virtual void setProgress(int percent) = 0;  // 0 to 100
  virtual void endProgress() = 0;
  virtual void setEditButtons(const EditButtonState& state) = 0;
  virtual void setZoomButtons(bool in, bool out, bool original) = 0;  // of the mode that is on
  virtual void setScrollButtons(bool corners, bool panoramic) = 0;    // imgUpperLeft, imgLowerRight; imgPanoramic
  virtual void setGlass(bool enabled, bool out) = 0;                  // cmdGlass and cboGlass; the lens is out
  virtual void MDI_disableAllButtonsOnToolBar() = 0;
  virtual void setMagnify(int magnify) = 0;  // shows it in cboMagnify without telling the document
  virtual void setZoomScale(int scale) = 0;  // shows it in txbZoomScale
  virtual void setFitIn(bool checked) = 0;   // sets ckbFitIn without telling the document

  // --- Tools
  virtual void selectTool(int index) = 0;  // border of the tool image and its option frame
  virtual void FlatAllToolsImages() = 0;   // all flat; tells the document Notify_SetScrollOp_FromMDI
  virtual void SetOptionFrame(int index) = 0;
  virtual void colorPicked(Colour colour, bool second) = 0;  // ends in updateColorToUse
  virtual void showCustomPictures() = 0;  // the option frames' pictures of brush, pattern, stamp changed

  // --- Windows and files
  virtual void unloadToolWindows(bool spareBrowser) = 0;
  virtual void addToFileHistory(const QString& path) = 0;
  virtual void openFromHistory(int index) = 0;  // index 0 to 7, as clicked on a document's menu
  virtual void addToAnimationHistory(const QString& path) = 0;
  virtual void openAnimation(const QString& file) = 0;  // in the animation window, of which there is at most one
  virtual void ramReminder() = 0;
  // The message of an operation that needs the imaging service and does not have it; `prefix` may be empty.
  virtual void gdiPlusMissingMessage(const QString& prefix) = 0;
  virtual QString lastFolder(const QString& key) const = 0;  // settings "Last Folder"
  virtual void setLastFolder(const QString& key, const QString& folder) = 0;
  // Where a window stood, by the section of the settings file that keeps it.
  virtual WindowPlacement placement(const QString& section) const = 0;
  virtual void setPlacement(const QString& section, const WindowPlacement& placement) = 0;

  // --- Commands that a document's menu shares with the main window
  virtual void mnuAnimatedGIFNew_Click(int index) = 0;
  virtual void mnuFileHistoryGIFani_Click(int index) = 0;  // 1 to 8
  virtual void mnuOptionsSub_Click(int index) = 0;
  virtual void mnuSubMonitorRAM_Click(int index) = 0;
  virtual void mnuOptionsSessionOnlySub_Click(int index) = 0;
  virtual void mnuFileExit_Click() = 0;
  virtual void mnuHelpSub_Click(int index) = 0;
  virtual void arrangeWindows(int index) = 0;  // Windows menu: 0 cascade, 1 tile horizontally, 2 tile vertically
};

}  // namespace ruvo
