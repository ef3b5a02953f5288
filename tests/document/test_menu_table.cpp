#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <set>

#include "document/menu_table.h"

namespace ruvo {
namespace {

std::string nameOf(const MenuRow& row) {
  return row.index < 0 ? row.control : std::string(row.control) + '(' + std::to_string(row.index) + ')';
}

TEST(MenuTable, EveryRowHasItsOwnNameAParentBeforeItAndAFreeShortcut) {
  std::set<std::string> names;
  std::set<std::string> shortcuts;
  std::set<char> barLetters;
  for (const MenuRow& row : menuTable()) {
    EXPECT_TRUE(names.insert(nameOf(row)).second) << nameOf(row);
    EXPECT_TRUE(!*row.parent || names.count(row.parent)) << nameOf(row) << " under " << row.parent;
    // Two titles on the bar with one letter would only take turns.
    const std::string text = row.text;
    if (!*row.parent) {
      EXPECT_TRUE(barLetters.insert(std::tolower(text[text.find('&') + 1])).second) << text;
    }
    if (*row.shortcut) {
      EXPECT_TRUE(shortcuts.insert(row.shortcut).second) << row.shortcut;
      EXPECT_FALSE(QKeySequence(row.shortcut).toString().isEmpty()) << row.shortcut;
    }
  }
}

TEST(MenuTable, AScopeBuildsItsOwnRowsOnly) {
  QWidget owner;
  const MenuSet main(kScopeMain, &owner, [](const QString&, int) {});
  const MenuSet document(kScopeDocument, &owner, [](const QString&, int) {});
  EXPECT_EQ(main.action("mnuBPP"), nullptr);
  EXPECT_EQ(main.menu("mnuInquiry"), nullptr);
  ASSERT_NE(document.menu("mnuInquiry"), nullptr);
  QStringList titles;
  for (QMenu* menu : document.menus()) titles << menu->title().remove('&');
  EXPECT_EQ(titles.join(' '),
            "File Animated GIF DigiPhoto Edit Rotate Text Effects Layer Resize BPP Inquiry Options Windows Help");
  EXPECT_EQ(document.action("mnuFileSub", 1)->text(), "&Open ....");
  EXPECT_EQ(document.action("mnuOptionsSub", 12)->menu(), document.menu("mnuOptionsSub", 12));
}

TEST(MenuTable, RowsAreEnabledByWhatThereIsAndTellWhoTheyAre) {
  QWidget owner;
  QStringList picked;
  MenuSet menus(kScopeDocument, &owner,
                [&](const QString& control, int index) { picked << QStringLiteral("%1/%2").arg(control).arg(index); });
  EXPECT_FALSE(menus.action("mnuEditUndo")->isEnabled());
  menus.setHave(kNeedPicture | kNeedUndo | 0xFFFF0000u | kNotBuilt);
  EXPECT_TRUE(menus.action("mnuEditUndo")->isEnabled());
  EXPECT_FALSE(menus.action("mnuEditRedo")->isEnabled());
  EXPECT_FALSE(menus.action("mnuFileSub", 22)->isEnabled()) << "what is not built never becomes enabled";
  menus.action("mnuFileSub", 1)->trigger();
  menus.action("mnuEditUndo")->trigger();
  menus.action("mnuEditRedo")->trigger();
  EXPECT_EQ(picked.join(' '), "mnuFileSub/1 mnuEditUndo/-1");
}

TEST(MenuTable, HistoryShowsAsManyItemsAsThereArePaths) {
  QWidget owner;
  MenuSet menus(kScopeMain, &owner, [](const QString&, int) {});
  EXPECT_FALSE(menus.action("mnuFileHistory", 0)->isVisible());
  menus.setHistory("mnuFileHistory", {"/a/R&D [*].bmp", "/b"}, {"/whole/a", "/whole/b"});
  EXPECT_TRUE(menus.action("mnuFileHistory", 0)->isVisible());
  EXPECT_EQ(menus.action("mnuFileHistory", 1)->text(), "&1 /a/R&&D [*].bmp");
  EXPECT_EQ(menus.action("mnuFileHistory", 2)->toolTip(), "/whole/b");
  EXPECT_FALSE(menus.action("mnuFileHistory", 3)->isVisible());
}

}  // namespace
}  // namespace ruvo
