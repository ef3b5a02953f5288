// Controls as windows and panels are made of them: each carries its fixed name as objectName, and a member of a control
// array is named "array(index)".
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QLabel;
class QObject;
class QPushButton;
class QValidator;
class QWidget;

namespace ruvo {

QString controlName(const QString& array, int index);

// Never the default of its dialog until it is made so.
QPushButton* namedButton(const QString& name, const QString& text, QWidget* parent);
// The members of a control array, from index 0.
QList<QPushButton*> namedButtons(const QString& array, const QStringList& texts, QWidget* parent);
QCheckBox* namedCheckBox(const QString& name, const QString& text, QWidget* parent);
QComboBox* namedComboBox(const QString& name, const QStringList& items, QWidget* parent);
// Plain text, whatever it looks like.
QLabel* namedLabel(const QString& name, const QString& text, QWidget* parent);

// Lets digits be typed as long as their number is at most that; an empty field stands for 0.
QValidator* wholeNumbersUpTo(int most, QObject* parent);

}  // namespace ruvo
