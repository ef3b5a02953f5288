// The inside of a paint document, shared by its source files and seen by nobody else.
#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "base/progress.h"
#include "canvas/ucCanvas.h"
#include "document/frmRuvoPaint.h"
#include "document/frmRuvoPanoramic.h"
#include "document/menu_table.h"
#include "document/model/file_record.h"
#include "document/model/open_rules.h"
#include "document/model/save_rules.h"
#include "document/model/undo_history.h"
#include "effects/effect_subject.h"
#include "platform/desktop/cursors.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/texts.h"

namespace ruvo {

class EffectWindow;
struct EffectItem;
struct PasteManner;
struct ReductionItem;
struct WriteOrder;

// The main window's progress bar for a piece of long work; it goes away with this object.
class ProgressShown {
 public:
  explicit ProgressShown(MainWindowLink& mainWindow) : link_(mainWindow) {}
  ~ProgressShown() { link_.endProgress(); }
  ProgressShown(const ProgressShown&) = delete;
  ProgressShown& operator=(const ProgressShown&) = delete;
  // Work reports every row; the bar is drawn for a new percentage only.
  Progress progress() const {
    Progress progress;
    progress.step = [&link = link_, last = -1](int percent) mutable {
      if (percent != last) link.setProgress(last = percent);
    };
    return progress;
  }

 private:
  MainWindowLink& link_;
};

struct frmRuvoPaint::Private {
  Private(frmRuvoPaint& owner, MainWindowLink& mainWindow, int place);

  frmRuvoPaint& self;
  MainWindowLink& link;
  const int slot;
  ucCanvas* canvas = nullptr;
  std::unique_ptr<MenuSet> menus;
  UndoHistory history;
  FileRecord record;
  // Of the icon or cursor that the picture comes from, white where see-through; empty for any other picture, and once
  // it may no longer fit.
  struct {
    clsDIB dib;
    bool turned = false;  // with the picture; the states before that have it as it was
  } iconMask;
  bool awaitsFirstActivation = true;
  bool busy = false;                     // Undo or Redo runs; a second click is dropped
  bool historyGapTold = false;           // a state could not be written and the user knows
  QPointer<frmRuvoPanoramic> panoramic;  // while it is shown
  std::vector<QString> dropped;          // files that wait for the end of a dialog
  EffectHost effectHost;
  TextChoices floatingText;  // what floats, while it is a text

  SessionState& session() { return link.session(); }
  bool hasPicture() const { return !canvas->DIB().empty(); }
  bool hasUnsavedChanges() const;
  bool isActive() const;

  // --- Talking
  void tell(const QString& text, desktop::Icon icon = desktop::Icon::Exclamation);
  // Careful, unless told otherwise: Enter answers No.
  bool ask(const QString& question, desktop::Buttons buttons = desktop::Buttons::YesNoCareful);
  void setPixelPanel(const std::string& text) { link.setStatusPanel(kPanelPixel, qt(text)); }
  void setTitle(const std::string& name);
  void updatePanels();
  void setChanged(bool changed);
  // Back to real size when the view mode's scale makes the picture too large.
  void limitMagnify();

  // --- Life
  bool makeNew(const std::string& name, int width, int height);
  bool makeFromClipboard();
  void takeAsNew(const std::string& name, clsDIB&& picture);
  void releaseEverything();
  void readSession();
  void readToolbox();

  // --- The frame around every command that changes the picture
  // Ends a stroke that is still drawn and what floats, the latter as a state of its own; true when something floated.
  bool commitFloatingAndPush();
  void pushState();
  // Starts the history anew with the picture as it is.
  void restartHistory();
  // Sizes, bars, display and panels after the picture was replaced.
  void showPicture();
  // Commits what floats, runs `act` on the picture and, when it says true, pushes, shows and marks changed.
  template <typename Act>
  bool changePicture(Act act) {
    if (!hasPicture()) return false;
    commitFloatingAndPush();
    if (!act(canvas->DIB())) return false;
    pushState();
    showPicture();
    setChanged(true);
    return true;
  }

  // The same for what may act on a part: `make` makes a new picture of what the region holds, else of the picture.
  // What floats in a region stays afloat, and is a state when it is put down.
  using Make = std::function<bool(const EffectSubject& subject, clsDIB& result)>;
  bool changeSubject(const Make& make, bool movesPixels = false);  // the latter of the whole picture
  // The same of what may fall beside the region, too: `make` gets room around what the region holds.
  bool changeAroundRegion(const Make& make);
  bool turnRegion(const Make& make);
  bool growTrimmed(const clsDIB& picture, Point corner);
  // What lies under a box of the picture, white outside; empty without memory.
  clsDIB beneath(const Rect& box) const;

