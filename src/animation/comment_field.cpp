#include "animation/comment_field.h"

#include <QSignalBlocker>
#include <QTextCursor>
#include <algorithm>

namespace ruvo {
namespace {

qsizetype charactersOf(const QString& text) {
  return text.toUcs4().size();
}

}  // namespace

CommentField::CommentField(const QString& name, int mostCharacters, QWidget* parent)
    : QPlainTextEdit(parent), most_(mostCharacters) {
  setObjectName(name);
  setTabChangesFocus(true);
  connect(this, &QPlainTextEdit::textChanged, this, &CommentField::refuseTooMuch);
}

void CommentField::setComment(const QString& comment) {
  const QSignalBlocker quiet(this);
  set_ = comment;
  setPlainText(comment);
  unchanged_ = before_ = toPlainText();
}

QString CommentField::comment() const {
  const QString now = toPlainText();
  return now == unchanged_ ? set_ : now;
}

void CommentField::refuseTooMuch() {
  const QString now = toPlainText();
  const qsizetype length = charactersOf(now);
  if (length <= most_ || length <= charactersOf(before_)) {
    before_ = now;
    return;
  }
  const QSignalBlocker quiet(this);
  const qsizetype place = textCursor().position() - (now.size() - before_.size());
  setPlainText(before_);
  QTextCursor cursor = textCursor();
  cursor.setPosition(static_cast<int>(std::clamp<qsizetype>(place, 0, before_.size())));
  setTextCursor(cursor);
}

}  // namespace ruvo
