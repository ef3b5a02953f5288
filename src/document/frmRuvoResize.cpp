#include "document/frmRuvoResize.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "dialogs/named_controls.h"
#include "document/model/status_texts.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/texts.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr int kMargin = 12;
constexpr int kIndent = 26;  // under the text of an option
constexpr int kFieldWidth = 76;

QStringList modeTexts() {
  QStringList texts;
  for (const char* text : kResizeModeTexts) texts << QString::fromLatin1(text);
  return texts;
}

}  // namespace

frmRuvoResize::frmRuvoResize(Size original, bool imagingUsable, QWidget* parent)
    : QDialog(parent), original_(original) {
  setObjectName(QStringLiteral("frmRuvoResize"));
  setWindowTitle(tr("Reset Size"));
  entry_.typed = original;

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kMargin);
  modes_ = namedComboBox("cboResizeMode", modeTexts(), this);
  auto* modeLabel = new QLabel(tr("Resize &mode:"), this);
  modeLabel->setBuddy(modes_);
  column->addWidget(modeLabel);
  column->addWidget(modes_);
  column->addWidget(buildMethods());
  newSize_ = theme::label({}, this, theme::LabelKind::Heading);
  newSize_->setObjectName(QStringLiteral("lblNewSize"));
  column->addWidget(newSize_);
  if (!imagingUsable) {
    auto* note = namedLabel("lblNoGDIPlus", QString::fromLatin1(kNoImagingNote), this);
    note->setWordWrap(true);
    column->addWidget(note);
  }

  QPushButton* proceed = namedButton("cmdProceed", tr("Proceed"), this);
  proceed->setDefault(true);
  QPushButton* cancel = namedButton("cmdCancel", tr("Cancel"), this);
  connect(proceed, &QPushButton::clicked, this, &frmRuvoResize::accept);
  connect(cancel, &QPushButton::clicked, this, &frmRuvoResize::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(proceed);
  buttons->addWidget(cancel);
  column->addLayout(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);

  optionOf(entry_.method)->setChecked(true);
  showNewSize();
  focusMethod();
}

QWidget* frmRuvoResize::buildMethods() {
  auto* group = new QGroupBox(tr("New size"), this);
  auto* grid = new QGridLayout(group);
  grid->setColumnStretch(1, 1);
  for (std::size_t i = 0; i < options_.size(); ++i) {
    options_[i] = new QRadioButton(QString::fromLatin1(kResizeMethodTexts[i]), group);
    options_[i]->setObjectName(controlName("optMethod", static_cast<int>(i)));
    connect(options_[i], &QRadioButton::clicked, this, [this, i] {
      take(static_cast<ResizeMethod>(i));
      focusMethod();
    });
  }
  addPercent(*grid, 0, ResizeMethod::PercentOfArea);
  addWidthAndHeight(*grid, 1);
  addPercent(*grid, 3, ResizeMethod::PercentOfSides);
  return group;
}

void frmRuvoResize::addPercent(QGridLayout& grid, int row, ResizeMethod method) {
  const bool area = method == ResizeMethod::PercentOfArea;
  QComboBox* box = namedComboBox(controlName("cboPercent", area ? 0 : 1), {}, this);
  for (const int percent : resizePercents()) box->addItem(QStringLiteral("%1 %").arg(percent), percent);
  box->setCurrentIndex(box->findData(kUnchangedPercent));
  percents_[static_cast<std::size_t>(method)] = box;
  connect(box, &QComboBox::currentIndexChanged, this, [this, box, area, method] {
    (area ? entry_.areaPercent : entry_.sidePercent) = box->currentData().toInt();
    take(method);
  });
  grid.addWidget(optionOf(method), row, 0);
  grid.addWidget(box, row, 1, Qt::AlignRight);
}

