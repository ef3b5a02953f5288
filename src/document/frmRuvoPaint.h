// One open picture: an MDI child, or the only window in SDI mode. Owns its canvas, its undo history and a full copy of the
// menus. The main window routes its controls here by name; the document talks back through MainWindowLink only.
#pragma once

#include <QList>
#include <QWidget>
#include <memory>

#include "document/main_window_link.h"

class QMenu;

namespace ruvo {

class ucCanvas;

class frmRuvoPaint : public QWidget {
  Q_OBJECT

 public:
  // `slot` is the document's place in the document list; the undo files are named after it.
  frmRuvoPaint(MainWindowLink& link, int slot, QWidget* parent = nullptr);
  ~frmRuvoPaint() override;

  int slot() const;
  ucCanvas* canvas();
  // The document's menus in menu bar order; the main window shows them while this document is the active one.
  const QList<QMenu*>& menus();

  // --- Life
  // Called by the opener once the window is shown (first) and whenever another child was active before. The first one
  // acts on `command`; false means that the document could not be opened and its window must go.
  bool firstActivation(PendingOpen command, const QString& file);
  void activated();
  bool hasUnsavedChanges() const;
  // The closing question: true when the window may close. Silent when nothing is unsaved or closing was confirmed.
  bool queryUnload();

  // --- Operations that others call by name
  // openMode is the number of the pending open command; 2 is quiet (no message boxes).
  bool LoadOpenFile(const QString& FileSpec, int openMode, bool inUpdateFileHistory);
  // A frame of an animation, which is not from a file of its own then.
  bool openFirstFrame(const QString& file);
  void UpdateDisplay();
  bool AskSaveCurr();
  // Before another picture takes the place of this one: ends a stroke that the mouse still holds and, when something is
  // unsaved, asks. True when the picture may go.
  bool mayReplacePicture();
  void updateEditButtons();
  void UpdateAllowableMenusForScreenMode();
  void AllowOrDisallowQuickScroll();
  void OnOffQuickScroll();
  void rebuildFileHistoryMenu();
  void updateOptionMenus();  // copies the option flags to the document's own Options menu

  // --- Routed from the main window's controls
  void Do_imgToolsClick(int index);
  void Do_ckbFitInClick();
  void Do_cmdGlassClick();
  void Do_cmdZoomClick(int index);
  void Do_cboMagnifyClick();
  void Do_cboGlassClick();
  void Do_zoomScaleChanged();  // txbZoomScale edited
  void Do_cmdCustomBrushClick();
  void Do_cmdCustomPatternClick();
  void Do_cmdStampLoadClick(int index);
  void Do_cmdRegionOperation(int index);
  void Do_imgUpperLeftClick();
  void Do_imgLowerRightClick();
  void Do_imgPanoramicClick();
  void Do_cmdFileNewClick();
  void Do_cmdFileOpenClick();
  void Do_mnuRotateSubClick(int index);
  void mnuEffectsBrightenSub_Click(int index);
  void mnuEffectsDarkenSub_Click(int index);
  void Do_UpdateZoomButtons();
  void Do_UpdateGlassButton();
  void Do_UpdateModeChange();
  void Notify_BrushSize_FromMDI();
  void Notify_BrushStyle_FromMDI();
  void Notify_CustomBrushShape_FromMDI();
  void Notify_CustomBrushApplyManner_FromMDI();
  void Notify_PaintBrushTranslucencyPercent_FromMDI();
  void Notify_SprayDensity_FromMDI();
  void Notify_SprayTranslucencyPercent_FromMDI();
  void Notify_FillPattern_FromMDI();
  void Notify_LineType_FromMDI();
  void Notify_RectangleCornerShape_FromMDI();
  void Notify_PolygonOperationType_FromMDI();
  void Notify_PolygonDrawMethod_FromMDI();
  void Notify_PolygonSetting_FromMDI();
  void Notify_OvalEnhancement_FromMDI();
  void Notify_StampStyle_FromMDI();
  void Notify_StampTextureWeight_FromMDI();
  void Notify_ColorToUse_FromMDI();
  void Notify_BezierFillColor_FromMDI();
  void Notify_BezierOp_FromMDI();
  void Notify_SetScrollOp_FromMDI();
  void Notify_SessionOptions_FromMDI();  // marquee, edge dragging, axis lines, pixel readout, fit-in of smaller ones
  void mnuEditUndoAll_Click();
  void mnuEditUndo_Click();
  void mnuEditRedo_Click();
  void mnuEditCut_Click();
  void mnuEditCopy_Click();
  void mnuEditPaste_Click();
  void mnuEditPasteTransparent_Click();
  // A menu row by its control name and index ("mnuFileSub", 0); false when there is none or it is disabled.
  bool triggerMenu(const QString& control, int index = -1);

 Q_SIGNALS:
  void captionChanged();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
