// Values that the desktop keeps for a user across programs' runs, by section and key under this program's name.
#pragma once

#include <QString>
#include <memory>

class QSettings;

namespace ruvo::desktop {

class PerUserStore {
 public:
  // The user's own store.
  PerUserStore();
  // One in a file of its own, for tests.
  explicit PerUserStore(const QString& file);
  ~PerUserStore();

  // Empty when missing. Sees what other processes have written since.
  QString text(const QString& section, const QString& key) const;
  // Written at once; false when it could not be.
  bool setText(const QString& section, const QString& key, const QString& text);

 private:
  std::unique_ptr<QSettings> settings_;
};

}  // namespace ruvo::desktop
