#include "dialogs/named_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace ruvo {

QString controlName(const QString& array, int index) {
  return QStringLiteral("%1(%2)").arg(array).arg(index);
}

QPushButton* namedButton(const QString& name, const QString& text, QWidget* parent) {
  auto* made = new QPushButton(text, parent);
  made->setObjectName(name);
  made->setAutoDefault(false);
  return made;
}

QCheckBox* namedCheckBox(const QString& name, const QString& text, QWidget* parent) {
  auto* made = new QCheckBox(text, parent);
  made->setObjectName(name);
  return made;
}

QComboBox* namedComboBox(const QString& name, const QStringList& items, QWidget* parent) {
  auto* made = new QComboBox(parent);
  made->setObjectName(name);
  made->addItems(items);
  return made;
}

QLabel* namedLabel(const QString& name, const QString& text, QWidget* parent) {
  auto* made = new QLabel(text, parent);
  made->setObjectName(name);
  made->setTextFormat(Qt::PlainText);
  return made;
}

}  // namespace ruvo
