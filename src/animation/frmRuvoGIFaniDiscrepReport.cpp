#include "animation/frmRuvoGIFaniDiscrepReport.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "animation/model/gif_discrepancies.h"
#include "dialogs/named_controls.h"

namespace ruvo {
namespace {

constexpr QSize kUsualSize(640, 360);

}  // namespace

frmRuvoGIFaniDiscrepReport::frmRuvoGIFaniDiscrepReport(const clsGIF& gif, QWidget* parent) : QDialog(parent) {
  setObjectName("frmRuvoGIFaniDiscrepReport");
  setWindowTitle(tr("Report on GIF data discrepancy"));
  auto* report = new QPlainTextEdit(QString::fromStdString(discrepancyReport(gif)), this);
  report->setObjectName("txbReport");
  report->setReadOnly(true);
  QPushButton* ok = namedButton("cmdOK", tr("OK"), this);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  auto* all = new QVBoxLayout(this);
  all->addWidget(report);
  all->addLayout(buttons);
  resize(kUsualSize);
  ok->setFocus();
}

}  // namespace ruvo
