#include "canvas/canvas_cursors.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// The drawings lie in a static library, from which nothing else would pull them in. The macro needs the global
// namespace.
static void bringInDrawings() {
  Q_INIT_RESOURCE(assets);
}

namespace ruvo {
namespace {

constexpr int kCursorSide = 32;  // logical pixels; the drawings use the same grid

// Hot spots by lower-case word, from the list beside the drawings.
const QHash<QString, QPoint>& hotSpots() {
  static const QHash<QString, QPoint> spots = [] {
    QHash<QString, QPoint> read;
    QFile file(QStringLiteral(":/icons/cursors.txt"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return read;
    for (const QString& line : QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'))) {
      const QStringList parts = line.split(QLatin1Char(' '));
      if (parts.size() == 3) read.insert(parts[0], QPoint(parts[1].toInt(), parts[2].toInt()));
    }
    return read;
  }();
  return spots;
}

Qt::CursorShape shapeOf(CursorWord word) {
  switch (word) {
    case CursorWord::Arrow:
    case CursorWord::Unchanged:
      return Qt::ArrowCursor;
    case CursorWord::HandOff:
      return Qt::OpenHandCursor;
    case CursorWord::HandOn:
      return Qt::ClosedHandCursor;
    case CursorWord::SizeVertical:
      return Qt::SizeVerCursor;
    case CursorWord::SizeHorizontal:
      return Qt::SizeHorCursor;
    case CursorWord::RegionDrag:
    case CursorWord::PasteDrag:
      return Qt::SizeAllCursor;
    default:
      return Qt::CrossCursor;
  }
}

}  // namespace

QCursor canvasCursor(CursorWord word, double scale) {
  const QString name = QString::fromLatin1(cursorWordText(word)).toLower();
  const QString file = QStringLiteral(":/icons/cursor_%1.svg").arg(name);
  bringInDrawings();
  if (name.isEmpty() || !QFile::exists(file)) return shapeOf(word);
  QSvgRenderer drawing(file);
  QPixmap pixmap(QSize(kCursorSide, kCursorSide) * scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  drawing.render(&painter);
  painter.end();
  pixmap.setDevicePixelRatio(scale);
  const QPoint hot = hotSpots().value(name, QPoint(kCursorSide / 2, kCursorSide / 2));
  return QCursor(pixmap, hot.x(), hot.y());
}

}  // namespace ruvo
