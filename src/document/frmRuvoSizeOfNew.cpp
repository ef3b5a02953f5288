#include "document/frmRuvoSizeOfNew.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QIntValidator>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/limits.h"
#include "platform/desktop/desktop.h"

namespace ruvo {
namespace {
constexpr int kCustom = 5;
constexpr int kColumns = 2;
}  // namespace

frmRuvoSizeOfNew::frmRuvoSizeOfNew(Use use, Size initial, QWidget* parent)
    : QDialog(parent), sizes_(use == Use::Picture ? kNewPictureSizes : kNewFrameSizes) {
  setObjectName(QStringLiteral("frmRuvoSizeOfNew"));
  setWindowTitle(use == Use::Picture ? tr("New Picture") : tr("New Frame"));

  auto* group = new QGroupBox(tr("Size"), this);
  auto* grid = new QGridLayout(group);
  choices_ = new QButtonGroup(this);
  for (int i = 0; i <= kCustom; ++i) {
    const QString text =
        i == kCustom ? tr("Custom") : QStringLiteral("%1 x %2").arg(sizes_[i].width).arg(sizes_[i].height);
    auto* choice = new QRadioButton(text, group);
    choice->setObjectName(QStringLiteral("optSize(%1)").arg(i));
    choices_->addButton(choice, i);
    grid->addWidget(choice, i / kColumns, i % kColumns);
  }

  width_ = addSizeField("txbWidth", SizeField::Width);
  height_ = addSizeField("txbHeight", SizeField::Height);
  auto* form = new QFormLayout;
  form->addRow(tr("&Width:"), width_);
  form->addRow(tr("&Height:"), height_);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &frmRuvoSizeOfNew::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &frmRuvoSizeOfNew::reject);

  auto* all = new QVBoxLayout(this);
  all->addWidget(group);
  all->addLayout(form);
  all->addWidget(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);

  connect(choices_, &QButtonGroup::idClicked, this, &frmRuvoSizeOfNew::showChoice);
  const auto same = std::find(sizes_.begin(), sizes_.end(), initial);
  choices_->button(same == sizes_.end() ? kCustom : static_cast<int>(same - sizes_.begin()))->setChecked(true);
  width_->setText(QString::number(initial.width));
  height_->setText(QString::number(initial.height));
  choices_->checkedButton()->setFocus();
}

QLineEdit* frmRuvoSizeOfNew::addSizeField(const char* name, SizeField field) {
  auto* edit = new QLineEdit(this);
  edit->setObjectName(QString::fromLatin1(name));
  edit->setValidator(new QIntValidator(0, 99999, edit));
  // Only a person's typing: what a choice fills in leaves that choice marked.
  connect(edit, &QLineEdit::textEdited, this, [this, field] {
    enteredLast_ = field;
    choices_->button(kCustom)->setChecked(true);
  });
  return edit;
}

void frmRuvoSizeOfNew::showChoice(int id) {
  if (id == kCustom) {
    width_->setFocus();
    width_->selectAll();
    return;
  }
  width_->setText(QString::number(sizes_[id].width));
  height_->setText(QString::number(sizes_[id].height));
}

Size frmRuvoSizeOfNew::chosenSize() const {
  return {width_->text().toInt(), height_->text().toInt()};
}

void frmRuvoSizeOfNew::accept() {
  const Size size = chosenSize();
  if (const auto refusal = newSizeRefusal(size.width, size.height, enteredLast_)) {
    desktop::desktop().message(this, QString::fromStdString(*refusal), desktop::Icon::Exclamation);
    QLineEdit* field = enteredLast_ == SizeField::Width ? width_ : height_;
    field->setFocus();
    field->selectAll();
    return;
  }
  if (newSizeIsLarge(size.width, size.height) &&
      desktop::desktop().message(this, QString::fromLatin1(kNewSizeLargeQuestion), desktop::Icon::Question,
                                 desktop::Buttons::YesNo) != desktop::Answer::Yes) {
    return;
  }
  QDialog::accept();
}

bool frmRuvoSizeOfNew::ask(SessionState& session, QWidget* parent, Use use) {
  frmRuvoSizeOfNew dialog(use, {session.newImageWidth, session.newImageHeight}, parent);
  session.dialogCancelled = dialog.exec() != QDialog::Accepted;
  if (session.dialogCancelled) return false;
  session.newImageWidth = dialog.chosenSize().width;
  session.newImageHeight = dialog.chosenSize().height;
  return true;
}

}  // namespace ruvo
