// "Report on GIF data discrepancy".
#pragma once

#include <QDialog>

namespace ruvo {

class clsGIF;

class frmRuvoGIFaniDiscrepReport : public QDialog {
  Q_OBJECT

 public:
  frmRuvoGIFaniDiscrepReport(const clsGIF& gif, QWidget* parent);
};

}  // namespace ruvo