void frmRuvoResize::addWidthAndHeight(QGridLayout& grid, int row) {
  grid.addWidget(optionOf(ResizeMethod::WidthAndHeight), row, 0, 1, 2);
  auto* fields = new QGridLayout;
  fields->setContentsMargins(kIndent, 0, 0, 6);
  fields->addWidget(namedLabel("lblMaxArea", qt(largestAreaText()), this), 0, 0, 1, 5);
  width_ = sizeField("txbWidth", SizeField::Width);
  height_ = sizeField("txbHeight", SizeField::Height);
  int at = 0;
  for (const auto& [text, field] : {std::pair{tr("&Width:"), width_}, {tr("&Height:"), height_}}) {
    auto* name = new QLabel(text, this);
    name->setBuddy(field);
    fields->addWidget(name, 1, at++);
    fields->addWidget(field, 1, at++);
  }
  fields->setColumnStretch(4, 1);
  fields->addWidget(namedLabel("lblOrigSize", qt(originalSizeText(original_)), this), 1, 4);
  keepAspect_ = namedCheckBox("ckbAutoAspectRatio", QString::fromLatin1(kKeepAspectText), this);
  keepAspect_->setChecked(true);
  connect(keepAspect_, &QCheckBox::clicked, this, [this] {
    fillOtherSide();
    take(ResizeMethod::WidthAndHeight);
  });
  fields->addWidget(keepAspect_, 2, 0, 1, 5);
  fields->addWidget(namedLabel("lblLargestTry", qt(largestTryText(original_)), this), 3, 0, 1, 5);
  grid.addLayout(fields, row + 1, 0, 1, 2);
}

QLineEdit* frmRuvoResize::sizeField(const char* name, SizeField field) {
  auto* edit = new QLineEdit(this);
  edit->setObjectName(QString::fromLatin1(name));
  edit->setFixedWidth(kFieldWidth);
  edit->setText(QString::number(field == SizeField::Width ? original_.width : original_.height));
  edit->setValidator(wholeNumbersUpTo(kMostTypedSide, edit));
  connect(edit, &QLineEdit::textEdited, this, [this, field] { takeTyped(field); });
  return edit;
}

ResizeMode frmRuvoResize::mode() const {
  return static_cast<ResizeMode>(modes_->currentIndex());
}

// Whatever a person sets is what counts from then on.
void frmRuvoResize::take(ResizeMethod method) {
  entry_.method = method;
  optionOf(method)->setChecked(true);
  showNewSize();
}

void frmRuvoResize::takeTyped(SizeField field) {
  entry_.typedLast = field;
  entry_.typed = {width_->text().toInt(), height_->text().toInt()};
  fillOtherSide();
  take(ResizeMethod::WidthAndHeight);
}

// An empty field is one that is about to be filled.
void frmRuvoResize::fillOtherSide() {
  const bool width = entry_.typedLast == SizeField::Width;
  const int typed = width ? entry_.typed.width : entry_.typed.height;
  if (!keepAspect_->isChecked() || typed == 0) return;
  const int other = otherSideFor(original_, entry_.typedLast, typed);
  (width ? entry_.typed.height : entry_.typed.width) = other;
  (width ? height_ : width_)->setText(QString::number(other));
}

void frmRuvoResize::showNewSize() {
  const Size size = chosenSize();
  newSize_->setText(tr("New size:  %1").arg(qt(sizeText(size.width, size.height))));
}

void frmRuvoResize::focusMethod() {
  if (QComboBox* box = percents_[static_cast<std::size_t>(entry_.method)]) return box->setFocus();
  QLineEdit* field = entry_.typedLast == SizeField::Width ? width_ : height_;
  field->setFocus();
  field->selectAll();
}

void frmRuvoResize::accept() {
  if (const auto refusal = resizeRefusal(original_, entry_)) {
    desktop::desktop().message(this, qt(*refusal), desktop::Icon::Exclamation);
    focusMethod();
    return;
  }
  if (chosenSize() == original_) return reject();
  QDialog::accept();
}

std::optional<ResizeMode> frmRuvoResize::ask(SessionState& session, QWidget* parent) {
  frmRuvoResize dialog({session.newImageWidth, session.newImageHeight}, session.gdiPlusUsable, parent);
  session.dialogCancelled = dialog.exec() != QDialog::Accepted;
  if (session.dialogCancelled) return std::nullopt;
  session.newImageWidth = dialog.chosenSize().width;
  session.newImageHeight = dialog.chosenSize().height;
  return dialog.mode();
}

}  // namespace ruvo
