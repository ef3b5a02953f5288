#include "platform/desktop/list_printing.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>
#include <numeric>

#include "base/number_format.h"

namespace ruvo::desktop {
namespace {

constexpr qreal kUsualPoints = 9;
constexpr qreal kLeastPoints = 4;
constexpr qreal kGapInEms = 1.2;  // between columns
constexpr std::string_view kPageNumberFormat = "###";

QList<qreal> columnWidths(const PrintedList& list, const QFontMetricsF& metrics) {
  const qreal gap = kGapInEms * metrics.horizontalAdvance('M');
  QList<qreal> widths;
  for (const QStringList& row : list.rows) {
    if (widths.size() < row.size()) widths.resize(row.size());
    for (qsizetype i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], metrics.horizontalAdvance(row[i]) + gap);
  }
  return widths;
}

// The largest font of the usual size or below with which the columns fit.
QFont fittingFont(QFont font, const PrintedList& list, QPaintDevice& device) {
  font.setPointSizeF(kUsualPoints);
  const QList<qreal> widths = columnWidths(list, QFontMetricsF(font, &device));
  const qreal whole = std::accumulate(widths.begin(), widths.end(), qreal(0));
  if (whole > device.width()) font.setPointSizeF(std::max(kLeastPoints, kUsualPoints * device.width() / whole));
  return font;
}

}  // namespace

bool paintPages(QPagedPaintDevice& device, const PrintedList& list) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  painter.setFont(fittingFont(painter.font(), list, device));
  const QFontMetricsF metrics(painter.font(), &device);
  const QList<qreal> widths = columnWidths(list, metrics);
  const qreal line = metrics.lineSpacing();
  // The title with a blank line above the rows, the page mark with one below them.
  const auto rowsOnPage = std::max<qsizetype>(1, static_cast<qsizetype>(device.height() / line) - 4);

  qsizetype row = 0;
  for (int page = 1; page == 1 || row < list.rows.size(); ++page) {
    if (page > 1 && !device.newPage()) return false;
    painter.drawText(QPointF(0, metrics.ascent()), list.title);
    const qsizetype end = std::min(list.rows.size(), row + rowsOnPage);
    for (qreal y = 2 * line + metrics.ascent(); row < end; ++row, y += line) {
      qreal x = 0;
      for (qsizetype i = 0; i < list.rows[row].size(); x += widths[i++])
        painter.drawText(QPointF(x, y), list.rows[row][i]);
    }
    painter.drawText(QRectF(0, device.height() - line, device.width(), line), Qt::AlignRight,
                     "P " + QString::fromStdString(formatNumber(page, kPageNumberFormat)));
  }
  return painter.end();
}

}  // namespace ruvo::desktop
