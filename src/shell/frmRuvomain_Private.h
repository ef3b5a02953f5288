// What the files of frmRuvomain share.
#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <vector>

#include "animation/frmRuvoGIFani.h"
#include "dialogs/frmRuvoColorChart.h"
#include "document/menu_table.h"
#include "image/clsDIB.h"
#include "platform/desktop/texts.h"
#include "shell/frmRuvomain.h"
#include "shell/frmRuvomain_Colors.h"
#include "shell/frmRuvomain_OptionFrames.h"
#include "shell/frmRuvomain_Status.h"
#include "shell/frmRuvomain_Toolbar.h"
#include "shell/frmRuvomain_Toolbox.h"

namespace ruvo {

// The area of the document windows; while it is empty it says how to begin.
class Workspace : public QMdiArea {
 public:
  explicit Workspace(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A document's window. The whole path is the tool tip of its title bar.
class DocumentWindow : public QMdiSubWindow {
 public:
  explicit DocumentWindow(QWidget* parent);
  QString shortened;
  QString wholePath;

 protected:
  bool event(QEvent* event) override;
};

// Raises the settings-loading flag while controls are set from code, so that their change events do nothing.
class LoadingFlag {
 public:
  explicit LoadingFlag(SessionState& state) : state_(state), before_(state.settingsLoading) {
    state.settingsLoading = true;
  }
  ~LoadingFlag() { state_.settingsLoading = before_; }
  LoadingFlag(const LoadingFlag&) = delete;
  LoadingFlag& operator=(const LoadingFlag&) = delete;

 private:
  SessionState& state_;
  bool before_;
};

// The loaded pictures that custom tools use. The canvas of every document gets the same ones.
struct CustomTools {
  clsDIB brush;
  clsDIB brushMask;
  clsDIB pattern;
  clsDIB stamp;
  clsDIB stampMask;
};

// Index of `mnuAnimatedGIFNew`.
inline constexpr int kOpenAnimation = 2;

struct frmRuvomain::Private {
  explicit Private(SessionServices& s) : services(s) {}

  SessionServices& services;
  StoredSettings stored;
  std::unique_ptr<MenuSet> menus;
  shell::Toolbar* toolbar = nullptr;
  shell::Toolbox* toolbox = nullptr;
  shell::BrushAndColors* colors = nullptr;
  shell::OptionFrames* options = nullptr;
  shell::StatusBar* status = nullptr;
  Workspace* workspace = nullptr;

  // Index = slot; null where the slot is free.
  std::vector<frmRuvoPaint*> documents;
  frmRuvoPaint* active = nullptr;
  frmRuvoPaint* menusShownOf = nullptr;
  bool unloading = false;
  std::unique_ptr<frmRuvoGIFani> animation;
  std::unique_ptr<frmRuvoGIFani> endedAnimation;  // closed, and about to go

  // Which box the next chosen colour goes to, and the colour.
  bool forFirst = true;
  bool forSecond = false;
  bool forBezier = false;
  Colour currentColour = kBlack;
  QPointer<frmRuvoColorChart> chart;
  CustomTools customTools;
};

}  // namespace ruvo
