#include "document/frmRuvoFileSaveGIForPNG.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "base/paths.h"
#include "base/save_texts.h"
#include "canvas/ucCanvas.h"
#include "dialogs/color_swatch.h"
#include "dialogs/named_controls.h"
#include "document/model/save_rules.h"
#include "platform/desktop/desktop.h"

namespace ruvo {
namespace {

enum TransparencyKind { kSingleColour, kAlphaValues };
constexpr int kNoTool = 18;
constexpr int kLargestMagnify = 8;
constexpr QSize kPictureSide(420, 340);
constexpr int kIndent = 22;
constexpr int kOptionsWidth = 330;

QHBoxLayout* indented(std::initializer_list<QWidget*> widgets) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(kIndent, 0, 0, 0);
  for (QWidget* widget : widgets) row->addWidget(widget);
  row->addStretch();
  return row;
}

}  // namespace

frmRuvoFileSaveGIForPNG::frmRuvoFileSaveGIForPNG(SavePanelMode mode, const clsDIB& picture, const QString& proposed,
                                                 QWidget* parent)
    : QDialog(parent), mode_(mode), folder_(QFileInfo(proposed).path()) {
  setObjectName(QStringLiteral("frmRuvoFileSaveGIForPNG"));
  setWindowTitle(mode == SavePanelMode::Gif ? tr("Save As GIF") : tr("Save As PNG"));

  auto* options = new QVBoxLayout;
  options->addWidget(mode == SavePanelMode::Gif ? buildGifFrame() : buildPngFrame());
  auto* remark = new QLabel(
      tr("NB:  If original image is 24-bit, program will automatically optimize colors on saveing to 8-bit"), this);
  remark->setWordWrap(true);
  remark->setMinimumWidth(kOptionsWidth);
  options->addWidget(remark);
  options->addStretch();

  auto* middle = new QHBoxLayout;
  middle->addWidget(buildPicture(picture), 1);
  middle->addLayout(options);

  auto* proceed = new QPushButton(tr("Proceed"), this);
  auto* abort = new QPushButton(tr("Abort"), this);
  proceed->setObjectName(controlName("cmdFileSaveOptions", 0));
  abort->setObjectName(controlName("cmdFileSaveOptions", 1));
  proceed->setDefault(true);
  connect(proceed, &QPushButton::clicked, this, &frmRuvoFileSaveGIForPNG::accept);
  connect(abort, &QPushButton::clicked, this, &frmRuvoFileSaveGIForPNG::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(proceed);
  buttons->addWidget(abort);

  auto* all = new QVBoxLayout(this);
  all->addLayout(middle, 1);
  all->addWidget(buildSaveTo());
  all->addLayout(buttons);
  saveTo_->setText(proposed);
  pick(clsDIB::GetTopPixelColor(picture, !picture.BottomUp()), {0, 0});
  showEnabled();
  proceed->setFocus();
}

QWidget* frmRuvoFileSaveGIForPNG::buildPicture(const clsDIB& picture) {
  canvas_ = new ucCanvas(this);
  canvas_->setObjectName(QStringLiteral("ucCanvas1"));
  canvas_->setMinimumSize(kPictureSide);
  canvas_->setCanvasBackColor(palette().color(QPalette::Dark));
  canvas_->setCanvasScreenMode(1);
  canvas_->setCanvasOp(kNoTool);
  canvas_->setSuspendCanvasResizeByEdgeDragging(true);
  canvas_->settings().ToReportRightClickDataInScrollMode = true;
  clsDIB::CloneDIB(picture, canvas_->DIB(), kWhite, picture.BottomUp());
  canvas_->CanvasResize();
  connect(canvas_, &ucCanvas::NotifyClickData, this, [this](int button, Colour colour, int x, int y) {
    if (button == 2) pick(colour, {x, y});
  });
  connect(canvas_, &ucCanvas::zoomRequested, this, [this](int steps) {
    int& magnify = canvas_->settings().Magnify;
    magnify = std::clamp(magnify + steps, 1, kLargestMagnify);
    canvas_->CanvasResize();
  });
  return canvas_;
}

QWidget* frmRuvoFileSaveGIForPNG::buildGifFrame() {
  auto* frame = new QGroupBox(tr("GIF"), this);
  auto* column = new QVBoxLayout(frame);
  transparency_ = namedCheckBox("ckbGIFsetTransparency", tr("Set Transparency"), frame);
  transparentColour_ = new ColorSwatch(QStringLiteral("picGIFtranspColor"), kWhite, frame);
  interlaced_ = namedCheckBox("ckbGIFinterlaced", tr("Set Interlaced"), frame);
  column->addWidget(transparency_);
  hint_ = new QLabel(tr("(Right click on image to  change)"), frame);
  column->addLayout(indented({transparentColour_, hint_}));
  column->addWidget(interlaced_);
  connect(transparency_, &QCheckBox::toggled, this, &frmRuvoFileSaveGIForPNG::showEnabled);
  return frame;
}

QWidget* frmRuvoFileSaveGIForPNG::buildPngFrame() {
  auto* frame = new QGroupBox(tr("PNG"), this);
  auto* column = new QVBoxLayout(frame);
  bitsPerPixel_ = new QComboBox(frame);
  bitsPerPixel_->setObjectName(QStringLiteral("cboPNGSaveAsBPP"));
  bitsPerPixel_->addItems(mode_ == SavePanelMode::PngPaletted ? QStringList{"8"} : QStringList{"24", "32"});
  auto* depth = new QHBoxLayout;
  depth->addWidget(new QLabel(tr("Save as BPP:"), frame));
  depth->addWidget(bitsPerPixel_);
  depth->addStretch();
  column->addLayout(depth);

  interlaced_ = namedCheckBox("ckbPNGinterlaced", tr("Set Interlaced"), frame);
  column->addWidget(interlaced_);
  background_ = namedCheckBox("ckbPNGSetBgdColorChunk", tr("Set Background Color"), frame);
  backgroundColour_ = new ColorSwatch(QStringLiteral("picPNGBgdColor"), kWhite, frame);
  auto* choose = new QPushButton(tr("Click to set background color to save"), frame);
  choose->setObjectName(QStringLiteral("cmdBgdColorDialog"));
  choose->setAutoDefault(false);
  backgroundButton_ = choose;
  column->addWidget(background_);
  column->addLayout(indented({backgroundColour_, choose}));
  connect(background_, &QCheckBox::toggled, this, &frmRuvoFileSaveGIForPNG::showEnabled);
  connect(choose, &QPushButton::clicked, this, [this] {
    const Colour now = backgroundColour_->colour();
    const auto chosen = desktop::desktop().pickColor(this, QColor(redOf(now), greenOf(now), blueOf(now)));
    if (chosen) backgroundColour_->setColour(rgb(chosen->red(), chosen->green(), chosen->blue()));
  });
  addTransparencyRows(column);
  return frame;
}

void frmRuvoFileSaveGIForPNG::addTransparencyRows(QVBoxLayout* column) {
  QWidget* frame = column->parentWidget();
  transparency_ = namedCheckBox("ckbPNGSetTransparency", tr("Set Transparency"), frame);
  column->addWidget(transparency_);
  kind_ = new QButtonGroup(this);
  const QString texts[] = {tr("Single transparent color"), tr("As alpha values to apply")};
  for (int i = 0; i < 2; ++i) {
    auto* option = new QRadioButton(texts[i], frame);
    option->setObjectName(controlName("optTransparency", i));
    kind_->addButton(option, i);
  }
  kind_->button(kSingleColour)->setChecked(true);
  transparentColour_ = new ColorSwatch(QStringLiteral("picPNGTranspColor"), kWhite, frame);
  opacity_ = new QComboBox(frame);
  opacity_->setObjectName(QStringLiteral("cboPNGalphaValue"));
  for (int value = 0; value <= 255; ++value) opacity_->addItem(QString::number(value));
  opacity_->setCurrentIndex(kUsualOpacity);
  opacityLabel_ = new QLabel(tr("Opacity:"), frame);
  exclude_ = namedCheckBox("ckbTranslucencyExclude", tr("Value of this color be set to 0"), frame);
  excluded_ = new ColorSwatch(QStringLiteral("picTranslucencyExclude"), kWhite, frame);
  column->addLayout(indented({kind_->button(kSingleColour), transparentColour_}));
  column->addLayout(indented({kind_->button(kAlphaValues)}));
  column->addLayout(indented({opacityLabel_, opacity_}));
  column->addLayout(indented({exclude_, excluded_}));
  hint_ = new QLabel(tr("(Right click on image to  change)"), frame);
  column->addLayout(indented({hint_}));
  // Alpha values need a fourth channel.
  if (mode_ == SavePanelMode::PngPaletted) {
    for (QWidget* widget :
         std::initializer_list<QWidget*>{kind_->button(kAlphaValues), opacityLabel_, opacity_, exclude_, excluded_})
      widget->hide();
  }
  connect(transparency_, &QCheckBox::toggled, this, &frmRuvoFileSaveGIForPNG::showEnabled);
  connect(kind_, &QButtonGroup::idToggled, this, [this] {
    if (transparency_->isChecked() && kind_->checkedId() == kAlphaValues) bitsPerPixel_->setCurrentText("32");
    showEnabled();
  });
  connect(transparency_, &QCheckBox::toggled, this, [this](bool on) {
    if (on && kind_->checkedId() == kAlphaValues) bitsPerPixel_->setCurrentText("32");
  });
  connect(bitsPerPixel_, &QComboBox::currentTextChanged, this, [this](const QString& bits) {
    if (bits != "32") kind_->button(kSingleColour)->setChecked(true);
  });
  connect(exclude_, &QCheckBox::toggled, this, &frmRuvoFileSaveGIForPNG::showEnabled);
}

QWidget* frmRuvoFileSaveGIForPNG::buildSaveTo() {
  auto* line = new QWidget(this);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  saveTo_ = new QLineEdit(line);
  saveTo_->setObjectName(QStringLiteral("txbSaveTo"));
  auto* choose = new QPushButton(tr("...."), line);
  choose->setObjectName(QStringLiteral("cmdSaveTo"));
  choose->setToolTip(tr("Choose the file"));
  choose->setAccessibleName(tr("Choose the file"));
  choose->setAutoDefault(false);
  auto* label = new QLabel(tr("Save to:"), line);
  label->setBuddy(saveTo_);
  row->addWidget(label);
  row->addWidget(saveTo_, 1);
  row->addWidget(choose);
  connect(choose, &QPushButton::clicked, this, &frmRuvoFileSaveGIForPNG::chooseFile);
  return line;
}

void frmRuvoFileSaveGIForPNG::showEnabled() {
  const bool transparent = transparency_->isChecked();
  if (mode_ == SavePanelMode::Gif) {
    transparentColour_->setEnabled(transparent);
    hint_->setEnabled(transparent);
    return;
  }
  const bool alpha = transparent && kind_->checkedId() == kAlphaValues;
  backgroundColour_->setEnabled(background_->isChecked());
  backgroundButton_->setEnabled(background_->isChecked());
  for (QAbstractButton* option : kind_->buttons()) option->setEnabled(transparent);
  transparentColour_->setEnabled(transparent && !alpha);
  opacityLabel_->setEnabled(alpha);
  opacity_->setEnabled(alpha);
  exclude_->setEnabled(alpha);
  excluded_->setEnabled(alpha && exclude_->isChecked());
  hint_->setEnabled(transparentColour_->isEnabled() || excluded_->isEnabled());
}

// The colour goes where the choices want one now.
void frmRuvoFileSaveGIForPNG::pick(Colour colour, Point pixel) {
  const bool first = !isVisible();
  const bool alpha = mode_ != SavePanelMode::Gif && transparency_->isChecked() && kind_->checkedId() == kAlphaValues;
  if (excluded_ != nullptr && (first || alpha)) excluded_->setColour(colour);
  if (alpha) return;
  transparentPixel_ = pixel;
  transparentColour_->setColour(colour);
}

GifChoices frmRuvoFileSaveGIForPNG::gifChoices() const {
  return {transparency_->isChecked(), interlaced_->isChecked(), transparentPixel_};
}

PngChoices frmRuvoFileSaveGIForPNG::pngChoices() const {
  PngChoices choices;
  choices.bitsPerPixel = bitsPerPixel_->currentText().toInt();
  choices.interlaced = interlaced_->isChecked();
  if (background_->isChecked()) choices.background = backgroundColour_->colour();
  if (transparency_->isChecked()) {
    choices.transparency = kind_->checkedId() == kAlphaValues ? PngChoices::Transparency::AlphaValues
                                                              : PngChoices::Transparency::SingleColour;
  }
  choices.transparentPixel = transparentPixel_;
  choices.opacity = opacity_->currentIndex();
  if (exclude_->isChecked()) choices.seeThrough = excluded_->colour();
  return choices;
}

void frmRuvoFileSaveGIForPNG::chooseFile() {
  const FormatRow& row = rowOf(mode_ == SavePanelMode::Gif ? Format::Gif : Format::Png);
  const QString chosen = desktop::desktop().saveFile(this, windowTitle(), saveTo_->text(),
                                                     QString::fromUtf8(row.saveFilter.data(), row.saveFilter.size()),
                                                     QString::fromStdString(usualExtension(row.format)));
  if (chosen.isEmpty()) return;
  saveTo_->setText(chosen);
  agreed_ = chosen;
}

void frmRuvoFileSaveGIForPNG::accept() {
  if (saveTo_->text().isEmpty()) {
    chooseFile();
    if (saveTo_->text().isEmpty()) return;
  }
  const Format format = mode_ == SavePanelMode::Gif ? Format::Gif : Format::Png;
  // A bare name goes beside the proposed file, not into the folder that the program was started from.
  const QString typed = QDir(folder_).absoluteFilePath(saveTo_->text());
  const QString path = QString::fromStdString(pathWithExtension(format, typed.toStdString()));
  const std::filesystem::path file = pathOf(path.toStdString());
  if (isReadOnlyHiddenOrSystem(file)) {
    desktop::desktop().message(this, QString::fromLatin1(kFileReadOnly), desktop::Icon::Exclamation);
    return;
  }
  // The picker has asked already about a name that was chosen there.
  if (path != agreed_ && fileExists(file) &&
      desktop::desktop().message(this, path + tr("\nFile exists already.  Replace it?"), desktop::Icon::Question,
                                 desktop::Buttons::YesNoCareful) != desktop::Answer::Yes) {
    return;
  }
  const std::string refusal = save ? save(path) : std::string();
  if (!refusal.empty()) {
    desktop::desktop().message(this, QString::fromStdString(refusal), desktop::Icon::Exclamation);
    return;
  }
  path_ = path;
  QDialog::accept();
}

}  // namespace ruvo
