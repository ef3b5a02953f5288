// How long an effect window takes from a changed choice to the painted sample: each window on a photograph of 24
// megapixels, with its sample in a view of 420 x 320 points, a control moved to and fro. Prints the slowest window as a
// row of the table that bench/run begins, and with --all every one.
#include <QApplication>
#include <QComboBox>
#include <QSlider>
#include <cstring>

#include "canvas/ucCanvasA.h"
#include "effects/effect_windows.h"
#include "effects/frmRuvoRotate.h"
#include "photograph.h"
#include "processes.h"

namespace ruvo {
namespace {

constexpr int kRounds = 25;
constexpr QSize kView(420, 320);

// Notes that a widget, or a child of it, was painted.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& watched) {
    for (QWidget* widget : watched.findChildren<QWidget*>()) widget->installEventFilter(this);
  }
  bool painted = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    painted |= event->type() == QEvent::Paint;
    return QObject::eventFilter(watched, event);
  }
};

using Change = std::function<void(int round)>;

// The first control that can be moved: a slider, else a list. Nothing when there is none.
Change changeOf(QWidget& window) {
  for (QSlider* slider : window.findChildren<QSlider*>()) {
    if (!slider->isEnabled()) continue;
    const int middle = (slider->minimum() + slider->maximum()) / 2, most = slider->maximum();
    return [slider, middle, most](int round) { slider->setValue(round % 2 == 0 ? middle : most - most / 8); };
  }
  for (QComboBox* list : window.findChildren<QComboBox*>()) {
    if (list->count() > 1) return [list](int round) { list->setCurrentIndex(round % 2); };
  }
  return {};
}

// Median seconds; 0 for a window with nothing to move.
double secondsToSample(EffectWindow& window) {
  auto* sample = window.findChild<ucCanvasA*>(QStringLiteral("picSample"));
  if (!sample) return 0;
  sample->setFixedSize(kView);
  window.show();
  for (int i = 0; i < 5; ++i) QApplication::processEvents();
  const Change change = changeOf(window);
  if (!change) return 0;
  PaintWatch watch(*sample);
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    watch.painted = false;
    const auto begin = bench::Clock::now();
    change(round);
    while (!watch.painted && bench::secondsSince(begin) < 1) QApplication::processEvents();
    times.push_back(bench::secondsSince(begin));
  }
  return bench::median(times);
}

}  // namespace
}  // namespace ruvo

int main(int argc, char** argv) {
  using namespace ruvo;
  QApplication application(argc, argv);
  const bool all = argc > 1 && std::strcmp(argv[1], "--all") == 0;
  const clsDIB photograph = bench::photograph(6000, 4000);
  const auto second = std::make_shared<clsDIB>(bench::photograph(800, 600));
  EffectHost host;
  host.loadPicture = [&](QWidget*) { return second; };

  double slowest = 0;
  std::string name;
  const auto measure = [&](EffectWindow& window) {
    const double seconds = secondsToSample(window);
    if (all) std::printf("%s %.2f ms\n", qPrintable(window.objectName()), seconds * 1e3);
    if (seconds <= slowest) return;
    slowest = seconds;
    name = window.objectName().toStdString();
  };
  for (const EffectItem& item : effectMenu()) {
    if (const auto window = makeEffectWindow(item, {photograph}, host, nullptr)) measure(*window);
  }
  frmRuvoRotate rotate({photograph}, nullptr);
  measure(rotate);
  std::printf(
      "| A choice changed in an effect window until its sample is painted, the slowest (%s) | %.3g ms | | | 16 ms |\n",
      name.c_str(), slowest * 1e3);
  return 0;
}
