#include "dialogs/frmRuvoMulti.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/icon_pictures.h"
#include "dialogs/model/icon_list_rules.h"
#include "dialogs/named_controls.h"
#include "platform/desktop/desktop.h"

namespace ruvo {
namespace {

constexpr int kPictureSide = 176;
constexpr int kMargin = 12;

}  // namespace

frmRuvoMulti::frmRuvoMulti(const clsICO& file, QWidget* parent) : QDialog(parent), file_(file) {
  setObjectName("frmRuvoMulti");
  setWindowTitle("Multi-Icon File");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kMargin);
  column->addWidget(new QLabel("Select one of the following listed icons:", this));

  auto* middle = new QHBoxLayout;
  middle->setSpacing(kMargin);
  list_ = new QListWidget(this);
  list_->setObjectName("lisIcons");
  for (int i = 0; i < file_.IconCount(); ++i) list_->addItem(QString::fromStdString(iconListLine(file_, i)));
  // Wide enough for the columns that the tabs make.
  list_->setMinimumWidth(list_->sizeHintForColumn(0) + 40);
  middle->addWidget(list_, 1);
  middle->addWidget(buildPreview());
  column->addLayout(middle);

  auto* remarks = new QLabel("* Remarks: Listed BPP as per original file only", this);
  column->addWidget(remarks);
  column->addWidget(buildButtons());

  connect(list_, &QListWidget::currentRowChanged, this, [this] { showHighlighted(); });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
  list_->setCurrentRow(std::max(0, file_.firstReadable()));
  list_->setFocus();
}

QWidget* frmRuvoMulti::buildPreview() {
  auto* side = new QWidget(this);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  picture_ = new IconField("picIconInFile", kPictureSide, std::nullopt, side);
  picture_->setWords(kUnableToGet);
  column->addWidget(picture_);
  auto* steps = new QHBoxLayout;
  up_ = namedButton("cmdUp", "Previous", side);
  down_ = namedButton("cmdDown", "Next", side);
  connect(up_, &QPushButton::clicked, this, [this] { step(-1); });
  connect(down_, &QPushButton::clicked, this, [this] { step(1); });
  steps->addWidget(up_);
  steps->addWidget(down_);
  column->addLayout(steps);
  column->addStretch();
  return side;
}

QWidget* frmRuvoMulti::buildButtons() {
  auto* row = new QWidget(this);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->addStretch();
  QPushButton* select = namedButton("cmdSelect", "Select", row);
  select->setDefault(true);
  QPushButton* close = namedButton("cmdClose", "Close", row);
  connect(select, &QPushButton::clicked, this, [this] { accept(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  line->addWidget(select);
  line->addWidget(close);
  return row;
}

int frmRuvoMulti::index() const {
  return list_->currentRow();
}

void frmRuvoMulti::step(int by) {
  list_->setCurrentRow(std::clamp(index() + by, 0, list_->count() - 1));
}

void frmRuvoMulti::showHighlighted() {
  picture_->setPicture(imageOf(file_.withAlpha(index())));
  up_->setEnabled(index() > 0);
  down_->setEnabled(index() < list_->count() - 1);
}

void frmRuvoMulti::accept() {
  if (index() < 0) return;
  if (const auto refusal = iconRefusal(file_, index())) {
    desktop::desktop().message(this, QString::fromStdString(*refusal), desktop::Icon::Exclamation);
    return;
  }
  QDialog::accept();
}

int frmRuvoMulti::choose(QWidget* parent, const clsICO& file) {
  // The images of a cursor are one picture for several screens.
  if (file.FileType() == kCursorType) return file.firstReadable();
  frmRuvoMulti dialog(file, parent);
  return dialog.exec() == QDialog::Accepted ? dialog.index() : -1;
}

}  // namespace ruvo
