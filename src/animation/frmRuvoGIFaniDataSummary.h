// "Summary of settings of individual frames": a list, the frame, its palette, and printing of the list.
#pragma once

#include <QDialog>
#include <memory>

class QLayout;

namespace ruvo {

class clsGIF;

class frmRuvoGIFaniDataSummary : public QDialog {
  Q_OBJECT

 public:
  // The model outlives the window. It has frames.
  frmRuvoGIFaniDataSummary(const clsGIF& gif, int frame, QWidget* parent);
  ~frmRuvoGIFaniDataSummary() override;

 private:
  void buildList();
  QLayout* buildPicture();
  QLayout* buildPalette();
  QLayout* buildButtons();
  void showFrame(int frame);
  void printList();

  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
