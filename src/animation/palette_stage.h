// What both palette windows have in common: the animation that they work on with its frame lists and ground, their own
// palette view in turns with the film strip, and the row `cmdOperation`.
#pragma once

#include <QWidget>

#include "animation/model/work_copy.h"

class QAbstractButton;
class QComboBox;
class QStackedWidget;

namespace ruvo {

class FilmStrip;
class GifField;

class PaletteStage : public QWidget {
  Q_OBJECT

 public:
  // Indices of `cmdOperation`.
  enum Operation { kRestore = 0, kClose = 1, kAnimate = 2, kStop = 3, kShowPalette = 4, kFrames = 5 };

  // `work` is loaded and outlives the stage. `patterns` grounds of the list are offered; `showPalette` is the text of
  // the button that brings `palettes` back; `tools` stand beside both.
  PaletteStage(WorkCopy& work, int frame, int patterns, const QString& showPalette, QWidget* palettes, QWidget* tools,
               QWidget* parent);

  int frame() const { return frame_; }
  void stopAnimation();
  // The model changed: lists, picture and strip are made anew, then shown() is told.
  void refresh();

 Q_SIGNALS:
  // The frame or the model is another one.
  void shown();
  // A click on the picture, on a pixel of that index in the frame that is selected.
  void indexClicked(int index, Qt::MouseButton button);
  void restored();
  void closeAsked();

 private:
  void build(int patterns, const QString& showPalette, QWidget* palettes, QWidget* tools);
  QWidget* buildPicture(int patterns);
  QWidget* buildOperations(const QString& showPalette);
  void fillFrames();
  void selectFrame(int frame);
  void pressPicture(const QPoint& place, Qt::MouseButton button);
  void restore();
  void turnTo(int page);
  void showRunning();

  WorkCopy& work_;
  int frame_;
  GifField* field_ = nullptr;
  FilmStrip* film_ = nullptr;
  QComboBox* frames_ = nullptr;
  QComboBox* frameData_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  QAbstractButton* operations_[6] = {};
};

// Messages over a window, through the desktop.
void tellWords(QWidget* window, const std::string& words);
bool askWords(QWidget* window, const std::string& question);
bool askCarefully(QWidget* window, const std::string& question);  // Yes loses something

// Stores the work of a window that is to be closed. When that fails, the user may go on or give the work up; true when
// the window may close.
bool storeOrAsk(QWidget* window, WorkCopy& work);

}  // namespace ruvo
