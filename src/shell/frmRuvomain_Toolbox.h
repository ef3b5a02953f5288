// The tool images `imgTools(0)` to `imgTools(18)` of the main window.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "shell/shell_controls.h"

namespace ruvo::shell {

inline constexpr int kToolCount = 19;
inline constexpr int kClearAllTools = kToolCount - 1;

class Toolbox : public QWidget {
 public:
  explicit Toolbox(QWidget* parent);

  // The tool whose image has the border; the last one when none of the others has.
  int selected() const;
  void select(int index);
  // Takes every border away but the last image's.
  void FlatAllToolsImages() { select(kClearAllTools); }
  // View mode has no tools: all images are disabled. Tools that can not draw yet stay disabled always.
  void setUsable(bool usable);

  std::function<void(int index)> clicked;

 private:
  std::array<PictureButton*, kToolCount> tools_{};
};

}  // namespace ruvo::shell