  // What was cut out of the picture (32 bits) becomes the picture, with one state. Nothing floats any more.
  void becomeCrop(clsDIB&& cut);
  // The same; false, in words and with nothing changed, when it is too small.
  bool takeCrop(clsDIB&& cut);

  // --- Tools and view
  int operationOfMode() const;
  void takeBezierType(int tool);
  void showRegionTool();
  int effectiveBrushSize() const;
  // No tool: ends a curve or a polygon that is under way, without a trace.
  void endRunningOperation() { canvas->setCanvasOp(kNoTool); }
  void returnToOperationOfMode();
  bool glassOut() const { return canvas->CanvasOp() == kGlassTool; }
  void setMagnify(int magnify);
  void zoomBySteps(int steps);
  void showPanoramic();
  void refreshPanoramic();
  template <typename T>
  void take(T CanvasSettings::*setting, T ToolboxState::*value) {
    canvas->settings().*setting = link.toolbox().*value;
  }

  // --- Commands
  void commandNew();
  void reduceColours(const ReductionItem& item);
  void runResizeMenu(int index);
  void takeResized(const std::function<bool(const clsDIB&, clsDIB&, const Progress&)>& make);
  void commandOpen(bool inExistingWindow);
  void openDropped();
  ReadRequest readRequest(bool quiet);
  bool refuseOpen(OpenFault fault, const std::string& path, bool quiet);
  void save();
  void saveAs(const SaveItem& item, const std::string& nameEnd = {});
  bool saveIsPossible(const SaveItem& item);
  Size sizeToSave() const;
  std::vector<std::uint8_t> exifToAddBack();
  QString askForSaveName(Format format, QString proposed, Size size);
  bool write(const WriteOrder& order, Size size, clsDIB& reduced, int& bits);
  void saveByIconWindow(const SaveItem& item, const QString& proposed);
  void saveByPanel(const SaveItem& item, const QString& proposed);
  const clsDIB* pictureToSave(clsDIB& displayed);
  QString proposedPath(const std::string& ending);
  FileRecord recordOfSaved(const WriteOrder& order, int bits, Size size) const;
  void noteSaved(const FileRecord& saved);
  bool copyToClipboard();
  void cutAndCopy();
  void paste(const PasteManner& manner);
  bool leaveFitIn();
  bool takeFromClipboard(const imaging::LoadResult& fetched, clsDIB& picture);
  std::optional<bool> askToEnlarge(Size incoming);
  bool enlargeFor(Size incoming);
  bool floatPasted(const clsDIB& picture, const PasteManner& manner);
  void clearClipboard();
  std::optional<Rect> regionBox() const;
  void cropPerRegion();
  void cropPerImageInsideRegion();
  void cleanse(bool onlyOutside);
  void runEffect(const EffectItem& item);
  void rotateByAngle();
  bool showEffectWindow(EffectWindow& window, clsDIB& result);
  bool applyEffect(const EffectItem& item, const EffectSubject& subject, clsDIB& result);
  void tellNoMemory();
  template <typename Step>
  void restoreState(Step step);
  bool loadChosenPicture(const QString& folderKey, const ReadRequest& request, clsDIB& picture);
  bool loadCustomPicture(const QString& folderKey, clsDIB& picture);
  bool loadMaskedPicture(const QString& folderKey, clsDIB& picture, clsDIB& mask);
  bool paintsEnough(const clsDIB& mask);
  TextChoices textToBegin();
  void addText();
  void changeText();
  bool writeStamp(clsDIB& picture, clsDIB& mask);
  QString folderForFiles();
  void connectCanvas();
  void connectMeasures();
  void runMenu(const QString& control, int index);
  void runFileMenu(int index);
  void runOption(const QString& control, int index);
  void tellProperties();
  void tellColourCount();
  void tellCurrentScreen();
  void updateMenus();

  static constexpr int kNoTool = 18;
  static constexpr int kFilledCurveTool = 7;  // index of the tool image
  static constexpr int kRegionTool = 14;
  static constexpr int kGlassTool = 17;
  static constexpr int kLineTool = 4;
  static constexpr int kAntialiasedLine = 8;
  static constexpr int kAntialiasedLineSize = 2;
  static constexpr int kClearAllTools = 18;  // the last tool image
};

}  // namespace ruvo
