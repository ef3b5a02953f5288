// Asks by how many pixels each edge of a picture is to move: outwards, where white is added, or inwards, where the
// picture is cut. A small picture shows what will come of it.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "document/model/resize_rules.h"
#include "document/model/session_state.h"

class QLabel;
class QSpinBox;

namespace ruvo {

class EdgePicture;

class frmRuvoAdjustEdge : public QDialog {
 public:
  explicit frmRuvoAdjustEdge(const clsDIB& picture, QWidget* parent = nullptr);

  EdgeChange change() const;
  // Refuses an outcome in words and stays. One that changes nothing counts as cancelled.
  void accept() override;

  // Shows the dialog and sets the session's dialog-cancelled flag. Nothing when it was cancelled.
  static std::optional<EdgeChange> ask(SessionState& session, const clsDIB& picture, QWidget* parent);

 private:
  QWidget* buildEdges(const clsDIB& picture);
  QWidget* buildField(int edge);
  QWidget* buildButtons();
  void showOutcome();

  const Size original_;
  std::array<QSpinBox*, 4> fields_ = {};  // left, top, right, bottom
  EdgePicture* outcome_ = nullptr;
  QLabel* newSize_ = nullptr;
};

}  // namespace ruvo
