// The four panels of the animation window.
#pragma once

#include <memory>

#include "animation/model/frame_series.h"
#include "animation/model/frame_settings.h"
#include "animation/model/series_resize.h"
#include "animation/session_panel.h"

namespace ruvo {

// "Minimize file size"
class MinimizePanel : public SessionPanel {
  Q_OBJECT

 public:
  MinimizePanel(SessionHost& host, QWidget* parent);
  ~MinimizePanel() override;

 protected:
  void opened() override;
  void undone() override;

 private:
  void showOffered();
  void showProceed();
  void proceed();

  struct Private;
  std::unique_ptr<Private> d_;
};

// "Modify settings"
class SettingsPanel : public SessionPanel {
  Q_OBJECT

 public:
  SettingsPanel(SessionHost& host, QWidget* parent);
  ~SettingsPanel() override;
  void frameSelected() override;

 protected:
  void opened() override;
  void undone() override;

 private:
  QLayout* buildFields();
  void showFrame();
  void showWritten();
  SettingsOrder order() const;
  void proceed();

  struct Private;
  std::unique_ptr<Private> d_;
};

// "Edit frame series  (add/delete/replace/clone/swap/shift/edit frames)"
class SeriesPanel : public SessionPanel {
  Q_OBJECT

 public:
  SeriesPanel(SessionHost& host, QWidget* parent);
  ~SeriesPanel() override;
  void frameSelected() override;
  // Asks and moves, as "Move current frame to" does.
  void moveFrame(int from, int to);

 Q_SIGNALS:
  void settingsAsked();  // "Edit Setting"

 protected:
  void opened() override;
  void closing() override;
  void undone() override;

 private:
  QLayout* buildFrameButtons();
  QLayout* buildOrderButtons();
  void showFrames();
  void edit(SeriesAction action);
  void edit(SeriesOrder order);
  bool chooseSize(SeriesOrder& order);
  bool chooseFile(SeriesOrder& order);

  struct Private;
  std::unique_ptr<Private> d_;
};

// "Resize "
class ResizePanel : public SessionPanel {
  Q_OBJECT

 public:
  ResizePanel(SessionHost& host, QWidget* parent);
  ~ResizePanel() override;

 protected:
  void opened() override;
  void undone() override;

 private:
  QLayout* buildFields();
  ResizeOrder order() const;
  void showNewSize();
  void proceed();
  void readAgain();

  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace ruvo
