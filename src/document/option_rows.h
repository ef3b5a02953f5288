// The rows of the Options menu and the flags behind them; the main window's menu and every document's show the same.
#pragma once

#include "document/menu_table.h"
#include "document/model/session_state.h"

namespace ruvo {

inline constexpr int kOptionSdi = 1;  // index of its row in mnuOptionsSub

// The flag that a checkable row of `control` ("mnuOptionsSub" or "mnuOptionsSessionOnlySub") turns over; null for any
// other row.
bool OptionFlags::*optionFlagOf(const QString& control, int index);

// Checks the rows as the flags are. A memory level that no row has leaves all of its rows unchecked.
void showOptions(const MenuSet& menus, const OptionFlags& options);

}  // namespace ruvo
