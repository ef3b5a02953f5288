#include "platform/desktop/list_printing.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>

namespace ruvo::desktop {
namespace {

int pagesOf(int rows, const QString& text) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter device(&buffer);
    PrintedList list{"Title", {}};
    for (int i = 0; i < rows; ++i) list.rows << QStringList{QString::number(i), text};
    EXPECT_TRUE(paintPages(device, list));
  }
  return static_cast<int>(buffer.data().count("/Type /Page\n"));
}

TEST(ListPrinting, RowsGoOnAsManyPagesAsTheyNeed) {
  EXPECT_EQ(pagesOf(0, ""), 1);
  EXPECT_EQ(pagesOf(20, "short"), 1);
  const int pages = pagesOf(120, "short");
  EXPECT_GT(pages, 1);
  // Rows too wide for the usual letters are set in smaller ones, which leave room for more of them.
  EXPECT_LT(pagesOf(120, QString(200, 'w')), pages);
}

}  // namespace
}  // namespace ruvo::desktop
