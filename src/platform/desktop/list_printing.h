// A list on paper: its columns aligned, in letters small enough for the page's width, each page with its number.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QPagedPaintDevice;

namespace ruvo::desktop {

struct PrintedList {
  QString title;            // above the rows of every page
  QList<QStringList> rows;  // texts of the columns; rows may differ in their number
};

// False when the device takes no painting or no next page.
bool paintPages(QPagedPaintDevice& device, const PrintedList& list);

}  // namespace ruvo::desktop
