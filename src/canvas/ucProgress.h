// The progress bar of the main window.
#pragma once

#include <QColor>
#include <QWidget>

namespace ruvo {

class ucProgress : public QWidget {
  Q_OBJECT

 public:
  explicit ucProgress(QWidget* parent = nullptr);

  int BorderStyle() const { return borderStyle_; }
  void setBorderStyle(int style);  // 0 none, 1 a thin line
  // Colours that are not valid (as in a new control) follow the theme.
  QColor BackColor() const { return backColor_; }
  void setBackColor(const QColor& color);
  QColor ForeColor() const { return foreColor_; }
  void setForeColor(const QColor& color);
  bool Enabled() const { return isEnabled(); }
  int Max() const { return max_; }
  void setMax(int max);  // at least 1; a greater Value comes down to it
  int Value() const { return value_; }
  // Clamped to 0..Max. The change is on the screen at return, since long work does not reach the event loop.
  void setValue(int value);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int filledWidth() const;

  int borderStyle_ = 1;
  QColor backColor_;
  QColor foreColor_;
  int max_ = 100;
  int value_ = 0;
};

}  // namespace ruvo
