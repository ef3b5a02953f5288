// Menus as tables of rows: text, shortcut, when enabled, whose. The main window and every document build their menus from
// one, tests walk it, and a command is told by its control name and index. (The animation window has a table of its own.)
#pragma once

#include <QList>
#include <QString>
#include <filesystem>
#include <functional>
#include <span>

class QAction;
class QMenu;
class QWidget;

namespace ruvo {

// Who shows a row.
enum MenuScope : unsigned { kScopeMain = 1, kScopeDocument = 2, kScopeBoth = 3 };

// What a row needs to be enabled. A row that needs kNotBuilt is always disabled.
enum MenuNeed : unsigned {
  kNeedNothing = 0,
  kNeedPicture = 1,
  kNeedRegion = 2,
  kNeedUndo = 4,
  kNeedRedo = 8,
  kNeedClipboard = 16,
  kNeedImaging = 32,
  kNeedPaintMode = 64,
  kNotBuilt = 0x8000,
};

struct MenuRow {
  const char* control;  // "mnuFileSub"; a row with children is the parent's control name
  int index;            // within a control array, -1 for a single control
  const char*
      parent;  // control of the row above, with its index as "mnuFileSub(4)" where it is an array; "" for a bar entry
  const char* text;      // as shown, "&" marks the mnemonic; "-" is a separator
  const char* shortcut;  // "Ctrl+N" or ""
  unsigned needs;
  unsigned scope;
  bool checkable;
};

std::span<const MenuRow> menuTable();

// One built copy of the menus of a scope.
class MenuSet {
 public:
  // `trigger` is called with the control name and index of each row that the user picks.
  using Trigger = std::function<void(const QString& control, int index)>;
  MenuSet(unsigned scope, QWidget* owner, Trigger trigger) : MenuSet(menuTable(), scope, owner, std::move(trigger)) {}
  // The rows outlive it.
  MenuSet(std::span<const MenuRow> table, unsigned scope, QWidget* owner, const Trigger& trigger);
  const QList<QMenu*>& menus() const { return bar_; }
  QAction* action(const QString& control, int index = -1) const;  // null when this scope has no such row
  QMenu* menu(const QString& control, int index = -1) const;      // the submenu of a row with children
  // Enables each row by what there is now (a set of MenuNeed bits).
  void setHave(unsigned have);
  // The history rows (item 0 is the separator): shown for each text, hidden beyond.
  void setHistory(const QString& control, const QStringList& shortened, const QStringList& wholePaths);
  // The same from paths, which are shortened; empty ones are passed over.
  void setHistory(const QString& control, std::span<const std::filesystem::path> paths);

 private:
  struct Entry {
    const MenuRow* row;
    QAction* action;
    QMenu* menu;
  };
  QList<QMenu*> bar_;
  QList<Entry> entries_;
};

}  // namespace ruvo
