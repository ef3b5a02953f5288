#include "effects/frmRuvoText.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontComboBox>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "base/rounding.h"
#include "dialogs/color_button.h"
#include "dialogs/named_controls.h"
#include "effects/text_sample.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/texts.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr int kMargin = 12;
constexpr int kTextHeight = 84;
constexpr int kSizeWidth = 76;
constexpr int kLargestTyped = 99999;  // beyond the limit, which is told in words

}  // namespace

frmRuvoText::frmRuvoText(Use use, const TextChoices& choices, const Place& place, QWidget* parent)
    : QDialog(parent), use_(use) {
  setObjectName(QStringLiteral("frmRuvoText"));
  setWindowTitle(use == Use::Stamp ? tr("Text Stamp") : tr("Text"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(8);
  column->addLayout(buildText());
  column->addLayout(buildFont(choices));
  column->addLayout(buildStyle(choices));
  column->addLayout(buildColors(choices));
  sample_ = new TextSample(place.picture, place.corner, this);
  column->addWidget(sample_, 1);
  column->addLayout(buildNotes());
  column->addLayout(buildButtons());

  text_->setPlainText(qt(choices.text));
  text_->selectAll();
  text_->setFocus();
  connect(text_, &QPlainTextEdit::textChanged, this, &frmRuvoText::choicesChanged);
  choicesChanged();
}

frmRuvoText::~frmRuvoText() = default;

QLayout* frmRuvoText::buildText() {
  auto* row = new QVBoxLayout;
  text_ = new QPlainTextEdit(this);
  text_->setObjectName(QStringLiteral("txbText"));
  text_->setPlaceholderText(tr("Text to write"));
  text_->setTabChangesFocus(true);
  text_->setMinimumHeight(kTextHeight);
  text_->setMaximumHeight(kTextHeight);
  row->addWidget(text_);
  return row;
}

QLayout* frmRuvoText::buildFont(const TextChoices& choices) {
  auto* row = new QHBoxLayout;
  font_ = new QFontComboBox(this);
  font_->setObjectName(QStringLiteral("cboFont"));
  font_->setMaxVisibleItems(16);
  const QString family = choices.family.empty() ? QFontInfo(font()).family() : qt(choices.family);
  font_->setCurrentFont(QFont(family));
  // One that is not here is shown, and told of, all the same.
  font_->setEditText(family);
  size_ = namedComboBox(QStringLiteral("cboSize"), {}, this);
  for (const int size : kTextSizes) size_->addItem(QString::number(size));
  size_->setEditable(true);
  size_->setInsertPolicy(QComboBox::NoInsert);
  size_->setCompleter(nullptr);
  size_->setValidator(wholeNumbersUpTo(kLargestTyped, size_));
  size_->setFixedWidth(kSizeWidth);
  size_->setEditText(QString::number(choices.size));
  auto* fontLabel = theme::label(tr("&Font"), this);
  fontLabel->setBuddy(font_);
  auto* sizeLabel = theme::label(tr("Si&ze (pixels)"), this);
  sizeLabel->setBuddy(size_);
  row->addWidget(fontLabel);
  row->addWidget(font_, 1);
  row->addSpacing(kMargin);
  row->addWidget(sizeLabel);
  row->addWidget(size_);
  connect(font_, &QComboBox::currentTextChanged, this, &frmRuvoText::choicesChanged);
  connect(size_, &QComboBox::currentTextChanged, this, &frmRuvoText::choicesChanged);
  return row;
}

QLayout* frmRuvoText::buildStyle(const TextChoices& choices) {
  auto* row = new QHBoxLayout;
  const auto check = [&](const char* name, const QString& text, bool on) {
    auto* box = namedCheckBox(QString::fromLatin1(name), text, this);
    box->setChecked(on);
    connect(box, &QCheckBox::toggled, this, &frmRuvoText::choicesChanged);
    row->addWidget(box);
    return box;
  };
  bold_ = check("ckbBold", tr("&Bold"), choices.bold);
  italic_ = check("ckbItalic", tr("&Italic"), choices.italic);
  underline_ = check("ckbUnderline", tr("&Underline"), choices.underline);
  strikeThru_ = check("ckbStrikeThru", tr("&Strike-out"), choices.strikeThru);
  row->addStretch();
  align_ = new QButtonGroup(this);
  const QStringList texts = {tr("&Left"), tr("C&enter"), tr("&Right")};
  for (int i = 0; i < texts.size(); ++i) {
    auto* option = new QRadioButton(texts[i], this);
    option->setObjectName(controlName(QStringLiteral("optAlign"), i));
    align_->addButton(option, i);
    row->addWidget(option);
  }
  align_->button(static_cast<int>(choices.align))->setChecked(true);
  connect(align_, &QButtonGroup::idToggled, this, [this](int, bool on) {
    if (on) choicesChanged();
  });
  return row;
}

QLayout* frmRuvoText::buildColors(const TextChoices& choices) {
  auto* row = new QHBoxLayout;
  const auto color = [&](const char* name, Colour colour) {
    auto* button = new ColorButton(QString::fromLatin1(name), colour, this);
    connect(button, &ColorButton::colourChosen, this, &frmRuvoText::choicesChanged);
    row->addWidget(button);
    return button;
  };
  auto* label = theme::label(tr("Text c&olor"), this);
  row->addWidget(label);
  color_ = color("picColor", choices.colour);
  label->setBuddy(color_);
  row->addSpacing(2 * kMargin);
  antialias_ = namedCheckBox(QStringLiteral("ckbAntialias"), tr("&Antialias"), this);
  antialias_->setChecked(choices.antialias && use_ != Use::Stamp);
  antialias_->setEnabled(use_ != Use::Stamp);
  row->addWidget(antialias_);
  row->addStretch();
  filled_ = namedCheckBox(QStringLiteral("ckbFilled"), tr("Filled bac&kground"), this);
  filled_->setChecked(choices.filled);
  row->addWidget(filled_);
  backColor_ = color("picBackColor", choices.backColour);
  backColor_->setEnabled(choices.filled);
  connect(antialias_, &QCheckBox::toggled, this, &frmRuvoText::choicesChanged);
  connect(filled_, &QCheckBox::toggled, this, [this](bool on) {
    backColor_->setEnabled(on);
    choicesChanged();
  });
  return row;
}

QLayout* frmRuvoText::buildNotes() {
  auto* row = new QHBoxLayout;
  note_ = namedLabel(QStringLiteral("lblNote"), QString(), this);
  note_->setWordWrap(true);
  note_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  // Room for two lines, so that the window does not jump while one types.
  note_->setMinimumHeight(2 * note_->fontMetrics().lineSpacing());
  measure_ = namedLabel(QStringLiteral("lblSize"), QString(), this);
  measure_->setAlignment(Qt::AlignRight | Qt::AlignTop);
  row->addWidget(note_, 1);
  row->addSpacing(kMargin);
  row->addWidget(measure_);
  return row;
}

QLayout* frmRuvoText::buildButtons() {
  auto* row = new QHBoxLayout;
  auto* proceed = namedButton(QStringLiteral("cmdProceed"), tr("&Proceed"), this);
  auto* cancel = namedButton(QStringLiteral("cmdCancel"), tr("Cancel"), this);
  proceed->setDefault(true);
  proceed->setToolTip(tr("Ctrl+Enter in the text"));
  connect(proceed, &QPushButton::clicked, this, &frmRuvoText::accept);
  connect(cancel, &QPushButton::clicked, this, &frmRuvoText::reject);
  // In the text Enter begins a new line.
  for (const int key : {Qt::Key_Return, Qt::Key_Enter})
    connect(new QShortcut(QKeySequence(Qt::CTRL | key), this), &QShortcut::activated, this, &frmRuvoText::accept);
  row->addStretch();
  row->addWidget(proceed);
  row->addWidget(cancel);
  return row;
}

// --- Values

QString frmRuvoText::sizeTyped() const {
  return size_->currentText();
}

std::optional<TextChoices> frmRuvoText::choices() const {
  const std::optional<int> size = textSizeOf(sizeTyped().toStdString());
  if (!size) return std::nullopt;
  TextChoices now;
  now.text = writableText(text_->toPlainText().toStdString());
  now.family = font_->currentText().trimmed().toStdString();
  now.size = *size;
  now.bold = bold_->isChecked();
  now.italic = italic_->isChecked();
  now.underline = underline_->isChecked();
  now.strikeThru = strikeThru_->isChecked();
  now.antialias = antialias_->isChecked();
  now.align = static_cast<TextAlign>(align_->checkedId());
  now.colour = color_->colour();
  now.filled = filled_->isChecked();
  now.backColour = backColor_->colour();
  return now;
}

// In words; nothing when the text as it stands can be written.
std::optional<std::string> frmRuvoText::refusal() const {
  const std::string text = text_->toPlainText().toStdString();
  if (auto refused = textRefusal(sizeTyped().toStdString(), text)) return refused;
  if (!picture_ || picture_->empty()) return std::nullopt;
  return textPictureRefusal(picture_->width(), picture_->height());
}

// A text that is too long, or a size that is none, leaves the sample as it was and is told beside it.
void frmRuvoText::choicesChanged() {
  if (const auto now = choices(); now && textLength(now->text) <= kMaxTextCharacters) {
    auto made = std::make_unique<TextPicture>(*now);
    sample_->show(*made);
    picture_ = std::move(made);
  }
  const auto refused = refusal();
  note_->setText(refused ? qt(*refused) : picture_ ? picture_->fontNote() : QString());
  QString measure;
  if (picture_ && !picture_->empty()) measure = tr("%1 x %2 pixels").arg(picture_->width()).arg(picture_->height());
  if (sample_->scale() < 1) measure += tr("\nshown at %1 %").arg(std::max(1, roundToInt(sample_->scale() * 100)));
  measure_->setText(measure);
}

void frmRuvoText::accept() {
  if (const auto refused = refusal()) {
    desktop::desktop().message(this, qt(*refused), desktop::Icon::Exclamation);
    return;
  }
  QDialog::accept();
}

bool frmRuvoText::ask(Use use, TextChoices& choices, const Place& place, QWidget* parent) {
  frmRuvoText window(use, choices, place, parent);
  if (window.exec() != QDialog::Accepted) return false;
  if (const auto chosen = window.choices()) choices = *chosen;
  return true;
}

}  // namespace ruvo
