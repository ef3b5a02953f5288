#include <QAction>
#include <QMenu>

#include "document/menu_table.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/texts.h"

namespace ruvo {
namespace {

// The name by which a row's children call it: "mnuFileSub(4)", or the plain control name outside an array.
QString rowName(const MenuRow& row) {
  const QString control = QString::fromLatin1(row.control);
  return row.index < 0 ? control : QStringLiteral("%1(%2)").arg(control).arg(row.index);
}

bool hasChildren(std::span<const MenuRow> table, const MenuRow& row) {
  const QString name = rowName(row);
  for (const MenuRow& other : table) {
    if (name == QLatin1String(other.parent)) return true;
  }
  return false;
}

}  // namespace

MenuSet::MenuSet(std::span<const MenuRow> table, unsigned scope, QWidget* owner, const Trigger& trigger) {
  QHash<QString, QMenu*> byName;
  for (const MenuRow& row : table) {
    if (!(row.scope & scope)) continue;
    QMenu* above = byName.value(QString::fromLatin1(row.parent));
    const QString name = rowName(row);
    if (!*row.parent || hasChildren(table, row)) {
      auto* menu = new QMenu(QString::fromUtf8(row.text), owner);
      menu->setObjectName(name);
      menu->setToolTipsVisible(true);
      byName.insert(name, menu);
      if (above)
        above->addMenu(menu);
      else
        bar_ << menu;
      entries_ << Entry{&row, menu->menuAction(), menu};
      continue;
    }
    QAction* action = above->addAction(QString::fromUtf8(row.text));
    action->setObjectName(name);
    entries_ << Entry{&row, action, nullptr};
    if (QLatin1String(row.text) == QLatin1String("-")) {
      action->setSeparator(true);
      // A separator with a text would show it.
      action->setText(QString());
      continue;
    }
    action->setCheckable(row.checkable);
    if (*row.shortcut) action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
    QObject::connect(action, &QAction::triggered, owner,
                     [trigger, &row] { trigger(QString::fromLatin1(row.control), row.index); });
  }
  setHave(kNeedNothing);
  setHistory(QStringLiteral("mnuFileHistory"), {}, {});
  setHistory(QStringLiteral("mnuFileHistoryGIFani"), {}, {});
}

QAction* MenuSet::action(const QString& control, int index) const {
  for (const Entry& entry : entries_) {
    if (control == QLatin1String(entry.row->control) && index == entry.row->index) return entry.action;
  }
  return nullptr;
}

QMenu* MenuSet::menu(const QString& control, int index) const {
  for (const Entry& entry : entries_) {
    if (entry.menu && control == QLatin1String(entry.row->control) && index == entry.row->index) return entry.menu;
  }
  return nullptr;
}

void MenuSet::setHave(unsigned have) {
  const unsigned known = have & ~static_cast<unsigned>(kNotBuilt);
  for (const Entry& entry : entries_) entry.action->setEnabled((entry.row->needs & ~known) == 0);
}

void MenuSet::setHistory(const QString& control, const QStringList& shortened, const QStringList& wholePaths) {
  for (const Entry& entry : entries_) {
    if (control != QLatin1String(entry.row->control)) continue;
    const int place = entry.row->index;
    const bool shown = place == 0 ? !shortened.isEmpty() : place <= shortened.size();
    entry.action->setVisible(shown);
    if (!shown || place == 0) continue;
    QString text = shortened[place - 1];
    entry.action->setText(QStringLiteral("&%1 %2").arg(place).arg(text.replace('&', QLatin1String("&&"))));
    entry.action->setToolTip(desktop::plainToolTip(wholePaths.value(place - 1)));
  }
}

void MenuSet::setHistory(const QString& control, std::span<const std::filesystem::path> paths) {
  QStringList shortened;
  QStringList whole;
  for (const std::filesystem::path& path : paths) {
    if (path.empty()) continue;
    whole << toText(path);
    shortened << qt(shortenPath(utf8Of(path)));
  }
  setHistory(control, shortened, whole);
}

}  // namespace ruvo
