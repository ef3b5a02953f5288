#include "shell/frmRuvomain_Status.h"

#include <QPainter>
#include <algorithm>

#include "canvas/ucProgress.h"
#include "document/main_window_link.h"
#include "platform/theme/theme.h"
#include "shell/shell_controls.h"

namespace ruvo::shell {
namespace {

constexpr int kBarHeight = 28;
constexpr int kProgressWidth = 120;
// Widths of the panels 1 to 4; panel 0 takes what is left.
constexpr std::array<int, kStatusPanelCount> kPanelWidths = {0, 52, 220, 112, 112};
// The measures of an arc need more than that; in a wide window they get it.
constexpr int kWidestMeasure = 345;
constexpr double kMeasureShare = 0.29;
constexpr std::array<const char*, kStatusPanelCount> kPanelTips = {"", "Size of incoming image", "", "Size on screen",
                                                                   "Net image size"};

}  // namespace

StatusBar::StatusBar(QWidget* parent) : Panel(Border::Top, parent) {
  setObjectName("picStatusBar");
  setFixedHeight(kBarHeight);
  for (int i = 0; i < kStatusPanelCount; ++i) {
    const auto at = static_cast<std::size_t>(i);
    panels_[at] = new QWidget(this);
    panels_[at]->setObjectName(controlName("picStatusPanel", i));
    labels_[at] = new ElidedLabel(panels_[at]);
    labels_[at]->setObjectName(controlName("lblStatusPanel", i));
    labels_[at]->setToolTip(kPanelTips[at]);
    if (i > 0) divider(Qt::Vertical, panels_[at])->setGeometry(0, 6, 1, kBarHeight - 12);
  }
  progress_ = new ucProgress(this);
  progress_->setObjectName("Progress");
  progress_->setBorderStyle(0);
  progress_->setBackColor(theme::roles().pressed);
  progress_->setForeColor(theme::roles().accent);
  progress_->setMax(100);
  endProgress();
}

void StatusBar::resizeEvent(QResizeEvent*) {
  auto widths = kPanelWidths;
  widths[kPanelPixel] = std::clamp(qRound(width() * kMeasureShare), kPanelWidths[kPanelPixel], kWidestMeasure);
  int right = width() - 6;
  for (int i = kStatusPanelCount - 1; i >= 1; --i) {
    const auto at = static_cast<std::size_t>(i);
    right -= widths[at];
    panels_[at]->setGeometry(right, 0, widths[at], kBarHeight);
    labels_[at]->setGeometry(9, 1, widths[at] - 12, kBarHeight - 1);
  }
  right -= kProgressWidth + 10;
  progress_->setGeometry(right, (kBarHeight - 8) / 2 + 1, kProgressWidth, 8);
  panels_[0]->setGeometry(0, 0, std::max(0, right - 8), kBarHeight);
  labels_[0]->setGeometry(10, 1, std::max(0, right - 18), kBarHeight - 1);
}

void StatusBar::setPanel(int index, const QString& text) {
  if (index >= 0 && index < kStatusPanelCount) labels_[static_cast<std::size_t>(index)]->setText(text);
}

void StatusBar::showSdi(bool sdi) {
  QLabel* label = labels_[kPanelMode];
  label->setText(sdi ? "SDI" : "MDI");
  QPalette colours = label->palette();
  colours.setColor(QPalette::WindowText, sdi ? QColor(0x80, 0x80, 0x80) : theme::roles().ink);
  label->setPalette(colours);
}

void StatusBar::setProgress(int percent) {
  progress_->setVisible(true);
  progress_->setValue(percent);
  // The work that reports runs on this thread: without this the bar would stand still until its end.
  progress_->repaint();
}

void StatusBar::endProgress() {
  progress_->setValue(0);
  progress_->setVisible(false);
}

void StatusBar::clearPanels() {
  for (int i = 0; i < kStatusPanelCount; ++i)
    if (i != kPanelMode) labels_[static_cast<std::size_t>(i)]->clear();
}

}  // namespace ruvo::shell
