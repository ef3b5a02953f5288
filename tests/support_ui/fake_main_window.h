// A main window for document tests: plain state to set, and a record of what the document told it.
#pragma once

#include <QMap>
#include <QWidget>
#include <algorithm>

#include "document/main_window_link.h"
#include "document/option_rows.h"

namespace ruvo::test {

class FakeMainWindow : public MainWindowLink {
 public:
  SessionState state;
  ToolboxState tools;
  int documents = 1;
  frmRuvoPaint* active = nullptr;

  QMap<int, QString> panels;
  QString title;
  QString wholeTitle;
  EditButtonState buttons;
  bool zoomIn = false;
  bool zoomOut = false;
  bool corners = false;
  bool panoramic = false;
  bool glassEnabled = false;
  bool glassOut = false;
  QStringList history;           // as added, newest last
  QStringList animationHistory;  // the same
  QMap<QString, WindowPlacement> placements;
  QList<QPair<PendingOpen, QString>> opened;  // windows asked for
  QStringList calls;                          // everything else, "name" or "name(argument)"
  QMap<QString, QString> folders;
  Colour picked = 0;
  bool pickedSecond = false;

  SessionState& session() override { return state; }
  ToolboxState toolbox() const override { return tools; }
  QWidget* window() override { return nullptr; }

  void openDocument(PendingOpen command, const QString& file) override { opened << qMakePair(command, file); }
  int documentCount() const override { return documents; }
  frmRuvoPaint* activeDocument() const override { return active; }
  void setDocumentChanged(int slot, bool changed) override { state.documents.at(slot).changed = changed; }
  void releaseDocument(frmRuvoPaint*) override {
    calls << "releaseDocument";
    --documents;
  }
  void closeAllDocuments() override { calls << "closeAllDocuments"; }
  void setDocumentCaption(frmRuvoPaint*, const QString& shortened, const QString& wholePath) override {
    title = shortened;
    wholeTitle = wholePath;
  }

  void setStatusPanel(int panel, const QString& text) override { panels[panel] = text; }
  void setProgress(int percent) override { calls << QString("setProgress(%1)").arg(percent); }
  void endProgress() override { calls << "endProgress"; }
  void setEditButtons(const EditButtonState& now) override { buttons = now; }
  void setZoomButtons(bool in, bool out, bool) override {
    zoomIn = in;
    zoomOut = out;
  }
  void setScrollButtons(bool shown, bool navigator) override {
    corners = shown;
    panoramic = navigator;
  }
  void setGlass(bool enabled, bool out) override {
    glassEnabled = enabled;
    glassOut = out;
  }
  void MDI_disableAllButtonsOnToolBar() override { calls << "MDI_disableAllButtonsOnToolBar"; }
  void setMagnify(int magnify) override { tools.magnify = magnify; }
  void setZoomScale(int scale) override { tools.zoomScale = scale; }
  void setFitIn(bool checked) override { tools.fitIn = checked; }

  void selectTool(int index) override { tools.tool = index; }
  void FlatAllToolsImages() override {
    tools.tool = 18;
    calls << "FlatAllToolsImages";
  }
  void SetOptionFrame(int) override {}
  void colorPicked(Colour colour, bool second) override {
    picked = colour;
    pickedSecond = second;
  }
  void showCustomPictures() override { calls << "showCustomPictures"; }

  void unloadToolWindows(bool spareBrowser) override { calls << QString("unloadToolWindows(%1)").arg(spareBrowser); }
  void addToFileHistory(const QString& path) override { history << path; }
  void openFromHistory(int index) override { calls << QString("openFromHistory(%1)").arg(index); }
  void addToAnimationHistory(const QString& path) override {
    animationHistory << path;
    std::rotate(state.fileHistoryGifAni.begin(), state.fileHistoryGifAni.end() - 1, state.fileHistoryGifAni.end());
    state.fileHistoryGifAni[0] = path.toStdString();
  }
  void openAnimation(const QString& file) override { calls << QString("openAnimation(%1)").arg(file); }
  void ramReminder() override { calls << "ramReminder"; }
  void gdiPlusMissingMessage(const QString& prefix) override {
    calls << QString("gdiPlusMissingMessage(%1)").arg(prefix);
  }
  QString lastFolder(const QString& key) const override { return folders.value(key); }
  void setLastFolder(const QString& key, const QString& folder) override { folders[key] = folder; }

  WindowPlacement placement(const QString& section) const override { return placements.value(section); }
  void setPlacement(const QString& section, const WindowPlacement& placement) override {
    placements[section] = placement;
  }

  void mnuAnimatedGIFNew_Click(int index) override { calls << QString("mnuAnimatedGIFNew(%1)").arg(index); }
  void mnuFileHistoryGIFani_Click(int index) override { calls << QString("mnuFileHistoryGIFani(%1)").arg(index); }
  void mnuOptionsSub_Click(int index) override {
    calls << QString("mnuOptionsSub(%1)").arg(index);
    if (index == 1) state.options.sdiOnly = !state.options.sdiOnly;
  }
  void mnuSubMonitorRAM_Click(int index) override { state.options.watchRam = index; }
  void mnuOptionsSessionOnlySub_Click(int index) override {
    bool OptionFlags::*flag = optionFlagOf("mnuOptionsSessionOnlySub", index);
    state.options.*flag = !(state.options.*flag);
  }
  void mnuFileExit_Click() override { calls << "mnuFileExit"; }
  void mnuHelpSub_Click(int index) override { calls << QString("mnuHelpSub(%1)").arg(index); }
  void arrangeWindows(int index) override { calls << QString("arrangeWindows(%1)").arg(index); }
};

}  // namespace ruvo::test
