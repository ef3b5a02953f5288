// Controls as windows and panels are made of them: each carries its fixed name as objectName, and a member of a control
// array is named "array(index)".
#pragma once

#include <QString>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QWidget;

namespace ruvo {

QString controlName(const QString& array, int index);

// Never the default of its dialog until it is made so.
QPushButton* namedButton(const QString& name, const QString& text, QWidget* parent);
QCheckBox* namedCheckBox(const QString& name, const QString& text, QWidget* parent);
QComboBox* namedComboBox(const QString& name, const QStringList& items, QWidget* parent);
// Plain text, whatever it looks like.
QLabel* namedLabel(const QString& name, const QString& text, QWidget* parent);

}  // namespace ruvo
