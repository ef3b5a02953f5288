// The main window's toolbar: file and edit buttons, magnifying glass, mode switch and the frame of magnification
// controls that belongs to the mode.
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <vector>

#include "document/main_window_link.h"
#include "shell/shell_controls.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLineEdit;

namespace ruvo::shell {

inline constexpr int kEditButtonCount = 13;
inline constexpr int kZoomButtonCount = 6;

// The menu row that an edit button runs; a row that is not built yet keeps its button disabled.
struct EditButton {
  const char* picture;
  const char* tip;
  const char* control;
  int index;
};
const std::array<EditButton, kEditButtonCount>& editButtons();

class Toolbar : public Panel {
 public:
  struct Calls {
    std::function<void()> newPicture;
    std::function<void()> openPicture;
    std::function<void()> openAnimation;
    std::function<void(int)> edit;
    std::function<void()> glass;
    std::function<void()> glassFactor;  // or the kind of the glass
    std::function<void(int)> mode;
    std::function<void(int)> zoom;
    std::function<void()> magnify;
    std::function<void()> zoomScale;
    std::function<void()> fitIn;
    std::function<void()> upperLeft;
    std::function<void()> lowerRight;
    std::function<void()> panoramic;
  };

  Toolbar(QWidget* parent, Calls calls);

  bool viewMode() const { return view_; }
  // Which of `cmdMode`, and which of the two magnification frames, is shown.
  void setViewMode(bool view);

  void setEditButtons(const EditButtonState& state);
  void setZoomButtons(bool in, bool out, bool original);
  void setScrollButtons(bool corners, bool panoramic);
  void setGlass(bool enabled, bool out);
  // No document: magnification 1, everything that acts on one is disabled.
  void disableAll();

  int magnify() const;
  void setMagnify(int magnify);
  int glassFactor() const;
  bool convexGlass() const;
  int zoomScale() const { return zoomScale_; }
  void setZoomScale(int scale);
  bool fitIn() const;
  void setFitIn(bool checked);

  // Moves the focus to a group of buttons and with it on to the picture, where there is one.
  void focusBeside(int container = 0);
  void setPicture(QWidget* canvas);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* addGroup();
  PictureButton* addButton(QWidget* group, const QString& name, const QString& picture, const QString& tip,
                           const std::function<void()>& clicked);
  void buildFileAndEdit();
  void buildGlassAndMode();
  void buildPaintFrame();
  void buildViewFrame();
  void scaleEdited();
  // Places the groups in rows; buttons shrink a little before a second row is begun.
  void arrange();
  int widthWithButtons(int side);

  Calls calls_;
  std::vector<QWidget*> groups_;
  std::vector<PictureButton*> buttons_;
  std::vector<int> dividers_;  // x and row top of each line between groups, in pairs
  std::array<PictureButton*, kEditButtonCount> edit_{};
  std::array<PictureButton*, kZoomButtonCount> zoom_{};
  std::array<PictureButton*, 2> mode_{};
  PictureButton* glass_ = nullptr;
  QAction* convex_ = nullptr;
  PictureButton* upperLeft_ = nullptr;
  PictureButton* lowerRight_ = nullptr;
  PictureButton* panoramic_ = nullptr;
  QWidget* paintFrame_ = nullptr;
  QWidget* viewFrame_ = nullptr;
  QComboBox* glassBox_ = nullptr;
  QComboBox* magnifyBox_ = nullptr;
  QLineEdit* scaleBox_ = nullptr;
  QCheckBox* fitInBox_ = nullptr;
  int zoomScale_ = 1;
  bool view_ = false;
};

}  // namespace ruvo::shell
