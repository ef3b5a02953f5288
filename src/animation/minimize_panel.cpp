#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "animation/model/basGIFaniMinimize.h"
#include "animation/session_panels.h"
#include "dialogs/named_controls.h"

namespace ruvo {
namespace {

enum Button { kProceed, kAnimate, kStop, kUndo, kClose };

}  // namespace

struct MinimizePanel::Private {
  QCheckBox* localToGlobal = nullptr;
  QCheckBox* unused = nullptr;
  QCheckBox* interlace = nullptr;
  QCheckBox* slack = nullptr;
  QLabel* size = nullptr;
  QPushButton* proceed = nullptr;

  std::array<QCheckBox*, 4> boxes() const { return {localToGlobal, unused, interlace, slack}; }
};

MinimizePanel::MinimizePanel(SessionHost& host, QWidget* parent)
    : SessionPanel(host, SessionWork::Minimise, 1, tr("Minimize file size"), parent), d_(new Private) {
  d_->localToGlobal =
      namedCheckBox("ckbLocalToGlobalPalette",
                    tr("Change from local to global palette  (&& remove unused / duplicate entries if any)"), this);
  d_->unused =
      namedCheckBox("ckbRemoveUnusedPalette", tr("Remove unused and/or duplicate palette entries if any"), this);
  d_->interlace = namedCheckBox("ckbRemoveInterlace", tr("Remove interlace"), this);
  d_->slack = namedCheckBox("ckbRemoveSlackTransparentAreas", tr("Remove slack transparent areas"), this);
  QCheckBox* comments = namedCheckBox("ckbRemoveComments", tr("Remove comment"), this);
  comments->setChecked(true);  // with every run
  comments->setEnabled(false);
  d_->size = namedLabel("lblMinimizedFileSize", {}, this);

  auto* options = new QVBoxLayout;
  for (QWidget* widget :
       std::initializer_list<QWidget*>{d_->localToGlobal, d_->unused, d_->interlace, d_->slack, comments, d_->size})
    options->addWidget(widget);
  options->addStretch();

  const auto buttons =
      namedButtons("cmdMinimize", {tr("Proceed"), tr("Animate"), tr("Stop"), tr("Undo"), tr("Close")}, this);
  layOut(options, buttons);
  setButtons(buttons[kAnimate], buttons[kStop], buttons[kUndo], buttons[kClose]);
  d_->proceed = buttons[kProceed];
  connect(d_->proceed, &QPushButton::clicked, this, &MinimizePanel::proceed);
  for (QCheckBox* box : d_->boxes()) connect(box, &QCheckBox::toggled, this, &MinimizePanel::showProceed);
}

MinimizePanel::~MinimizePanel() = default;

void MinimizePanel::opened() {
  for (QCheckBox* box : d_->boxes()) box->setChecked(false);
  d_->size->clear();
  showOffered();
  showProceed();
}

void MinimizePanel::undone() {
  d_->size->clear();
  showOffered();
}

// Each option is offered when the animation has something for it.
void MinimizePanel::showOffered() {
  const MinimizeOptions offers = minimizeOffers(session().gif());
  d_->localToGlobal->setEnabled(offers.localToGlobal);
  d_->unused->setEnabled(offers.removeUnused);
  d_->interlace->setEnabled(offers.removeInterlace);
  d_->slack->setEnabled(offers.removeSlack);
}

void MinimizePanel::showProceed() {
  const auto boxes = d_->boxes();
  d_->proceed->setEnabled(std::any_of(boxes.begin(), boxes.end(), [](QCheckBox* box) { return box->isChecked(); }));
}

void MinimizePanel::proceed() {
  host().stopAnimation();
  const auto chosen = [](const QCheckBox* box) { return box->isEnabled() && box->isChecked(); };
  const MinimizeOptions options{chosen(d_->localToGlobal), chosen(d_->unused), chosen(d_->interlace),
                                chosen(d_->slack)};
  if (!options.any()) {
    tell(tr("\n\nNo minimizing option selected yet."));
    return;
  }
  if (!ask(tr("Proceed to minimize file size per options selected?"))) return;
  const MinimizeResult result =
      atWork([&](const Progress& progress) { return minimizeGif(session().gif(), options, progress); });
  if (result.changed) changeMade(host().selectedFrame());
  showOffered();
  if (result.endedEarly) {
    d_->size->clear();
    tell(QString::fromStdString(minimizeMessage(result)));
    return;
  }
  const std::int64_t now = session().measure(false);
  d_->size->setText(now > 0 ? QString::fromStdString(minimizedSizeText(session().firstFileSize(), now)) : QString());
}

}  // namespace ruvo
