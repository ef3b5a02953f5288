#include "animation/delete_entry_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "animation/model/work_copy.h"
#include "animation/palette_grid.h"
#include "animation/palette_stage.h"
#include "dialogs/color_swatch.h"
#include "dialogs/named_controls.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

QString indexText(int index, const FramePalette& palette) {
  if (index < 0) return DeleteEntryPanel::tr("(none yet)");
  return QString::fromStdString(paletteHoverText(palette.table, palette.entries, index, false)).trimmed();
}

}  // namespace

DeleteEntryPanel::DeleteEntryPanel(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  choices_ = new QVBoxLayout;
  column->addLayout(choices_);
  deleted_ = makeRow(tr("Entry to delete (left click):"), "picColorToDelete");
  replacement_ = makeRow(tr("Replaced with (right click):"), "picColorToReplaceWith");
  choices_->addWidget(theme::label(tr("(Keys: arrows; with Shift for the second)"), this, theme::LabelKind::Quiet));
  QPushButton* button = namedButton(QStringLiteral("cmdDeleteColor"), tr("Proceed"), this);
  button->setToolTip(tr("Delete the entry"));
  connect(button, &QPushButton::clicked, this, &DeleteEntryPanel::proceed);
  auto* line = new QHBoxLayout;
  line->addStretch();
  line->addWidget(button);
  column->addLayout(line);
  column->addStretch();
}

DeleteEntryPanel::Row DeleteEntryPanel::makeRow(const QString& text, const char* swatch) {
  Row made;
  choices_->addWidget(theme::label(text, this));
  made.swatch = new ColorSwatch(QLatin1String(swatch), kWhite, this);
  made.label = theme::label(QString(), this, theme::LabelKind::Quiet);
  // As wide as the longest that it tells, so that a choice does not move the window's parts.
  made.label->setMinimumWidth(made.label->fontMetrics().horizontalAdvance("Index  255     RGB(255, 255, 255)") + 4);
  auto* line = new QHBoxLayout;
  line->addWidget(made.swatch);
  line->addWidget(made.label, 1);
  choices_->addLayout(line);
  return made;
}

void DeleteEntryPanel::choose(int index, Qt::MouseButton button) {
  if (index >= entries_) return;
  if (button == Qt::LeftButton) deleted_.index = index;
  if (button == Qt::RightButton) replacement_.index = index;
}

void DeleteEntryPanel::clearChoice() {
  deleted_.index = replacement_.index = -1;
}

void DeleteEntryPanel::showRow(const Row& row, const FramePalette& palette) {
  row.label->setText(indexText(row.index, palette));
  showEntryColor(*row.swatch, palette, row.index);
}

void DeleteEntryPanel::showOn(PaletteGrid& grid, const FramePalette& palette, int frame) {
  const int table = palette.global ? 0 : frame;
  if (table != table_) clearChoice();
  table_ = table;
  entries_ = palette.entries;
  grid.setPalette(palette.table, palette.entries, palette.transparentIndex);
  grid.setSelectedIndex(deleted_.index);
  grid.setSecondIndex(replacement_.index);
  showRow(deleted_, palette);
  showRow(replacement_, palette);
}

bool DeleteEntryPanel::run(WorkCopy& work, bool global, int frame, PaletteWindow window) {
  const DeleteEntryOrder order{global, frame, deleted_.index, replacement_.index};
  if (const auto refusal = deleteEntryRefusal(work.gif(), order)) {
    tellWords(this, *refusal);
    return false;
  }
  if (!askCarefully(this, deleteEntryQuestion(work.gif(), order, window))) return false;
  if (const auto failure = deleteEntry(work.gif(), order, window)) {
    tellWords(this, *failure);
    return false;
  }
  work.touch();
  clearChoice();
  return true;
}

void showEntryColor(ColorSwatch& swatch, const FramePalette& palette, int index) {
  const bool shown = index >= 0 && index < palette.entries;
  swatch.setEnabled(shown);
  if (shown) swatch.setColour(palette.table[static_cast<std::size_t>(index)].colour());
}

}  // namespace ruvo
