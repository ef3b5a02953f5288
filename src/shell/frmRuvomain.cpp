#include "shell/frmRuvomain.h"

#include <QHBoxLayout>
#include <QMenuBar>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "base/paths.h"
#include "base/program_title.h"
#include "document/frmRuvoPaint.h"
#include "platform/theme/theme.h"
#include "shell/frmRuvomain_Private.h"
#include "shell/shell_controls.h"

namespace ruvo {
namespace {

// 11850 x 8805 twips.
constexpr QSize kMinimumSize(11850 / kTwipsPerPixel, 8805 / kTwipsPerPixel);
constexpr QSize kFirstSize(1180, 800);

}  // namespace

Workspace::Workspace(QWidget* parent) : QMdiArea(parent) {
  setObjectName("mdiWorkspace");
  setBackground(theme::roles().workspace);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setFrameShape(QFrame::NoFrame);
}

void Workspace::paintEvent(QPaintEvent* event) {
  QMdiArea::paintEvent(event);
  if (!subWindowList().isEmpty()) return;
  const theme::Roles& r = theme::roles();
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  QRectF card(0, 0, 340, 178);
  card.moveCenter(QRectF(viewport()->rect()).center());
  QColor edge = r.quietInk;
  edge.setAlphaF(0.45F);
  painter.setPen(QPen(edge, 1.4, Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(card, 14, 14);
  theme::icon("open").paint(
      &painter,
      QRect(QPoint(static_cast<int>(card.center().x()) - 20, static_cast<int>(card.top()) + 26), QSize(40, 40)));
  QFont font = painter.font();
  font.setPointSizeF(font.pointSizeF() * 1.35);
  painter.setFont(font);
  painter.setPen(r.ink);
  painter.drawText(card.adjusted(0, 78, 0, -66), Qt::AlignCenter, "Open a picture  (Ctrl+O)");
  painter.setFont(this->font());
  painter.setPen(r.quietInk);
  painter.drawText(card.adjusted(0, 112, 0, -20), Qt::AlignHCenter | Qt::AlignTop,
                   "or begin a new one  (Ctrl+N),\nor drop a file here");
}

frmRuvomain::frmRuvomain(SessionServices& services) : d_(std::make_unique<Private>(services)) {
  setObjectName("frmRuvomain");
  setWindowTitle(kProgramTitle);
  setWindowIcon(theme::icon("app"));
  setMinimumSize(kMinimumSize);
  setAcceptDrops(true);
  resize(kFirstSize);
  const LoadingFlag loading(session());
  startImaging();
  buildControls();
  buildMenus();
  addShortcuts();
  loadSettings();
  MDI_disableAllButtonsOnToolBar();
  d_->workspace->setFocus();
}

frmRuvomain::~frmRuvomain() {
  // Documents and the animation talk back to this window while they go: they go first.
  d_->unloading = true;
  d_->animation.reset();
  d_->endedAnimation.reset();
  for (frmRuvoPaint* document : d_->documents)
    if (document != nullptr) delete windowOf(document);
}

void frmRuvomain::buildControls() {
  auto* centre = new QWidget(this);
  auto* rows = new QVBoxLayout(centre);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(buildToolbar(centre));
  auto* middle = new QHBoxLayout;
  middle->setSpacing(0);
  middle->addWidget(buildToolPanel(centre));
  d_->workspace = new Workspace(centre);
  connect(d_->workspace, &QMdiArea::subWindowActivated, this, &frmRuvomain::windowActivated);
  middle->addWidget(d_->workspace, 1);
  rows->addLayout(middle, 1);
  d_->status = new shell::StatusBar(centre);
  rows->addWidget(d_->status);
  setCentralWidget(centre);
}

QWidget* frmRuvomain::buildToolbar(QWidget* parent) {
  d_->toolbar = new shell::Toolbar(parent, {.newPicture = [this] { newClicked(); },
                                            .openPicture = [this] { openClicked(); },
                                            .openAnimation = [this] { mnuAnimatedGIFNew_Click(kOpenAnimation); },
                                            .edit = [this](int index) { editButtonClicked(index); },
                                            .glass = [this] { cmdGlass_Click(); },
                                            .glassFactor = [this] { tell(&frmRuvoPaint::Do_cboGlassClick); },
                                            .mode = [this](int index) { cmdMode_Click(index); },
                                            .zoom = [this](int index) { tell(&frmRuvoPaint::Do_cmdZoomClick, index); },
                                            .magnify = [this] { tell(&frmRuvoPaint::Do_cboMagnifyClick); },
                                            .zoomScale = [this] { tell(&frmRuvoPaint::Do_zoomScaleChanged); },
                                            .fitIn = [this] { fitInClicked(); },
                                            .upperLeft = [this] { tell(&frmRuvoPaint::Do_imgUpperLeftClick); },
                                            .lowerRight = [this] { tell(&frmRuvoPaint::Do_imgLowerRightClick); },
                                            .panoramic = [this] { tell(&frmRuvoPaint::Do_imgPanoramicClick); }});
  return d_->toolbar;
}

// The toolbox, the colours and the brush size, and beneath them the chosen tool's options.
QWidget* frmRuvomain::buildToolPanel(QWidget* parent) {
  auto* panel = new QWidget(parent);
  panel->setObjectName("picToolPanel");
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(shell::kPanelMargin, 8, shell::kPanelMargin, 6);
  column->setSpacing(8);
  d_->toolbox = new shell::Toolbox(panel);
  d_->toolbox->clicked = [this](int index) { toolClicked(index); };
  const auto palette = [this](shell::PaletteKind kind, int box) { paletteAsked(kind, box); };
  d_->colors = new shell::BrushAndColors(panel, palette);
  d_->colors->brushSizeChanged = [this](bool byKeys) { brushSizeChanged(byKeys); };
  d_->colors->swapClicked = [this] { swapColors(); };
  column->addWidget(d_->toolbox);
  column->addWidget(shell::divider(Qt::Horizontal, panel));
  column->addWidget(d_->colors);
  column->addWidget(buildOptionArea(panel, palette), 1);
  panel->setFixedWidth(std::max(d_->options->widestFrame(), d_->colors->minimumSizeHint().width()) +
                       2 * shell::kPanelMargin + 1);
  for (int box = 0; box < 3; ++box) {
    shell::ColorBox& well = box < 2 ? d_->colors->box(box) : d_->options->bezierBox();
    well.leftClicked = [this, box] { showColorValues(box); };
    well.rightClicked = [this, box] { boxRightClicked(box); };
  }
  return panel;
}

// Only a window lower than any frame needs makes the frame scroll.
QWidget* frmRuvomain::buildOptionArea(QWidget* parent, const PaletteAsked& palette) {
  auto* area = new QScrollArea(parent);
  area->setObjectName("picOptionArea");
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->viewport()->setAutoFillBackground(false);
  // A click beside the options leaves the keys with the picture.
  area->setFocusPolicy(Qt::NoFocus);
  auto* holder = new QWidget;
  auto* holderColumn = new QVBoxLayout(holder);
  holderColumn->setContentsMargins(0, 0, 0, 0);
  d_->options = new shell::OptionFrames(
      holder, {.tell = [this](DocumentCall call) { tell(call); },
               .loadStamp = [this](int index) { tell(&frmRuvoPaint::Do_cmdStampLoadClick, index); },
               .regionOperation = [this](int index) { tell(&frmRuvoPaint::Do_cmdRegionOperation, index); },
               .palette = palette});
  holderColumn->addWidget(d_->options);
  holderColumn->addStretch();
  area->setWidget(holder);
  holder->setAutoFillBackground(false);
  return area;
}

SessionState& frmRuvomain::session() {
  return d_->services.state;
}

ToolboxState frmRuvomain::toolbox() const {
  ToolboxState state;
  state.tool = d_->toolbox->selected();
  state.firstColor = d_->colors->box(0).BackColor();
  state.secondColor = d_->colors->box(1).BackColor();
  state.brushSize = d_->colors->brushSizeIndex() + 1;
  d_->options->readInto(state);
  state.magnify = d_->toolbar->magnify();
  state.glassFactor = d_->toolbar->glassFactor();
  state.convexGlass = d_->toolbar->convexGlass();
  state.viewMode = d_->toolbar->viewMode();
  state.fitIn = d_->toolbar->fitIn();
  state.zoomScale = d_->toolbar->zoomScale();
  return state;
}

void frmRuvomain::setStatusPanel(int panel, const QString& text) {
  d_->status->setPanel(panel, text);
}
void frmRuvomain::setProgress(int percent) {
  d_->status->setProgress(percent);
}
void frmRuvomain::endProgress() {
  d_->status->endProgress();
}
void frmRuvomain::setEditButtons(const EditButtonState& state) {
  d_->toolbar->setEditButtons(state);
}
void frmRuvomain::setZoomButtons(bool in, bool out, bool original) {
  d_->toolbar->setZoomButtons(in, out, original);
}
void frmRuvomain::setScrollButtons(bool corners, bool panoramic) {
  d_->toolbar->setScrollButtons(corners, panoramic);
}
void frmRuvomain::setGlass(bool enabled, bool out) {
  d_->toolbar->setGlass(enabled, out);
}

void frmRuvomain::setMagnify(int magnify) {
  const LoadingFlag loading(session());
  d_->toolbar->setMagnify(magnify);
}

void frmRuvomain::setZoomScale(int scale) {
  const LoadingFlag loading(session());
  d_->toolbar->setZoomScale(scale);
}

void frmRuvomain::setFitIn(bool checked) {
  const LoadingFlag loading(session());
  d_->toolbar->setFitIn(checked);
}

void frmRuvomain::MDI_disableAllButtonsOnToolBar() {
  const LoadingFlag loading(session());
  SetOptionFrame(-1);
  d_->toolbar->disableAll();
  d_->status->clearPanels();
}

}  // namespace ruvo
