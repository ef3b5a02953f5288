// "Edit Palette": colours, entries and the transparent colour, on a copy of the session's GIF.
#pragma once

#include <QDialog>
#include <filesystem>
#include <memory>

namespace ruvo {

class MainWindowLink;

class frmRuvoGIFaniEditPalette : public QDialog {
  Q_OBJECT

 public:
  // `file` was written by the session (frame `frame` is shown first) and is the backup that Restore reads. When
  // changed() is true after exec(), the result stands in that file.
  frmRuvoGIFaniEditPalette(std::filesystem::path file, int frame, MainWindowLink& link, QWidget* parent);
  ~frmRuvoGIFaniEditPalette() override;
  // False when the file could not be read.
  bool loaded() const;
  bool changed() const;
  void reject() override;  // Close

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
