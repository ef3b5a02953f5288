// The program's name plate: as splash while it starts, and as Help > About.
#pragma once

#include <QDialog>

namespace ruvo {

class frmRuvoAbout : public QDialog {
  Q_OBJECT

 public:
  enum class Use {
    Splash,  // above all windows, without a frame or a button
    About,   // modal, closed by its button, Esc or a click
  };
  explicit frmRuvoAbout(Use use, QWidget* parent = nullptr);

  // The splash: from now on other windows may cover it. Size and place stay.
  void releaseTopmost();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  Use use_;
};

// "1.0".
const char* programVersion();

}  // namespace ruvo
