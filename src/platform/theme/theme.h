// The program's look: a few colour roles for a light and a dark theme, the palette made from them, and the icons, which
// are SVG drawings recoloured with the theme's ink and rendered at the size and scale that is asked for.
#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;

namespace ruvo::theme {

// Side of the icons on buttons, in logical pixels.
inline constexpr int kIconSide = 20;

struct Roles {
  bool dark = false;
  QColor window;     // bars and panels
  QColor raised;     // frames on a panel
  QColor field;      // text fields, lists
  QColor workspace;  // behind the documents
  QColor ink;        // text and icons
  QColor quietInk;   // secondary text
  QColor line;       // dividers and borders
  QColor accent;     // selection, progress, focus
  QColor accentInk;  // text on the accent
  QColor hover;
  QColor pressed;
  QColor selected;  // fill of a chosen tool
};

// Sets style and palette (a style sheet would more than double the time that a start takes). Dark when the desktop's
// own palette is dark; the environment variable RUVO_THEME
// ("light" or "dark") decides instead when it is set. Call once, before the first window is made.
void apply(QApplication& application);

// The roles that `apply` chose (light before it).
const Roles& roles();

// The drawing ":/icons/NAME.svg" in the theme's ink; disabled, it is paler. A name without a drawing gives an icon that
// paints nothing, so that the control keeps its size.
QIcon icon(const QString& name);

}  // namespace ruvo::theme
