// The animation window's controls, menus and keys, and where it stands on the screen.
#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "animation/frmRuvoGIFani_Private.h"
#include "animation/model/gif_texts.h"
#include "canvas/ucProgress.h"
#include "dialogs/named_controls.h"
#include "platform/theme/theme.h"

namespace ruvo {
namespace {

// 12015 x 9000 twips.
constexpr Size kLeastSize = {801, 600};
constexpr Size kUsualSize = {1160, 800};
constexpr int kMargin = 9;
constexpr int kButtonSide = 32;
constexpr int kBarHeight = 28;
constexpr int kProgressWidth = 120;
constexpr int kPatternWidth = 232;

QString withShortcut(const QString& tip, const char* shortcut) {
  const QString keys = QKeySequence(QString::fromLatin1(shortcut)).toString(QKeySequence::NativeText);
  return keys.isEmpty() ? tip : tip + "  (" + keys + ")";
}

QHBoxLayout* rowLayout(QWidget* row, int spacing) {
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(kMargin, 0, kMargin, 0);
  line->setSpacing(spacing);
  return line;
}

theme::ElidedLabel* elided(const char* name, QWidget* parent) {
  auto* made = new theme::ElidedLabel(parent);
  made->setObjectName(QString::fromLatin1(name));
  return made;
}

}  // namespace

void frmRuvoGIFani::Private::build() {
  self.setWindowIcon(theme::icon("app"));
  self.setAcceptDrops(true);
  auto* centre = new QWidget(&self);
  auto* rows = new QVBoxLayout(centre);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(6);
  rows->addWidget(buildCommands());
  auto* file = new QWidget(centre);
  auto* fileLine = rowLayout(file, 16);
  lblInfoOrigFile = namedLabel("lblInfoOrigFile", QString(), file);
  lblFile = elided("lblFile", file);
  fileLine->addWidget(lblInfoOrigFile);
  fileLine->addWidget(lblFile, 1);
  rows->addWidget(file);
  rows->addWidget(buildFrameRow());
  auto* middle = new QHBoxLayout;
  middle->setContentsMargins(kMargin, 0, kMargin, 0);
  middle->setSpacing(kMargin);
  film = new FilmStrip(centre);
  middle->addWidget(film);
  auto* column = new QVBoxLayout;
  column->setSpacing(6);
  column->addWidget(buildOptionRow());
  picDisp = new GifField(centre);
  picDisp->setMinimumSize(160, 120);
  picDisp->setFocusPolicy(Qt::ClickFocus);
  column->addWidget(picDisp, 1);
  middle->addLayout(column, 1);
  rows->addLayout(middle, 1);
  // Under the film as well: beside it they would be cut in a window of the least size.
  auto* operations = new QVBoxLayout;
  operations->setContentsMargins(kMargin, 0, kMargin, 0);
  buildPanels(*operations);
  rows->addLayout(operations);
  rows->addWidget(buildStatus());
  self.setCentralWidget(centre);
  buildMenus();
  addShortcuts();

  connect(film, &FilmStrip::frameClicked, &self, [this](int frame) { select(frame); });
  connect(film, &FilmStrip::moveAsked, &self, [this](int from, int to) { moveFrame(from, to); });
  connect(picDisp, &GifField::runningChanged, &self, [this](bool running) {
    enableControls();
    for (SessionPanel* panel : panels) panel->animationChanged(running);
  });
  film->setMovable(true);
}

theme::PictureButton* frmRuvoGIFani::Private::addButton(QWidget* row, const QString& name, const char* picture,
                                                        const QString& tip, const std::function<void()>& clicked) {
  auto* button = new theme::PictureButton(name, QString::fromLatin1(picture), tip, row);
  button->setFixedSize(kButtonSide, kButtonSide);
  connect(button, &QToolButton::clicked, &self, [clicked] { clicked(); });
  row->layout()->addWidget(button);
  return button;
}

// "fraOperation" 0.
QWidget* frmRuvoGIFani::Private::buildCommands() {
  auto* bar = new theme::Panel(theme::Panel::Border::Bottom, &self);
  bar->setObjectName(controlName("fraOperation", 0));
  auto* outer = new QHBoxLayout(bar);
  outer->setContentsMargins(kMargin - 4, 5, kMargin, 6);
  auto* row = new QWidget(bar);
  row->setObjectName("picMain");
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(2);
  for (int i = 0; i < kSessionCommandCount; ++i) {
    const SessionCommandRow& command = sessionCommands()[static_cast<std::size_t>(i)];
    if (command.beginsGroup) {
      line->addSpacing(4);
      line->addWidget(theme::divider(Qt::Vertical, row));
      line->addSpacing(4);
    }
    cmdGIFaniMain[static_cast<std::size_t>(i)] =
        addButton(row, controlName("cmdGIFaniMain", i), command.picture, withShortcut(command.tip, command.shortcut),
                  [this, i] { self.cmdGIFaniMain_Click(i); });
  }
  outer->addWidget(row);
  outer->addStretch();
  return bar;
}

// Which frame is selected, and what it is like.
QWidget* frmRuvoGIFani::Private::buildFrameRow() {
  auto* row = new QWidget(&self);
  QHBoxLayout* line = rowLayout(row, 4);
  line->addWidget(theme::label("Frame:", row));
  cboFrame = theme::combo("cboFrame", {}, -1, 64, row);
  cboFrame->setAccessibleName("Frame");
  line->addWidget(cboFrame);
  cmdPrevious =
      addButton(row, "cmdPrevious", "gif_previous", withShortcut("Previous frame", "Alt+Left"), [this] { step(-1); });
  cmdNext = addButton(row, "cmdNext", "gif_next", withShortcut("Next frame", "Alt+Right"), [this] { step(1); });
  cboFrameData = theme::combo("cboFrameData", {}, -1, 0, row);
  cboFrameData->setAccessibleName("Settings of the frames");
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(cboFrameData->font().pointSizeF() * 0.92);
  cboFrameData->setFont(font);
  line->addWidget(cboFrameData, 1);
  cmdListDataSummary = addButton(row, "cmdListDataSummary", "gif_summary", "Summary of settings of individual frames",
                                 [this] { listSummary(); });
  for (QComboBox* list : {cboFrame, cboFrameData})
    connect(list, &QComboBox::currentIndexChanged, &self, [this](int index) { listClicked(index); });
  return row;
}

// How the frame is shown and exported, and how bright it is.
QWidget* frmRuvoGIFani::Private::buildOptionRow() {
  auto* row = new QWidget(&self);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(4);
  QStringList patterns;
  for (const char* item : kBgdPatternNames) patterns << QString::fromLatin1(item);
  cboBgdPattern = theme::combo("cboBgdPattern", patterns, 0, 0, row);
  cboBgdPattern->setMaximumWidth(kPatternWidth);
  cboBgdPattern->setToolTip("What shows through where a frame is transparent");
  line->addWidget(cboBgdPattern, 1);
  connect(cboBgdPattern, &QComboBox::currentIndexChanged, &self, [this] {
    picDisp->setPattern(pattern());
    film->setPattern(pattern());
  });
  static constexpr const char* kPictures[] = {"brighten", "darken", "undo"};
  static constexpr const char* kTips[] = {"Brighten palette", "Darken palette", "Undo brighten/darken"};
  for (int i = 0; i < 3; ++i)
    cmdPaletteBrightenDarken[static_cast<std::size_t>(i)] = addButton(
        row, controlName("cmdPaletteBrightenDarken", i), kPictures[i], kTips[i], [this, i] { brightenOrDarken(i); });
  line->addStretch();
  ckbSaveAsTransparent = namedCheckBox("ckbSaveAsTransparent", "Save as transparent", row);
  ckbSaveAsTransparent->setToolTip("An extracted frame keeps its transparent color");
  ckbSaveAsTransparent->setChecked(true);
  ckbAtFullFrameSize = namedCheckBox("ckbAtFullFrameSize", "At full frame size", row);
  ckbAtFullFrameSize->setToolTip("An extracted frame has the size of the background, not its own");
  line->addWidget(ckbSaveAsTransparent);
  line->addSpacing(6);
  line->addWidget(ckbAtFullFrameSize);
  return row;
}

void frmRuvoGIFani::Private::buildPanels(QVBoxLayout& column) {
  minimise = new MinimizePanel(self, self.centralWidget());
  settings = new SettingsPanel(self, self.centralWidget());
  series = new SeriesPanel(self, self.centralWidget());
  resize = new ResizePanel(self, self.centralWidget());
  panels = {minimise, settings, series, resize};
  for (SessionPanel* panel : panels) {
    column.addWidget(panel);
    connect(panel, &SessionPanel::closed, &self, [this] {
      enableControls();
      film->setFocus();
    });
  }
  connect(series, &SeriesPanel::settingsAsked, &self, [this] { run(kChangeSettings); });
}

QWidget* frmRuvoGIFani::Private::buildStatus() {
  auto* bar = new theme::Panel(theme::Panel::Border::Top, &self);
  bar->setFixedHeight(kBarHeight);
  auto* line = rowLayout(bar, 10);
  const auto add = [&](QLabel*& label, const char* name) {
    if (line->count() > 0) {
      QFrame* rule = theme::divider(Qt::Vertical, bar);
      rule->setFixedHeight(kBarHeight - 12);
      line->addWidget(rule);
    }
    label = namedLabel(QString::fromLatin1(name), QString(), bar);
    line->addWidget(label);
  };
  add(lblCurrentFrameCount, "lblCurrentFrameCount");
  add(lblBgdInfo, "lblBgdInfo");
  add(lblRunningTime, "lblRunningTime");
  line->addStretch();
  picProgress = new ucProgress(bar);
  picProgress->setObjectName("picProgress");
  picProgress->setBorderStyle(0);
  picProgress->setBackColor(theme::roles().pressed);
  picProgress->setForeColor(theme::roles().accent);
  picProgress->setFixedSize(kProgressWidth, 8);
  picProgress->setVisible(false);
  line->addWidget(picProgress);
  add(lblFileSize, "lblFileSize");
  return bar;
}

void frmRuvoGIFani::Private::buildMenus() {
  menus = std::make_unique<MenuSet>(sessionMenuTable(), kScopeBoth, &self,
                                    [this](const QString& control, int index) { menuTriggered(control, index); });
  for (QMenu* menu : menus->menus()) self.menuBar()->addMenu(menu);
}

// A key that a menu row has already is not given to the button as well: neither would get it then.
void frmRuvoGIFani::Private::addShortcuts() {
  const auto add = [this](const char* keys, const std::function<void()>& act) {
    connect(new QShortcut(QKeySequence(QString::fromLatin1(keys)), &self), &QShortcut::activated, &self,
            [act] { act(); });
  };
  const auto inMenu = [](const char* keys) {
    const auto has = [keys](const MenuRow& row) { return QLatin1String(row.shortcut) == QLatin1String(keys); };
    return std::ranges::any_of(sessionMenuTable(), has);
  };
  for (int i = 0; i < kSessionCommandCount; ++i) {
    const char* keys = sessionCommands()[static_cast<std::size_t>(i)].shortcut;
    if (*keys && !inMenu(keys)) add(keys, [this, i] { self.cmdGIFaniMain_Click(i); });
  }
  add("Alt+Left", [this] { step(-1); });
  add("Alt+Right", [this] { step(1); });
}

// --- On the screen

void frmRuvoGIFani::Private::restorePlacement() {
  const QRect free = self.screen()->availableGeometry();
  const Size least = {std::min(kLeastSize.width, free.width()), std::min(kLeastSize.height, free.height())};
  self.setMinimumSize(least.width, least.height);
  const WindowPlacement stored = link.placement(kPlacementSection);
  const Rect place =
      placeOnScreen(stored, Rect::fromSize(free.x(), free.y(), free.width(), free.height()), kUsualSize, least);
  // The place is that of the frame: its title bar stays on the screen.
  self.move(place.left, place.top);
  self.resize(place.width(), place.height());
  if (stored.state == WindowState::Maximised) self.setWindowState(Qt::WindowMaximized);
}

void frmRuvoGIFani::Private::storePlacement() {
  const QRect inner = self.isMaximized() || self.isMinimized() ? self.normalGeometry() : self.geometry();
  const QRect normal = inner.translated(self.pos() - self.geometry().topLeft());
  link.setPlacement(kPlacementSection, {.left = normal.x(),
                                        .top = normal.y(),
                                        .width = normal.width(),
                                        .height = normal.height(),
                                        .state = self.isMaximized()   ? WindowState::Maximised
                                                 : self.isMinimized() ? WindowState::Minimised
                                                                      : WindowState::Normal});
}

}  // namespace ruvo
