// The window in which one animated GIF is viewed and edited. It shows a GifSession and passes every change on to the
// model, to a panel or to a window over it. Every control's objectName is its fixed name.
#pragma once

#include <QMainWindow>
#include <memory>

#include "animation/session_host.h"

namespace ruvo {

class frmRuvoGIFani : public QMainWindow, public SessionHost {
  Q_OBJECT

 public:
  // `link` outlives the window. Nothing is open yet.
  explicit frmRuvoGIFani(MainWindowLink& link, QWidget* parent = nullptr);
  ~frmRuvoGIFani() override;

  // Asks for a file to open; empty when cancelled.
  static QString pickFile(QWidget* parent, const QString& folder);
  // Opens a file; atStart uses the words of a session's start. False, with the words told, when it can not be opened;
  // the session is then as it was. Asks first when there is unsaved work.
  bool openFile(const QString& file, bool atStart = false);

  // Presses the button of that index of `cmdGIFaniMain`.
  void cmdGIFaniMain_Click(int index);

  // --- SessionHost
  GifSession& session() override;
  MainWindowLink& link() override;
  QWidget* window() override { return this; }
  int selectedFrame() const override;
  void selectFrame(int frame) override;
  bool animating() const override;
  void startAnimation() override;
  void stopAnimation() override;
  void refreshAll(int frame) override;
  void refreshFrame() override;
  void showFileSize() override;
  void setPattern(int item) override;
  Progress beginWork() override;
  void endWork() override;

 Q_SIGNALS:
  // The window is closed for good. `selectedFrameFile` is the frame that goes to the paint side; empty for none.
  void sessionEnded(const QString& selectedFrameFile);

 protected:
  void closeEvent(QCloseEvent* event) override;
  // The arrow keys walk through the frames, Space plays and stops.
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;  // opens the file

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
