#include "platform/desktop/per_user_store.h"

#include <QSettings>

namespace ruvo::desktop {

PerUserStore::PerUserStore()
    : settings_(std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, "RuvoPaint")) {}
PerUserStore::PerUserStore(const QString& file) : settings_(std::make_unique<QSettings>(file, QSettings::IniFormat)) {}
PerUserStore::~PerUserStore() = default;

QString PerUserStore::text(const QString& section, const QString& key) const {
  settings_->sync();
  return settings_->value(section + '/' + key).toString();
}

bool PerUserStore::setText(const QString& section, const QString& key, const QString& text) {
  settings_->setValue(section + '/' + key, text);
  settings_->sync();
  return settings_->status() == QSettings::NoError;
}

}  // namespace ruvo::desktop
