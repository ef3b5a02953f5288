// The option frames `fraOption(0)` to `fraOption(9)`: what the chosen tool can be set to. One is shown at a time.
#pragma once

#include <QImage>
#include <QWidget>
#include <array>
#include <functional>

#include "document/frmRuvoPaint.h"
#include "shell/frmRuvomain_Colors.h"
#include "shell/shell_controls.h"

class QAbstractButton;
class QComboBox;
class QLabel;
class QToolButton;

namespace ruvo::shell {

class ColorBox;

inline constexpr int kOptionFrameCount = 10;

// The loaded pictures that custom tools use, as the frames show them. Null when nothing is loaded.
struct CustomPictures {
  QImage brush;
  QImage brushMask;
  QImage pattern;
  QImage stamp;
  QImage stampMask;
};

// A row of options of which one is chosen.
struct OptionArray {
  QList<QAbstractButton*> options;
  QLabel* chosenName = nullptr;
  int value = 0;
  void choose(int index);
};

class OptionFrames : public Panel {
 public:
  // The operation of the active document that a control's change is passed to.
  using Call = void (frmRuvoPaint::*)();
  struct Calls {
    std::function<void(Call)> tell;
    std::function<void(int)> loadStamp;
    std::function<void(int)> regionOperation;
    std::function<void(PaletteKind, int box)> palette;
  };

  OptionFrames(QWidget* parent, Calls calls);

  // Hides every frame; then, from 0 up, shows that one.
  void SetOptionFrame(int index);
  int shown() const { return shown_; }
  // No frame's text is cut at this width.
  int widestFrame() const;

  void readInto(ToolboxState& state) const;
  ColorBox& bezierBox() { return *bezierBox_; }
  void setCustomPictures(const CustomPictures& pictures);
  // The specimen of an automatic polygon is drawn in this colour.
  void setSpecimenColour(const QColor& colour);

 private:
  QWidget* addFrame(const QString& caption);
  void buildBrushFrame();
  void buildFillFrame();
  void buildPolygonFrame();
  void buildLineFrame();
  void buildBezierFrame();
  void buildRectangleFrame();
  void buildOvalFrame();
  void buildStampFrame();
  void buildSprayFrame();
  void buildRegionFrame();
  // A grid of picture tiles with the chosen one's name beneath; `call` is told after each choice. An option that
  // `allowed` refuses is not chosen.
  struct Tiles {
    const char* optionArray;
    const char* pictureArray;
    const char* picture;
    QStringList captions;
    int columns;
  };
  void addTiles(QWidget* frame, OptionArray& array, const Tiles& tiles, std::function<bool(int)> allowed,
                std::function<void()> changed);
  QComboBox* addCombo(QWidget* frame, const QString& caption, const QString& name, const QStringList& items, int first,
                      Call call);
  void addRadios(QWidget* frame, OptionArray& array, const char* name, const QStringList& captions, const char* picture,
                 std::function<void()> changed);
  bool brushAllowed(int style);
  bool patternAllowed(int pattern);
  void showPolygonParts();
  void showStampWeight();

  Calls calls_;
  std::array<QWidget*, kOptionFrameCount> frames_{};
  int shown_ = -1;

  OptionArray brushStyle_;
  OptionArray fillPattern_;
  OptionArray polygonMethod_;
  OptionArray lineType_;
  OptionArray rectangleCorner_;
  OptionArray ovalEnhancement_;
  QComboBox* brushOpaque_ = nullptr;
  QComboBox* customShape_ = nullptr;
  QComboBox* customManner_ = nullptr;
  QComboBox* polygonOperation_ = nullptr;
  std::array<QComboBox*, 4> polygonSetting_{};
  QWidget* polygonAuto_ = nullptr;
  QComboBox* stampStyle_ = nullptr;
  QComboBox* stampWeight_ = nullptr;
  QWidget* stampWeightRow_ = nullptr;
  QComboBox* sprayDensity_ = nullptr;
  QComboBox* sprayOpaque_ = nullptr;
  QWidget* customBrushRow_ = nullptr;
  QWidget* specimen_ = nullptr;
  ColorBox* bezierBox_ = nullptr;
  QLabel* picCustomBrush_ = nullptr;
  QLabel* picCustomBrushMask_ = nullptr;
  QLabel* picCustomPattern_ = nullptr;
  QLabel* picStamp_ = nullptr;
  QLabel* picStampMask_ = nullptr;
  bool brushLoaded_ = false;
  bool patternLoaded_ = false;
};

}  // namespace ruvo::shell
