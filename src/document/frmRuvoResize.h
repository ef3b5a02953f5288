// Asks for the new size of a picture and for what changes with it: picture, canvas or edges.
#pragma once

#include <QDialog>
#include <array>

#include "document/model/resize_rules.h"
#include "document/model/session_state.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace ruvo {

class frmRuvoResize : public QDialog {
 public:
  // Without the imaging service a note says what its lack means.
  frmRuvoResize(Size original, bool imagingUsable, QWidget* parent = nullptr);

  ResizeMode mode() const;
  Size chosenSize() const { return resizedTo(original_, entry_); }
  // Refuses a size in words and stays. One that changes nothing counts as cancelled.
  void accept() override;

  // Shows the dialog for a picture of the session's new-image size, stores the answer there and sets the
  // dialog-cancelled flag. Nothing when it was cancelled.
  static std::optional<ResizeMode> ask(SessionState& session, QWidget* parent);

 private:
  QWidget* buildMethods();
  void addPercent(QGridLayout& grid, int row, ResizeMethod method);
  void addWidthAndHeight(QGridLayout& grid, int row);
  QLineEdit* sizeField(const char* name, SizeField field);
  QRadioButton* optionOf(ResizeMethod method) const { return options_[static_cast<std::size_t>(method)]; }
  void take(ResizeMethod method);
  void takeTyped(SizeField field);
  void fillOtherSide();
  void showNewSize();
  void focusMethod();

  const Size original_;
  ResizeEntry entry_;
  QComboBox* modes_ = nullptr;
  std::array<QRadioButton*, kResizeMethodTexts.size()> options_ = {};
  std::array<QComboBox*, kResizeMethodTexts.size()> percents_ = {};  // null for the method that has none
  QLineEdit* width_ = nullptr;
  QLineEdit* height_ = nullptr;
  QCheckBox* keepAspect_ = nullptr;
  QLabel* newSize_ = nullptr;
};

}  // namespace ruvo
