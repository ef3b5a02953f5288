// A panel of the animation window ("fraOperation" 1 to 4): settings, series, resize, minimise. What they have in common
// stands here: the backup on disk that opening makes, the one-level Undo that goes back to it, Animate and Stop, and
// Close.
#pragma once

#include <QWidget>

#include "animation/session_host.h"

class QAbstractButton;

namespace ruvo {

class SessionPanel : public QWidget {
  Q_OBJECT

 public:
  SessionPanel(SessionHost& host, SessionWork work, QWidget* parent);

  bool isOpen() const { return open_; }
  // Writes the backup and shows the panel. False, with the words told, when that can not be written.
  bool openPanel();
  // Drops the backup and hides the panel; when Undo still stands, the work is unsaved and the file size is measured.
  void closePanel();

 public Q_SLOTS:
  // The window selected another frame, or the animation began or ended.
  virtual void frameSelected() {}
  void animationChanged(bool running);

 Q_SIGNALS:
  void closed();

 protected:
  SessionHost& host() const { return host_; }
  GifSession& session() const { return host_.session(); }
  // What the panel shows when it opens, and what it puts back when it closes.
  virtual void opened() {}
  virtual void closing() {}
  // After an Undo: the model is the backup's again.
  virtual void undone() {}
  // A change was made: Undo works, the work is unsaved, and the window shows it with that frame selected.
  void changeMade(int frame);
  // The panel's own buttons, connected by the base class.
  void setButtons(QAbstractButton* animate, QAbstractButton* stop, QAbstractButton* undo, QAbstractButton* close);

 private:
  void undo();

  SessionHost& host_;
  SessionWork work_;
  bool open_ = false;
  QAbstractButton* animate_ = nullptr;
  QAbstractButton* stop_ = nullptr;
  QAbstractButton* undo_ = nullptr;
  QAbstractButton* close_ = nullptr;
};

}  // namespace ruvo
