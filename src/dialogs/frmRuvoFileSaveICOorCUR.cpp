#include "dialogs/frmRuvoFileSaveICOorCUR.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/paths.h"
#include "base/save_texts.h"
#include "dialogs/icon_pictures.h"
#include "formats/clsICO.h"
#include "platform/desktop/desktop.h"

namespace ruvo {
namespace {

constexpr int kMargin = 12;
constexpr int kSwatchSide = 22;
// Room for the largest icon that is offered, and a little ground around it.
constexpr int kPreviewSide = 72;
constexpr int kLargePreviewSide = 144;

QComboBox* combo(const QString& name, const QStringList& items, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setObjectName(name);
  box->addItems(items);
  box->setMaxVisibleItems(16);
  return box;
}

QColor toQColor(Colour colour) {
  return QColor(redOf(colour), greenOf(colour), blueOf(colour));
}

QImage plainImage(const QColor& colour) {
  QImage image(kSwatchSide - 2, kSwatchSide - 2, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

}  // namespace

frmRuvoFileSaveICOorCUR::frmRuvoFileSaveICOorCUR(IconKind kind, const clsDIB& picture, const QString& proposed,
                                                 bool largerSizes, QWidget* parent)
    : QDialog(parent), kind_(kind), picture_(picture), proposed_(proposed) {
  setObjectName("frmRuvoFileSaveICOorCUR");
  setWindowTitle(kind == IconKind::Icon ? "Save as Icon" : "Save as Cursor");
  // What usually surrounds the subject: the colour of the top left.
  choices_.transparentColour = colourUnder(picture_, choices_, {0, 0}).value_or(kWhite);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kMargin);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(2 * kMargin);
  middle->addWidget(buildMagnified());
  middle->addWidget(buildOptions(largerSizes));
  column->addLayout(middle);
  column->addWidget(buildButtons());
  column->setSizeConstraint(QLayout::SetFixedSize);
  takeChoices();
  if (kind_ == IconKind::Cursor) takeHotSpot();
  (size_ ? size_ : how_)->setFocus();
}

QWidget* frmRuvoFileSaveICOorCUR::buildMagnified() {
  auto* side = new QWidget(this);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  magnified_ = new MagnifiedIcon("picMagnified", side);
  magnified_->setAccessibleName("Picture, magnified");
  magnified_->leftClicked = [this](QPoint at) { pickTransparent({at.x(), at.y()}); };
  if (kind_ == IconKind::Cursor) magnified_->rightClicked = [this](QPoint at) { pickHotSpot({at.x(), at.y()}); };
  column->addWidget(magnified_);
  column->addWidget(new QLabel(kind_ == IconKind::Icon ? "Left click:  transparent color"
                                                       : "Left click:  transparent color,  right click:  hot spot",
                               side));
  column->addStretch();
  return side;
}

QWidget* frmRuvoFileSaveICOorCUR::buildOptions(bool largerSizes) {
  auto* side = new QWidget(this);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  auto* form = new QFormLayout;
  if (kind_ == IconKind::Icon) {
    QStringList sizes;
    for (const int length : iconSides(largerSizes)) sizes << QString::fromStdString(squareText(length));
    size_ = combo("cboIconSize", sizes, side);
    connect(size_, &QComboBox::currentIndexChanged, this, [this] { takeChoices(); });
    form->addRow("Icon &size:", size_);
  } else {
    form->addRow(new QLabel("Cursor size:   " + QString::fromStdString(squareText(kCursorSide)), side));
  }
  how_ = combo("cboHowToTake", {kHowToTakeTexts[0], kHowToTakeTexts[1]}, side);
  connect(how_, &QComboBox::currentIndexChanged, this, [this] { takeChoices(); });
  form->addRow("&How to take:", how_);
  transparent_ = new QCheckBox(kUseTransparentText, side);
  transparent_->setObjectName("ckbUseTransparent");
  connect(transparent_, &QCheckBox::toggled, this, [this] { takeChoices(); });
  form->addRow(transparent_);
  auto* colour = new QHBoxLayout;
  colour_ = new IconField("picTransparentColor", kSwatchSide, std::nullopt, side);
  colourText_ = new QLabel(side);
  colourText_->setObjectName("lblTransparentColor");
  colour->addWidget(colour_);
  colour->addWidget(colourText_, 1);
  form->addRow("Transparent color:", colour);
  if (kind_ == IconKind::Cursor) addHotSpot(*form);
  column->addLayout(form);
  column->addStretch();
  column->addWidget(buildPreviews(largerSizes));
  return side;
}

void frmRuvoFileSaveICOorCUR::addHotSpot(QFormLayout& form) {
  QStringList places;
  for (int i = 0; i < kCursorSide; ++i) places << QString::number(i);
  auto* row = new QHBoxLayout;
  for (int i = 0; i < 2; ++i) {
    auto*& box = hotSpot_[static_cast<std::size_t>(i)];
    box = combo(QStringLiteral("cboCursorHotSpot(%1)").arg(i), places, this);
    connect(box, &QComboBox::currentIndexChanged, this, [this] { takeHotSpot(); });
    auto* name = new QLabel(i == 0 ? "&x" : "&y", this);
    name->setBuddy(box);
    row->addWidget(name);
    row->addWidget(box);
    row->addSpacing(kMargin);
  }
  row->addStretch();
  form.addRow("Hot spot:", row);
}

QWidget* frmRuvoFileSaveICOorCUR::buildPreviews(bool largerSizes) {
  const int length = largerSizes && kind_ == IconKind::Icon ? kLargePreviewSide : kPreviewSide;
  auto* row = new QWidget(this);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(kMargin);
  const auto add = [&](const char* name, const char* caption, const QColor& ground) {
    auto* column = new QVBoxLayout;
    auto* field = new IconField(name, length, ground, row);
    column->addWidget(field);
    column->addWidget(new QLabel(caption, row), 0, Qt::AlignHCenter);
    line->addLayout(column);
    return field;
  };
  onLight_ = add("picOnLight", "On light", QColor("#F3F5F8"));
  onDark_ = add("picOnDark", "On dark", QColor("#262B33"));
  mask_ = add("picMask", "Mask", QColor("#7F8894"));
  line->addStretch();
  return row;
}

QWidget* frmRuvoFileSaveICOorCUR::buildButtons() {
  auto* row = new QWidget(this);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->addStretch();
  auto* proceed = new QPushButton("Proceed", row);
  proceed->setObjectName("cmdProceed");
  proceed->setDefault(true);
  auto* cancel = new QPushButton("Cancel", row);
  cancel->setObjectName("cmdCancel");
  cancel->setAutoDefault(false);
  connect(proceed, &QPushButton::clicked, this, [this] { accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  line->addWidget(proceed);
  line->addWidget(cancel);
  return row;
}

void frmRuvoFileSaveICOorCUR::takeChoices() {
  if (size_) choices_.side = iconSides(true)[static_cast<std::size_t>(size_->currentIndex())];
  choices_.how = static_cast<HowToTake>(how_->currentIndex());
  choices_.transparent = transparent_->isChecked();
  showResult();
}

void frmRuvoFileSaveICOorCUR::takeHotSpot() {
  choices_.hotSpot = {hotSpot_[0]->currentIndex(), hotSpot_[1]->currentIndex()};
  magnified_->setHotSpot(QPoint(choices_.hotSpot.x, choices_.hotSpot.y));
}

void frmRuvoFileSaveICOorCUR::showResult() {
  IconPair pair = iconPair(picture_, choices_);
  mask_->setPicture(imageOf(pair.mask));
  // Drawn as readers of the file will draw it.
  clsICO icon;
  clsICO::Image image;
  image.XOR = std::move(pair.image);
  image.AND = std::move(pair.mask);
  icon.add(std::move(image));
  const QImage result = imageOf(icon.withAlpha(0));
  magnified_->setPicture(result);
  onLight_->setPicture(result);
  onDark_->setPicture(result);
  const QColor colour = toQColor(choices_.transparentColour);
  colour_->setPicture(plainImage(colour));
  colourText_->setText(QStringLiteral("RGB(%1, %2, %3)").arg(colour.red()).arg(colour.green()).arg(colour.blue()));
}

void frmRuvoFileSaveICOorCUR::pickTransparent(Point pixel) {
  const auto colour = colourUnder(picture_, choices_, pixel);
  if (!colour) return;
  choices_.transparentColour = *colour;
  // Pointing at a colour asks for it; otherwise the click would seem to do nothing.
  if (transparent_->isChecked())
    takeChoices();
  else
    transparent_->setChecked(true);
}

void frmRuvoFileSaveICOorCUR::pickHotSpot(Point pixel) {
  hotSpot_[0]->setCurrentIndex(pixel.x);
  hotSpot_[1]->setCurrentIndex(pixel.y);
}

QString frmRuvoFileSaveICOorCUR::askForPath() {
  const FormatRow& row = formatOf(kind_);
  const QString extension = QString::fromLatin1(row.extensions.data() + 1, static_cast<int>(row.extensions.size()) - 1);
  QString proposed = proposed_;
  while (true) {
    const QString picked = desktop::desktop().saveFile(
        this, windowTitle(), proposed,
        QString::fromUtf8(row.saveFilter.data(), static_cast<int>(row.saveFilter.size())), extension);
    if (picked.isEmpty()) return picked;
    proposed = QString::fromStdString(iconPath(kind_, picked.toStdString()));
    // The picker has asked about replacing the name as it was typed, not about another one.
    if (proposed == picked || !fileExists(pathOf(proposed.toStdString()))) return proposed;
  }
}

void frmRuvoFileSaveICOorCUR::accept() {
  const auto tell = [this](const QString& text, desktop::Icon icon) { desktop::desktop().message(this, text, icon); };
  const QString path = askForPath();
  const std::filesystem::path file = pathOf(path.toStdString());
  if (path.isEmpty()) return tell(kNoFileSpecification, desktop::Icon::Exclamation);
  if (isReadOnlyHiddenOrSystem(file)) return tell(kFileReadOnly, desktop::Icon::Exclamation);
  if (!saveIcon(file, kind_, picture_, choices_)) {
    return tell(kind_ == IconKind::Cursor ? kCursorSaveFailed : kSaveFailed, desktop::Icon::Exclamation);
  }
  saved_ = path;
  tell(kSavedTo + path, desktop::Icon::Information);
  QDialog::accept();
}

QString frmRuvoFileSaveICOorCUR::save(QWidget* parent, IconKind kind, const clsDIB& picture, const QString& proposed,
                                      bool largerSizes) {
  frmRuvoFileSaveICOorCUR dialog(kind, picture, proposed, largerSizes, parent);
  dialog.exec();
  return dialog.savedPath();
}

}  // namespace ruvo
