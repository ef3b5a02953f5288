#include "shell/frmRuvomain_Toolbar.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPainter>
#include <QResizeEvent>

#include "base/limits.h"
#include "document/menu_table.h"
#include "platform/theme/theme.h"
#include "shell/shell_controls.h"

namespace ruvo::shell {
namespace {

constexpr int kMaxMagnify = 8;
constexpr int kMaxGlass = 8;
constexpr int kMinGlass = 2;

constexpr std::array<EditButton, kEditButtonCount> kEditButtons = {{
    {"undo_all", "Undo all", "mnuEditUndoAll", -1},
    {"undo", "Undo", "mnuEditUndo", -1},
    {"redo", "Redo", "mnuEditRedo", -1},
    {"cut", "Delete/erase region", "mnuEditCut", -1},
    {"copy", "Copy", "mnuEditCopy", -1},
    {"paste", "Paste opaque", "mnuEditPaste", -1},
    {"paste_transparent", "Paste transparent (per top pixel)", "mnuEditPasteTransparent", -1},
    {"flip_h", "Flip horizontal", "mnuRotateSub", 0},
    {"flip_v", "Flip vertical", "mnuRotateSub", 1},
    {"turn_left", "Turn left 90 degree", "mnuRotateSub", 2},
    {"turn_right", "Turn right 90 degree", "mnuRotateSub", 3},
    {"brighten", "Brighten", "mnuEffectsBrightenSub", 0},
    {"darken", "Darken", "mnuEffectsDarkenSub", 0},
}};

// Where a group of edit buttons begins.
constexpr std::array<int, 4> kEditGroupStarts = {0, 3, 7, 11};

const MenuRow* menuRow(const EditButton& button) {
  for (const MenuRow& row : menuTable())
    if (QLatin1String(row.control) == QLatin1String(button.control) && row.index == button.index) return &row;
  return nullptr;
}

QString withShortcut(const QString& tip, const QString& shortcut) {
  return shortcut.isEmpty() ? tip : tip + "  (" + shortcut + ")";
}

}  // namespace

const std::array<EditButton, kEditButtonCount>& editButtons() {
  return kEditButtons;
}

Toolbar::Toolbar(QWidget* parent, Calls calls) : Panel(Border::Bottom, parent), calls_(std::move(calls)) {
  setObjectName("picToolbar");
  buildFileAndEdit();
  buildGlassAndMode();
  buildPaintFrame();
  buildViewFrame();
  setViewMode(false);
  disableAll();
}

QWidget* Toolbar::addGroup() {
  auto* group = new QWidget(this);
  group->setObjectName(controlName("picContainer", static_cast<int>(groups_.size())));
  auto* row = new QHBoxLayout(group);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  groups_.push_back(group);
  return group;
}

PictureButton* Toolbar::addButton(QWidget* group, const QString& name, const QString& picture, const QString& tip,
                                  const std::function<void()>& clicked) {
  auto* button = new PictureButton(name, picture, tip, group);
  if (clicked) connect(button, &QToolButton::clicked, this, [clicked] { clicked(); });
  group->layout()->addWidget(button);
  buttons_.push_back(button);
  return button;
}

void Toolbar::buildFileAndEdit() {
  QWidget* file = addGroup();
  addButton(file, "cmdNew", "new", withShortcut("New", "Ctrl+N"), calls_.newPicture);
  addButton(file, "cmdOpen", "open", withShortcut("Open", "Ctrl+O"), calls_.openPicture);
  // The assembler of frames is not built yet.
  QWidget* animation = addGroup();
  addButton(animation, "cmdGIFaniNew", "ani_new", "Assemble frames from files", {})->setEnabled(false);
  addButton(animation, "cmdGIFaniOpen", "ani_open", withShortcut("Open animated GIF file", "Ctrl+G"),
            calls_.openAnimation);

  QWidget* group = nullptr;
  for (int i = 0; i < kEditButtonCount; ++i) {
    const EditButton& row = kEditButtons[static_cast<std::size_t>(i)];
    if (std::find(kEditGroupStarts.begin(), kEditGroupStarts.end(), i) != kEditGroupStarts.end()) group = addGroup();
    const MenuRow* menu = menuRow(row);
    const QString tip = withShortcut(row.tip, menu != nullptr ? QString::fromLatin1(menu->shortcut) : QString());
    edit_[static_cast<std::size_t>(i)] =
        addButton(group, controlName("cmdEditTB", i), row.picture, tip, [this, i] { calls_.edit(i); });
  }
}

void Toolbar::buildGlassAndMode() {
  QWidget* glass = addGroup();
  glass_ = addButton(glass, "cmdGlass", "glass", "Magnifying glass  (right click: flat or convex)",
                     [this] { calls_.glass(); });
  QStringList factors;
  for (int factor = kMinGlass; factor <= kMaxGlass; ++factor) factors << QString::number(factor);
  glassBox_ = combo("cboGlass", factors, 0, 46, glass);
  glassBox_->setToolTip("x 100 %  (Magnifying Glass)");
  // Picked by the mouse, a factor leaves the keys with the picture.
  glassBox_->setFocusPolicy(Qt::TabFocus);
  glass->layout()->addWidget(glassBox_);
  connect(glassBox_, &QComboBox::currentIndexChanged, this, [this] { calls_.glassFactor(); });
  convex_ = new QAction("Convex glass", this);
  convex_->setObjectName("ckbConvexGlass");
  convex_->setCheckable(true);
  connect(convex_, &QAction::toggled, this, [this] { calls_.glassFactor(); });
  for (QWidget* control : {static_cast<QWidget*>(glass_), static_cast<QWidget*>(glassBox_)}) {
    control->setContextMenuPolicy(Qt::ActionsContextMenu);
    control->addAction(convex_);
  }

  QWidget* mode = addGroup();
  mode_[0] = addButton(mode, "cmdMode(0)", "mode_view", "Switch to View mode", [this] { calls_.mode(0); });
  mode_[1] = addButton(mode, "cmdMode(1)", "mode_paint", "Switch to Paint mode", [this] { calls_.mode(1); });
}

void Toolbar::buildPaintFrame() {
  paintFrame_ = addGroup();
  paintFrame_->setObjectName("fraPaintMagnify");
  static constexpr const char* kPictures[] = {"zoom_in", "zoom_out", "zoom_original"};
  const QString tips[] = {withShortcut("Zoom in", "+"), withShortcut("Zoom out", "-"), "Original"};
  for (int i = 0; i < 3; ++i)
    zoom_[static_cast<std::size_t>(i)] =
        addButton(paintFrame_, controlName("cmdZoom", i), kPictures[i], tips[i], [this, i] { calls_.zoom(i); });
  QStringList factors;
  for (int factor = 1; factor <= kMaxMagnify; ++factor) factors << QString::number(factor);
  magnifyBox_ = combo("cboMagnify", factors, 0, 46, paintFrame_);
  magnifyBox_->setToolTip("x 100 %  (Image magnification factor)");
  magnifyBox_->setFocusPolicy(Qt::TabFocus);
  paintFrame_->layout()->addWidget(magnifyBox_);
  connect(magnifyBox_, &QComboBox::currentIndexChanged, this, [this] { calls_.magnify(); });
}

void Toolbar::buildViewFrame() {
  viewFrame_ = addGroup();
  viewFrame_->setObjectName("fraViewMagnify");
  static constexpr const char* kPictures[] = {"zoom_in", "zoom_out", "zoom_original"};
  const QString tips[] = {withShortcut("Zoom in", "+"), withShortcut("Zoom out", "-"), "Original"};
  for (int i = 0; i < 3; ++i)
    zoom_[static_cast<std::size_t>(i + 3)] =
        addButton(viewFrame_, controlName("cmdZoom", i + 3), kPictures[i], tips[i], [this, i] { calls_.zoom(i + 3); });
  scaleBox_ = new QLineEdit("1", viewFrame_);
  scaleBox_->setObjectName("txbZoomScale");
  scaleBox_->setToolTip("x 100 %  (Scale)");
  scaleBox_->setFixedWidth(44);
  scaleBox_->setAlignment(Qt::AlignRight);
  scaleBox_->setValidator(new QIntValidator(1, kMaxPictureSide, scaleBox_));
  viewFrame_->layout()->addWidget(scaleBox_);
  connect(scaleBox_, &QLineEdit::editingFinished, this, [this] { scaleEdited(); });
  // Enter gives the keys back to the picture.
  connect(scaleBox_, &QLineEdit::returnPressed, this, [this] { focusBeside(); });
  fitInBox_ = new QCheckBox("Fit-In", viewFrame_);
  fitInBox_->setObjectName("ckbFitIn");
  fitInBox_->setFocusPolicy(Qt::TabFocus);
  viewFrame_->layout()->addWidget(fitInBox_);
  connect(fitInBox_, &QCheckBox::toggled, this, [this] { calls_.fitIn(); });
  upperLeft_ = addButton(viewFrame_, "imgUpperLeft", "upper_left", "To upper left", [this] { calls_.upperLeft(); });
  lowerRight_ =
      addButton(viewFrame_, "imgLowerRight", "lower_right", "To lower right", [this] { calls_.lowerRight(); });
  panoramic_ = addButton(viewFrame_, "imgPanoramic", "panoramic", "Panoramic (toggle)", [this] { calls_.panoramic(); });
}

void Toolbar::scaleEdited() {
  const int scale = scaleBox_->text().toInt();
  if (scale < 1) return setZoomScale(zoomScale_);
  if (scale == zoomScale_) return;
  zoomScale_ = scale;
  calls_.zoomScale();
}

void Toolbar::setViewMode(bool view) {
  view_ = view;
  mode_[0]->setVisible(!view);
  mode_[1]->setVisible(view);
  paintFrame_->setVisible(!view);
  viewFrame_->setVisible(view);
  arrange();
}

void Toolbar::setEditButtons(const EditButtonState& state) {
  for (int i = 0; i < kEditButtonCount; ++i) {
    const bool allowed = i < 2   ? state.undo
                         : i < 3 ? state.redo
                         : i < 5 ? state.region
                         : i < 7 ? state.paste
                                 : state.picture;
    edit_[static_cast<std::size_t>(i)]->setEnabled(allowed);
  }
}

void Toolbar::setZoomButtons(bool in, bool out, bool original) {
  const bool states[] = {in, out, original};
  for (int i = 0; i < kZoomButtonCount; ++i)
    zoom_[static_cast<std::size_t>(i)]->setEnabled((i >= 3) == view_ && states[i % 3]);
  // A fitted picture has no scale of its own.
  scaleBox_->setEnabled(view_ && (in || out));
}

void Toolbar::setScrollButtons(bool corners, bool panoramic) {
  upperLeft_->setEnabled(corners);
  lowerRight_->setEnabled(corners);
  panoramic_->setEnabled(panoramic);
}

void Toolbar::setGlass(bool enabled, bool out) {
  glass_->setEnabled(enabled);
  glass_->setChecked(out);
  glassBox_->setEnabled(enabled);
}

void Toolbar::disableAll() {
  setMagnify(1);
  setZoomButtons(false, false, false);
  setEditButtons({});
  setScrollButtons(false, false);
  setGlass(false, false);
}

int Toolbar::magnify() const {
  return magnifyBox_->currentIndex() + 1;
}

void Toolbar::setMagnify(int magnify) {
  magnifyBox_->setCurrentIndex(std::clamp(magnify, 1, kMaxMagnify) - 1);
}

int Toolbar::glassFactor() const {
  return glassBox_->currentIndex() + kMinGlass;
}

bool Toolbar::convexGlass() const {
  return convex_->isChecked();
}

void Toolbar::setZoomScale(int scale) {
  zoomScale_ = scale;
  scaleBox_->setText(QString::number(scale));
}

bool Toolbar::fitIn() const {
  return fitInBox_->isChecked();
}

void Toolbar::setFitIn(bool checked) {
  fitInBox_->setChecked(checked);
}

void Toolbar::focusBeside(int container) {
  groups_[static_cast<std::size_t>(container)]->setFocus();
}

void Toolbar::setPicture(QWidget* canvas) {
  for (QWidget* group : groups_) group->setFocusProxy(canvas);
}

int Toolbar::widthWithButtons(int side) {
  for (PictureButton* button : buttons_) button->setFixedSize(side, side);
  int width = 0;
  for (QWidget* group : groups_)
    if (!group->isHidden()) width += group->layout()->totalSizeHint().width() + 9;
  return width + 10;
}

void Toolbar::arrange() {
  static constexpr int kSides[] = {32, 30, 28, 26};
  int side = 0;
  for (const int tried : kSides) {
    side = tried;
    if (widthWithButtons(tried) <= width()) break;
  }
  constexpr int kMargin = 6;
  const int rowHeight = side + 2 * kMargin - 2;
  int x = kMargin;
  int y = kMargin - 1;
  dividers_.clear();
  for (QWidget* group : groups_) {
    if (group->isHidden()) continue;
    const int groupWidth = group->layout()->totalSizeHint().width();
    if (x > kMargin && x + 9 + groupWidth > width() - kMargin + 2) {
      x = kMargin;
      y += rowHeight - 4;
    }
    if (x > kMargin) {
      dividers_.push_back(x + 4);
      dividers_.push_back(y);
      x += 9;
    }
    group->setGeometry(x, y, groupWidth, side);
    x += groupWidth;
  }
  setFixedHeight(y + side + kMargin);
  update();
}

void Toolbar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) arrange();
}

void Toolbar::paintEvent(QPaintEvent* event) {
  Panel::paintEvent(event);
  QPainter painter(this);
  for (std::size_t i = 0; i + 1 < dividers_.size(); i += 2)
    painter.fillRect(dividers_[i], dividers_[i + 1] + 4, 1, buttons_.front()->height() - 8, theme::roles().line);
}

}  // namespace ruvo::shell
