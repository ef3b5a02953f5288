// The status bar of the main window: five text panels and the progress bar.
#pragma once

#include <QLabel>
#include <QWidget>
#include <array>

#include "shell/shell_controls.h"

namespace ruvo {
class ucProgress;
}

namespace ruvo::shell {

inline constexpr int kStatusPanelCount = 5;

class StatusBar : public Panel {
 public:
  explicit StatusBar(QWidget* parent);

  void setPanel(int index, const QString& text);
  // The panel that names the window mode: in the text colour, or in grey for SDI.
  void showSdi(bool sdi);
  // 0 to 100. The bar stands empty and hidden while nothing runs.
  void setProgress(int percent);
  void endProgress();
  void clearPanels();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::array<QWidget*, kStatusPanelCount> panels_{};
  std::array<QLabel*, kStatusPanelCount> labels_{};
  ucProgress* progress_;
};

}  // namespace ruvo::shell
