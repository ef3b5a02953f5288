// A panel of the animation window ("fraOperation" 1 to 4): settings, series, resize, minimise. What they have in common
// stands here: the backup on disk that opening makes, the one-level Undo that goes back to it, Animate and Stop, and
// Close.
#pragma once

#include <QGroupBox>

#include "animation/session_host.h"

class QLayout;
class QPushButton;

namespace ruvo {

// A panel is a strip, wide (700 to 780 at the usual font) and low (up to about 230), and is made hidden.
class SessionPanel : public QGroupBox {
  Q_OBJECT

 public:
  SessionPanel(SessionHost& host, SessionWork work, int index, const QString& title, QWidget* parent);

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
  void setButtons(QPushButton* animate, QPushButton* stop, QPushButton* undo, QPushButton* close);

  // Lays out what the panel holds: its fields with a column of buttons at their right.
  void layOut(QLayout* fields, const QList<QPushButton*>& column);

  void tell(const QString& words) const;
  // Yes or No.
  bool ask(const QString& question) const;
  // Runs work that may take long, with the window locked and its progress shown.
  template <typename Work>
  auto atWork(Work&& work) const {
    const Lock lock(host_);
    return work(lock.progress);
  }

 private:
  struct Lock {
    explicit Lock(SessionHost& window) : host(window), progress(window.beginWork()) {}
    ~Lock() { host.endWork(); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    SessionHost& host;
    const Progress progress;
  };
  void undo();

  SessionHost& host_;
  SessionWork work_;
  bool open_ = false;
  QPushButton* animate_ = nullptr;
  QPushButton* stop_ = nullptr;
  QPushButton* undo_ = nullptr;
};

}  // namespace ruvo
