#include "dialogs/named_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QIntValidator>
#include <QLabel>
#include <QPushButton>

namespace ruvo {
namespace {

// Qt's own takes any number with as many digits as the largest, to be refused later.
class WholeNumbers : public QIntValidator {
 public:
  WholeNumbers(int most, QObject* parent) : QIntValidator(0, most, parent) {}
  State validate(QString& text, int& place) const override {
    const State state = QIntValidator::validate(text, place);
    return state == Intermediate && !text.isEmpty() ? Invalid : state;
  }
  void fixup(QString& text) const override { text = QStringLiteral("0"); }
};

}  // namespace

QString controlName(const QString& array, int index) {
  return QStringLiteral("%1(%2)").arg(array).arg(index);
}

QPushButton* namedButton(const QString& name, const QString& text, QWidget* parent) {
  auto* made = new QPushButton(text, parent);
  made->setObjectName(name);
  made->setAutoDefault(false);
  return made;
}

QList<QPushButton*> namedButtons(const QString& array, const QStringList& texts, QWidget* parent) {
  QList<QPushButton*> made;
  for (const QString& text : texts)
    made << namedButton(controlName(array, static_cast<int>(made.size())), text, parent);
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
  made->setMaxVisibleItems(20);
  return made;
}

QLabel* namedLabel(const QString& name, const QString& text, QWidget* parent) {
  auto* made = new QLabel(text, parent);
  made->setObjectName(name);
  made->setTextFormat(Qt::PlainText);
  return made;
}

QValidator* wholeNumbersUpTo(int most, QObject* parent) {
  return new WholeNumbers(most, parent);
}

}  // namespace ruvo
