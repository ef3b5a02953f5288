#include "shell/frmRuvomain_Toolbox.h"

#include <QGridLayout>
#include <QVBoxLayout>
#include <vector>

#include "document/model/session_state.h"
#include "shell/shell_controls.h"

namespace ruvo::shell {
namespace {

constexpr std::array<const char*, kToolCount> kToolTips = {
    "Paint (If for straight alignment of brush, +Shift or +Ctrl)",
    "Erase (If for straight alignment of erasure, +Shift or +Ctrl)",
    "Fill ",
    "Polygon",
    "Line (+Shift key if for a straight vertical, horizontal or diagonal line )",
    "Arc (Click 3 points to form an arc.   You may drag to change size before releasing mouse for last point.  +Shift "
    "if "
    "chord wanted.)",
    "Bezier curve",
    "Filled Bezier curve",
    "Rectangle   (+Shift key if for perfect square)",
    "Filled Rectangle   (+Shift key if for perfect square)",
    "Oval (+Shift key if for perfect circle)",
    "Filled Oval (+Shift key if for perfect circle)",
    "Stamp",
    "Spray",
    "Select region (+Shift if for perfect square)",
    "Select oval region (+Shift if for perfect circle)",
    "Replace painted color",
    "Color picker (Left click on image for first color,  right click for 2nd)",
    "Clear all tools",
};

// What stands together: painting, shapes, regions.
const std::vector<std::vector<int>> kToolGroups = {
    {0, 1, 13, 2, 16, 12, 17, 18}, {4, 5, 6, 7, 8, 9, 10, 11}, {3, 14, 15}};
constexpr int kToolColumns = 4;
constexpr QSize kTileSize(40, 32);

}  // namespace

Toolbox::Toolbox(QWidget* parent) : QWidget(parent) {
  setObjectName("picTools");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(5);
  for (const auto& group : kToolGroups) {
    if (column->count() > 0) column->addWidget(divider(Qt::Horizontal, this));
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    for (int place = 0; place < kToolColumns; ++place) {
      grid->setColumnStretch(place, 1);
      grid->setColumnMinimumWidth(place, kTileSize.width());
    }
    for (int place = 0; place < static_cast<int>(group.size()); ++place) {
      const int index = group[static_cast<std::size_t>(place)];
      auto* tool =
          new PictureButton(controlName("imgTools", index), QStringLiteral("tool_%1").arg(index, 2, 10, QChar('0')),
                            QString::fromLatin1(kToolTips[static_cast<std::size_t>(index)]), this);
      tool->setFixedSize(kTileSize);
      connect(tool, &QToolButton::clicked, this, [this, index] {
        if (clicked) clicked(index);
      });
      tools_[static_cast<std::size_t>(index)] = tool;
      grid->addWidget(tool, place / kToolColumns, place % kToolColumns, Qt::AlignHCenter);
    }
    column->addLayout(grid);
  }
  select(kClearAllTools);
  setUsable(true);
}

int Toolbox::selected() const {
  for (int index = 0; index < kClearAllTools; ++index)
    if (tools_[static_cast<std::size_t>(index)]->isChecked()) return index;
  return kClearAllTools;
}

void Toolbox::select(int index) {
  for (int i = 0; i < kToolCount; ++i) tools_[static_cast<std::size_t>(i)]->setChecked(i == index);
}

void Toolbox::setUsable(bool usable) {
  for (int i = 0; i < kToolCount; ++i) tools_[static_cast<std::size_t>(i)]->setEnabled(usable);
}

}  // namespace ruvo::shell
