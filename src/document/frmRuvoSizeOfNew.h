// Asks for the size of a new picture (or of a new animation's frames): one of a few sizes, or any within the limits.
#pragma once

#include <QDialog>

#include "base/geometry.h"
#include "document/model/new_size_rules.h"
#include "document/model/session_state.h"

class QButtonGroup;
class QLineEdit;

namespace ruvo {

class frmRuvoSizeOfNew : public QDialog {
  Q_OBJECT

 public:
  enum class Use { Picture, AnimationFrame };

  frmRuvoSizeOfNew(Use use, Size initial, QWidget* parent = nullptr);

  // The size in the two fields; meaningful once the dialog was accepted.
  Size chosenSize() const;
  void accept() override;

  // Shows the dialog with the session's new-image size, stores the answer there and sets its dialog-cancelled flag.
  // True when a size was chosen.
  static bool ask(SessionState& session, QWidget* parent, Use use = Use::Picture);

 private:
  QLineEdit* addSizeField(const char* name, SizeField field);
  void showChoice(int id);

  const std::array<Size, 5>& sizes_;
  QButtonGroup* choices_ = nullptr;
  QLineEdit* width_ = nullptr;
  QLineEdit* height_ = nullptr;
  SizeField enteredLast_ = SizeField::Width;
};

}  // namespace ruvo
