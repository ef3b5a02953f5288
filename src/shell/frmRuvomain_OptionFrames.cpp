#include "shell/frmRuvomain_OptionFrames.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "shell/polygon_specimen.h"
#include "shell/shell_controls.h"

namespace ruvo::shell {
namespace {

constexpr int kSmallCombo = 76;
constexpr int kPreviewSide = 34;
constexpr int kButtonAir = 10;
constexpr int kCustomBrush = 8;
constexpr int kCustomPattern = 9;

constexpr std::array<const char*, kOptionFrameCount> kFrameCaptions = {
    "Paint brush style",      "Fill pattern",     "Polygon draw option", "Line type",    "Filled Bezier color",
    "Rectangle corner shape", "Oval enhancement", "Stamp source",        "Spray option", "Region extra option"};

QStringList percents() {
  QStringList items;
  for (int percent = 100; percent >= 20; percent -= 5) items << QString::number(percent);
  return items;
}

QStringList numbers(int from, int to) {
  QStringList items;
  for (int n = from; n <= to; ++n) items << QString::number(n);
  return items;
}

// Tenths from one to another, written as people do: 1, 0.9, 0.8 ...
QStringList tenths(int from, int to) {
  QStringList items;
  for (int n = from; n != to + (from < to ? 1 : -1); n += from < to ? 1 : -1) items << QString::number(n / 10.0);
  return items;
}

QLabel* preview(const QString& name, const QString& tip, QWidget* parent) {
  auto* box = new QLabel(parent);
  box->setObjectName(name);
  box->setToolTip(tip);
  box->setFixedSize(kPreviewSide, kPreviewSide);
  box->setAlignment(Qt::AlignCenter);
  box->setFrameShape(QFrame::StyledPanel);
  // Nothing is shown until something is loaded.
  box->hide();
  return box;
}

void showPicture(QLabel* box, const QImage& picture) {
  box->setVisible(!picture.isNull());
  if (picture.isNull()) return;
  const qreal ratio = box->devicePixelRatioF();
  const QSize room = (QSizeF(kPreviewSide - 4, kPreviewSide - 4) * ratio).toSize();
  QImage shown = picture.width() > room.width() || picture.height() > room.height()
                     ? picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                     : picture;
  shown.setDevicePixelRatio(ratio);
  box->setPixmap(QPixmap::fromImage(shown));
}

QPushButton* loadButton(const QString& name, const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setToolTip(text);
  button->setFocusPolicy(Qt::TabFocus);
  // The frame is as wide as its widest button: that one needs air beside its text, too.
  button->setMinimumWidth(button->sizeHint().width() + kButtonAir);
  return button;
}

QVBoxLayout* column(QWidget* frame) {
  return static_cast<QVBoxLayout*>(frame->layout());
}

}  // namespace

void OptionArray::choose(int index) {
  value = index;
  for (int i = 0; i < options.size(); ++i) options[i]->setChecked(i == index);
  if (chosenName != nullptr) chosenName->setText(options[index]->accessibleName());
}

OptionFrames::OptionFrames(QWidget* parent, Calls calls) : Panel(Border::Frame, parent), calls_(std::move(calls)) {
  setObjectName("fraOptionHost");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (int i = 0; i < kOptionFrameCount; ++i) {
    auto* frame = new QWidget(this);
    frame->setObjectName(controlName("fraOption", i));
    auto* inner = new QVBoxLayout(frame);
    inner->setContentsMargins(9, 7, 9, 9);
    inner->setSpacing(6);
    inner->addWidget(label(kFrameCaptions[static_cast<std::size_t>(i)], frame, LabelKind::Heading));
    frame->hide();
    frames_[static_cast<std::size_t>(i)] = frame;
    layout->addWidget(frame);
  }
  buildBrushFrame();
  buildFillFrame();
  buildPolygonFrame();
  buildLineFrame();
  buildBezierFrame();
  buildRectangleFrame();
  buildOvalFrame();
  buildStampFrame();
  buildSprayFrame();
  buildRegionFrame();
  hide();
}

int OptionFrames::widestFrame() const {
  int widest = 0;
  for (QWidget* frame : frames_) widest = std::max(widest, frame->minimumSizeHint().width());
  return widest;
}

void OptionFrames::SetOptionFrame(int index) {
  for (int i = 0; i < kOptionFrameCount; ++i) frames_[static_cast<std::size_t>(i)]->setVisible(i == index);
  setVisible(index >= 0);
  shown_ = index;
}

void OptionFrames::addTiles(QWidget* frame, OptionArray& array, const Tiles& tiles, std::function<bool(int)> allowed,
                            std::function<void()> changed) {
  auto* grid = new QGridLayout;
  grid->setSpacing(2);
  for (int i = 0; i < tiles.captions.size(); ++i) {
    auto* tile = new PictureOption(controlName(tiles.optionArray, i), controlName(tiles.pictureArray, i),
                                   QStringLiteral("%1_%2").arg(tiles.picture).arg(i), tiles.captions[i], frame);
    connect(tile, &QToolButton::clicked, this, [&array, i, allowed, changed] {
      if (allowed && !allowed(i)) return;
      array.choose(i);
      changed();
    });
    array.options << tile;
    grid->addWidget(tile, i / tiles.columns, i % tiles.columns);
  }
  grid->setColumnStretch(tiles.columns, 1);
  array.chosenName = label(QString(), frame, LabelKind::Quiet);
  array.chosenName->setWordWrap(true);
  column(frame)->addLayout(grid);
  column(frame)->addWidget(array.chosenName);
  array.choose(0);
}

void OptionFrames::addRadios(QWidget* frame, OptionArray& array, const char* name, const QStringList& captions,
                             const char* picture, std::function<void()> changed) {
  for (int i = 0; i < captions.size(); ++i) {
    auto* radio = new QRadioButton(captions[i], frame);
    radio->setObjectName(controlName(name, i));
    radio->setFocusPolicy(Qt::TabFocus);
    if (picture != nullptr) radio->setIcon(theme::icon(QStringLiteral("%1_%2").arg(picture).arg(i)));
    connect(radio, &QRadioButton::toggled, this, [&array, i, changed](bool on) {
      if (!on || array.value == i) return;
      array.value = i;
      changed();
    });
    array.options << radio;
    column(frame)->addWidget(radio);
  }
  array.choose(0);
}

QComboBox* OptionFrames::addCombo(QWidget* frame, const QString& caption, const QString& name, const QStringList& items,
                                  int first, Call call) {
  auto* row = new QHBoxLayout;
  row->setSpacing(4);
  QComboBox* box = combo(name, items, first, caption.isEmpty() ? 0 : kSmallCombo, frame);
  if (!caption.isEmpty()) {
    auto* text = label(caption, frame);
    text->setBuddy(box);
    row->addWidget(text);
    row->addStretch();
  }
  row->addWidget(box);
  column(frame)->addLayout(row);
  connect(box, &QComboBox::currentIndexChanged, this, [this, call] { calls_.tell(call); });
  return box;
}

bool OptionFrames::brushAllowed(int style) {
  if (style != kCustomBrush || brushLoaded_) return true;
  desktop::desktop().message(this, "No custom brush loaded yet.\n\n(To load a custom brush, click the Button).",
                             desktop::Icon::Information);
  return false;
}

bool OptionFrames::patternAllowed(int pattern) {
  if (pattern != kCustomPattern || patternLoaded_) return true;
  desktop::desktop().message(this, "No custom Pattern loaded yet.\n\n(To load a custom Pattern, click the Button).",
                             desktop::Icon::Information);
  return false;
}

void OptionFrames::buildBrushFrame() {
  QWidget* frame = frames_[0];
  addTiles(
      frame, brushStyle_,
      {"optBrushStyle",
       "imgBrushStyle",
       "brush",
       {"Normal brush", "Round brush", "Smoothed round brush", "Spray brush", "Backward diagonal brush",
        "Forward diagonal brush", "Vertical brush", "Horizontal brush", "Custom brush"},
       5},
      [this](int style) { return brushAllowed(style); },
      [this] {
        customBrushRow_->setVisible(brushStyle_.value == kCustomBrush);
        calls_.tell(&frmRuvoPaint::Notify_BrushStyle_FromMDI);
      });
  brushOpaque_ = addCombo(frame, "Opaque %", "cboPaintBrushTranslucencyPercent", percents(), 0,
                          &frmRuvoPaint::Notify_PaintBrushTranslucencyPercent_FromMDI);
  auto* load = loadButton("cmdCustomBrush", "Load custom brush image", frame);
  connect(load, &QPushButton::clicked, this, [this] { calls_.tell(&frmRuvoPaint::Do_cmdCustomBrushClick); });
  column(frame)->addWidget(load);

  // What only the custom brush uses is shown with it.
  customBrushRow_ = new QWidget(frame);
  auto* column = new QVBoxLayout(customBrushRow_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(6);
  auto* pictures = new QHBoxLayout;
  picCustomBrush_ = preview("picCustomBrush", "Custom brush image", customBrushRow_);
  picCustomBrushMask_ = preview("picCustomBrushMask", "Custom brush mask", customBrushRow_);
  pictures->addWidget(picCustomBrush_);
  pictures->addWidget(picCustomBrushMask_);
  pictures->addStretch();
  column->addLayout(pictures);
  customShape_ = combo("cboCustomBrushShape", {"As Oval", "Rectangle"}, 0, 0, customBrushRow_);
  customShape_->setToolTip("Custom brush shape");
  customManner_ = combo("cboCustomBrushApplyManner", {"Normal", "Overlap"}, 0, 0, customBrushRow_);
  customManner_->setToolTip("Custom brush apply manner");
  column->addWidget(customShape_);
  column->addWidget(customManner_);
  connect(customShape_, &QComboBox::currentIndexChanged, this,
          [this] { calls_.tell(&frmRuvoPaint::Notify_CustomBrushShape_FromMDI); });
  connect(customManner_, &QComboBox::currentIndexChanged, this,
          [this] { calls_.tell(&frmRuvoPaint::Notify_CustomBrushApplyManner_FromMDI); });
  static_cast<QVBoxLayout*>(frame->layout())->addWidget(customBrushRow_);
  customBrushRow_->hide();
}

void OptionFrames::buildFillFrame() {
  QWidget* frame = frames_[1];
  addTiles(
      frame, fillPattern_,
      {"optFillPattern",
       "imgPatternOption",
       "pattern",
       {"Solid", "Dot - style 1", "Dot - style 2", "Horizontal line", "Vertical line", "Forward diagonal",
        "Backward diagonal", "Cross", "Diagonal cross", "Custom pattern"},
       5},
      [this](int pattern) { return patternAllowed(pattern); },
      [this] { calls_.tell(&frmRuvoPaint::Notify_FillPattern_FromMDI); });
  auto* load = loadButton("cmdCustomPattern", "Load custom pattern image", frame);
  connect(load, &QPushButton::clicked, this, [this] { calls_.tell(&frmRuvoPaint::Do_cmdCustomPatternClick); });
  column(frame)->addWidget(load);
  picCustomPattern_ = preview("picCustomPattern", "Custom pattern image", frame);
  column(frame)->addWidget(picCustomPattern_);
}

void OptionFrames::buildPolygonFrame() {
  QWidget* frame = frames_[2];
  addRadios(frame, polygonMethod_, "optPolygonDrawMethod", {"Manual", "Auto "}, nullptr, [this] {
    showPolygonParts();
    calls_.tell(&frmRuvoPaint::Notify_PolygonDrawMethod_FromMDI);
  });
  polygonOperation_ = addCombo(
      frame, QString(), "cboPolygonOperationType",
      {" 1.    Outline", " 2.    Filled", " 3.    Clear inside", " 4.    1 & Clipboard", " 5.    2 & Clipboard",
       " 6.    3 & Clipboard", " 7.    1 & Crop", " 8.    2 & Crop", " 9.    3 & Crop"},
      0, &frmRuvoPaint::Notify_PolygonOperationType_FromMDI);
  polygonAuto_ = new QWidget(frame);
  auto* inner = new QVBoxLayout(polygonAuto_);
  inner->setContentsMargins(0, 0, 0, 0);
  inner->setSpacing(4);
  const struct {
    const char* caption;
    QStringList items;
    int first;
  } settings[] = {{"Vertices", numbers(3, 8), 3},
                  {"Radius", numbers(15, 200), 35},
                  {"(Concave)", tenths(10, 2), 0},
                  {"Angle", numbers(0, 360), 0}};
  for (int i = 0; i < 4; ++i)
    polygonSetting_[static_cast<std::size_t>(i)] =
        addCombo(polygonAuto_, settings[i].caption, controlName("cboPolygonSetting", i), settings[i].items,
                 settings[i].first, &frmRuvoPaint::Notify_PolygonSetting_FromMDI);
  auto* specimen = new PolygonSpecimen("picPolygonAutoSpecimen", polygonAuto_);
  specimen_ = specimen;
  inner->addWidget(specimen, 0, Qt::AlignHCenter);
  for (QComboBox* setting : polygonSetting_)
    connect(setting, &QComboBox::currentIndexChanged, this, [this] { showPolygonParts(); });
  column(frame)->addWidget(polygonAuto_);
  showPolygonParts();
}

void OptionFrames::showPolygonParts() {
  polygonAuto_->setVisible(polygonMethod_.value == 1);
  static_cast<PolygonSpecimen*>(specimen_)->setFigure(polygonSetting_[0]->currentText().toInt(),
                                                      polygonSetting_[2]->currentText().toDouble(),
                                                      polygonSetting_[3]->currentText().toInt());
}

void OptionFrames::setSpecimenColour(const QColor& colour) {
  static_cast<PolygonSpecimen*>(specimen_)->setColour(colour);
}

void OptionFrames::buildLineFrame() {
  QWidget* frame = frames_[3];
  addTiles(frame, lineType_,
           {"optLineType",
            "imgToolOptionLine",
            "line",
            {"Solid  non-square brush", "Solid  square brush", "Dash", "Dot", "Dash Dot", "Dash Dot Dot",
             "Solid - arrow at one end", "Solid  - arrow at both ends", "Antialiased solid line"},
            4},
           nullptr, [this] { calls_.tell(&frmRuvoPaint::Notify_LineType_FromMDI); });
  const QString bothEnds = lineType_.options[7]->toolTip() + "  (Auto antialiasing if brush is 2)";
  lineType_.options[7]->setToolTip(bothEnds);
  if (auto* picture = frame->findChild<QWidget*>(controlName("imgToolOptionLine", 7))) picture->setToolTip(bothEnds);
  auto* antialias = label("Antialias", frame);
  antialias->setObjectName("lblAntialias");
  antialias->setToolTip("Antialiased line  (fixed brush at 2 only)");
  auto* grid = static_cast<QGridLayout*>(column(frame)->itemAt(1)->layout());
  grid->addWidget(antialias, 2, 1, 1, 4);
}

void OptionFrames::buildBezierFrame() {
  QWidget* frame = frames_[4];
  auto* row = new QHBoxLayout;
  row->setSpacing(2);
  bezierBox_ = new ColorBox("picColorToUse(2)",
                            "Color for Bezier curve fill  (Left click for color value.  Right click if copy from first "
                            "color)",
                            kWhite, frame);
  row->addWidget(bezierBox_);
  row->addStretch();
  for (QToolButton* button : paletteButtons(2, frame, calls_.palette)) row->addWidget(button);
  column(frame)->addLayout(row);
}

void OptionFrames::buildRectangleFrame() {
  addTiles(frames_[5], rectangleCorner_,
           {"optRectangleCornerShape",
            "imgRectangleOption",
            "rect",
            {"Normal", "Small rounded", "Medium rounded", "Large rounded"},
            4},
           nullptr, [this] { calls_.tell(&frmRuvoPaint::Notify_RectangleCornerShape_FromMDI); });
}

void OptionFrames::buildOvalFrame() {
  addRadios(frames_[6], ovalEnhancement_, "optOvalEnhancement", {"Normal", "Antialiasing"}, "oval",
            [this] { calls_.tell(&frmRuvoPaint::Notify_OvalEnhancement_FromMDI); });
}

void OptionFrames::buildStampFrame() {
  QWidget* frame = frames_[7];
  stampStyle_ = addCombo(frame, QString(), "cboStampStyle", {"Stamp Original", "Texture Emboss", "Texture Engrave"}, 0,
                         &frmRuvoPaint::Notify_StampStyle_FromMDI);
  stampWeightRow_ = new QWidget(frame);
  auto* row = new QHBoxLayout(stampWeightRow_);
  row->setContentsMargins(0, 0, 0, 0);
  auto* caption = label("Weight", stampWeightRow_);
  caption->setObjectName("lblStampTextureWeight");
  const QStringList weights = tenths(1, 10);
  stampWeight_ =
      combo("cboStampTextureWeight", weights, static_cast<int>(weights.size()) - 1, kSmallCombo, stampWeightRow_);
  row->addWidget(caption);
  row->addStretch();
  row->addWidget(stampWeight_);
  column(frame)->addWidget(stampWeightRow_);
  connect(stampWeight_, &QComboBox::currentIndexChanged, this,
          [this] { calls_.tell(&frmRuvoPaint::Notify_StampTextureWeight_FromMDI); });
  connect(stampStyle_, &QComboBox::currentIndexChanged, this, [this] { showStampWeight(); });

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(4);
  const char* texts[] = {"Load image", "Load text"};
  for (int i = 0; i < 2; ++i) {
    auto* load = loadButton(controlName("cmdStampLoad", i), texts[i], frame);
    connect(load, &QPushButton::clicked, this, [this, i] { calls_.loadStamp(i); });
    buttons->addWidget(load);
  }
  column(frame)->addLayout(buttons);
  auto* pictures = new QHBoxLayout;
  picStamp_ = preview("picStamp", "Stamp image", frame);
  picStampMask_ = preview("picStampMask", "Stamp mask", frame);
  pictures->addWidget(picStamp_);
  pictures->addWidget(picStampMask_);
  pictures->addStretch();
  column(frame)->addLayout(pictures);
  showStampWeight();
}

void OptionFrames::showStampWeight() {
  stampWeightRow_->setVisible(stampStyle_->currentIndex() > 0);
}

void OptionFrames::buildSprayFrame() {
  sprayDensity_ = addCombo(frames_[8], "Density", "cboSprayDensity", {"Low", "Medium", "High"}, 1,
                           &frmRuvoPaint::Notify_SprayDensity_FromMDI);
  sprayOpaque_ = addCombo(frames_[8], "Opaque %", "cboSprayTranslucencyPercent", percents(), 0,
                          &frmRuvoPaint::Notify_SprayTranslucencyPercent_FromMDI);
}

void OptionFrames::buildRegionFrame() {
  QWidget* frame = frames_[9];
  const struct {
    const char* text;
    const char* tip;
  } rows[] = {{"Create border", "Create border of region"},
              {"Add dropdown\nshadow to region", "Add dropdown shadow to region"}};
  for (int i = 0; i < 2; ++i) {
    auto* button = loadButton(controlName("cmdRegionOperation", i), rows[i].text, frame);
    button->setToolTip(rows[i].tip);
    connect(button, &QPushButton::clicked, this, [this, i] { calls_.regionOperation(i); });
    column(frame)->addWidget(button);
  }
}

void OptionFrames::readInto(ToolboxState& state) const {
  state.brushStyle = brushStyle_.value;
  state.paintBrushTranslucencyPercent = brushOpaque_->currentText().toInt();
  state.customBrushShape = customShape_->currentIndex();
  state.customBrushApplyManner = customManner_->currentIndex();
  state.fillPattern = fillPattern_.value;
  state.polygonDrawMethod = polygonMethod_.value;
  state.polygonOperationType = polygonOperation_->currentIndex();
  state.polygonNumPoints = polygonSetting_[0]->currentText().toInt();
  state.polygonRadius = polygonSetting_[1]->currentText().toInt();
  state.polygonConcaveFactor = polygonSetting_[2]->currentText().toFloat();
  state.polygonAngle = polygonSetting_[3]->currentText().toInt();
  state.lineType = lineType_.value;
  state.rectangleCornerShape = rectangleCorner_.value;
  state.ovalEnhancement = ovalEnhancement_.value;
  state.stampStyle = stampStyle_->currentIndex();
  state.stampTextureWeight = stampWeight_->currentText().toFloat();
  state.sprayDensity = sprayDensity_->currentIndex();
  state.sprayTranslucencyPercent = sprayOpaque_->currentText().toInt();
  state.bezierFillColor = bezierBox_->BackColor();
}

void OptionFrames::setCustomPictures(const CustomPictures& pictures) {
  brushLoaded_ = !pictures.brush.isNull();
  patternLoaded_ = !pictures.pattern.isNull();
  showPicture(picCustomBrush_, pictures.brush);
  showPicture(picCustomBrushMask_, pictures.brushMask);
  showPicture(picCustomPattern_, pictures.pattern);
  showPicture(picStamp_, pictures.stamp);
  showPicture(picStampMask_, pictures.stampMask);
}

}  // namespace ruvo::shell
