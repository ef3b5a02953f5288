// The comment of an animation (`txbModifyComment`). What would make it longer than a file may hold is refused whole:
// nothing is cut without being seen.
#pragma once

#include <QPlainTextEdit>

namespace ruvo {

class CommentField : public QPlainTextEdit {
 public:
  CommentField(const QString& name, int mostCharacters, QWidget* parent);

  // One that is too long already may stay, and be made shorter.
  void setComment(const QString& comment);
  // What was set as it was, line ends and all, as long as nobody changed it.
  QString comment() const;

 private:
  void refuseTooMuch();

  const int most_;
  QString set_;
  QString unchanged_;  // what the field makes of it
  QString before_;
};

}  // namespace ruvo
