#include "document/option_rows.h"

#include <QAction>

namespace ruvo {
namespace {

struct OptionRow {
  const char* control;
  int index;
  bool OptionFlags::*flag;
};

constexpr OptionRow kOptionRows[] = {
    {"mnuOptionsSub", kOptionSdi, &OptionFlags::sdiOnly},
    {"mnuOptionsSub", 4, &OptionFlags::remindColorSetting},
    {"mnuOptionsSub", 6, &OptionFlags::fitInEvenIfSmaller},
    {"mnuOptionsSub", 8, &OptionFlags::jpgAddBackExif},
    {"mnuOptionsSub", 10, &OptionFlags::showPixelRgb},
    {"mnuOptionsSessionOnlySub", 0, &OptionFlags::alternativeMarquee},
    {"mnuOptionsSessionOnlySub", 1, &OptionFlags::suspendCanvasResize},
    {"mnuOptionsSessionOnlySub", 2, &OptionFlags::suspendRegionResize},
    {"mnuOptionsSessionOnlySub", 3, &OptionFlags::axisLines},
};
constexpr int kMonitorLevels = 5;  // "Do Not Monitor" and four amounts of memory

}  // namespace

bool OptionFlags::*optionFlagOf(const QString& control, int index) {
  for (const OptionRow& row : kOptionRows)
    if (control == QLatin1String(row.control) && index == row.index) return row.flag;
  return nullptr;
}

void showOptions(const MenuSet& menus, const OptionFlags& options) {
  for (const OptionRow& row : kOptionRows)
    menus.action(QLatin1String(row.control), row.index)->setChecked(options.*row.flag);
  for (int level = 0; level < kMonitorLevels; ++level)
    menus.action(QStringLiteral("mnuSubMonitorRAM"), level)->setChecked(options.watchRam == level);
}

}  // namespace ruvo
