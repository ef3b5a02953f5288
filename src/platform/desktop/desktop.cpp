#include "platform/desktop/desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QImage>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QScreen>
#include <QTextDocument>
#include <QUrl>

#include "base/program_title.h"
#include "platform/desktop/clipboard_picture.h"
#include "platform/desktop/cursors.h"
#include "platform/imaging/codecs.h"

namespace ruvo::desktop {
namespace {

constexpr int kLeastMessageWidth = 360;

// "Name (*.a;*.b)|*.a;*.b|..." as a list of Qt's "Name (*.a *.b)". Extensions match in any case.
QStringList qtFilters(const QString& classic) {
  const QStringList parts = classic.split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns;
    for (const QString& pattern : parts[i + 1].split(';', Qt::SkipEmptyParts)) {
      patterns << pattern.trimmed();
      if (pattern != pattern.toUpper()) patterns << pattern.trimmed().toUpper();
    }
    QString name = parts[i].section('(', 0, 0).trimmed();
    if (name.isEmpty()) name = parts[i + 1].simplified().replace(';', ' ');
    filters << name + " (" + patterns.join(' ') + ')';
  }
  return filters;
}

// The patterns are there twice, for both cases of letters; only the names are for people.
constexpr auto kPlainFilters = QFileDialog::HideNameFilterDetails;

QMessageBox::Icon qtIcon(Icon icon) {
  switch (icon) {
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

// The text with places to break long words at: the box would cut the end of a long file name.
QString breakable(const QString& text) {
  constexpr int kLongestWord = 40;
  constexpr QChar kBreakHere(0x200B);
  QString shown;
  int run = 0;
  for (const QChar c : text) {
    run = c.isSpace() ? 0 : run + 1;
    shown += c;
    if (run < kLongestWord || c.isHighSurrogate()) continue;
    shown += kBreakHere;
    run = 0;
  }
  return shown;
}

// Room for the text's own lines where it has some: the box would break them again in the middle.
int messageWidth(const QFontMetrics& metrics, const QString& text) {
  constexpr int kBesideText = 120;  // the icon and the margins
  constexpr int kMostMessageWidth = 800;
  const QStringList lines = text.split('\n');
  if (lines.size() < 2) return kLeastMessageWidth;
  int widest = 0;
  for (const QString& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line));
  const int wanted = widest + kBesideText;
  return wanted <= kMostMessageWidth ? std::max(wanted, kLeastMessageWidth) : kLeastMessageWidth;
}

class QtDesktop : public Desktop {
 public:
  Answer message(QWidget* parent, const QString& text, Icon icon, Buttons buttons) override {
    QMessageBox box(qtIcon(icon), kProgramTitle, breakable(text), QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    // Above the splash, which stays on top of ordinary windows.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.setStandardButtons(buttons == Buttons::Ok ? QMessageBox::Ok : QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(buttons == Buttons::Ok      ? QMessageBox::Ok
                         : buttons == Buttons::YesNo ? QMessageBox::Yes
                                                     : QMessageBox::No);
    if (buttons != Buttons::Ok) box.setEscapeButton(QMessageBox::No);
    // As wide as its title and its lines want it.
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
      grid->addItem(new QSpacerItem(messageWidth(box.fontMetrics(), text), 0), grid->rowCount(), 0, 1,
                    grid->columnCount());
    const int pressed = box.exec();
    if (buttons == Buttons::Ok) return Answer::Ok;
    return pressed == QMessageBox::Yes ? Answer::Yes : Answer::No;
  }

  QString openFile(QWidget* parent, const QString& title, const QString& folder, const QString& filter) override {
    return QFileDialog::getOpenFileName(parent, title, folder, qtFilters(filter).join(";;"), nullptr, kPlainFilters);
  }

  QString saveFile(QWidget* parent, const QString& title, const QString& proposed, const QString& filter,
                   const QString& defaultExtension) override {
    QFileDialog dialog(parent, title, QFileInfo(proposed).path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(kPlainFilters);
    dialog.setNameFilters(qtFilters(filter));
    dialog.setDefaultSuffix(defaultExtension);
    dialog.selectFile(QFileInfo(proposed).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
  }

  QString pickFolder(QWidget* parent, const QString& title, const QString& folder) override {
    return QFileDialog::getExistingDirectory(parent, title, folder);
  }

  std::optional<QColor> pickColor(QWidget* parent, const QColor& current) override {
    const QColor picked = QColorDialog::getColor(current, parent);
    return picked.isValid() ? std::optional(picked) : std::nullopt;
  }

  // Another program is asked what it offers. One that does not answer is left alone for a while, or every look would
  // stop this program for seconds.
  bool clipboardHasPicture() override {
    if (!mute_.hasExpired()) return false;
    QElapsedTimer asked;
    asked.start();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    const bool has = data && holdsPicture(*data);
    if (!has && asked.elapsed() > kSlowAnswerMs) mute_.setRemainingTime(kMuteMs);
    return has;
  }

  void putOnClipboard(const QImage& picture) override { QApplication::clipboard()->setImage(picture); }

  imaging::LoadResult clipboardPicture(std::int64_t maxPixels) override {
    const WaitCursor wait;
    const QMimeData* data = QApplication::clipboard()->mimeData();
    return data ? pictureOf(*data, maxPixels) : imaging::refused(imaging::LoadError::Missing);
  }

  void clearClipboard() override { QApplication::clipboard()->clear(); }

  void watchClipboard(QObject* watcher, std::function<void()> changed) override {
    QObject::connect(QApplication::clipboard(), &QClipboard::dataChanged, watcher, [this, changed] {
      mute_ = {};
      changed();
    });
  }

  std::int64_t freeRamKb() override {
    QFile file("/proc/meminfo");
    if (!file.open(QIODevice::ReadOnly)) return INT64_MAX;
    static const QRegularExpression pattern("MemAvailable:\\s*(\\d+) kB");
    const auto match = pattern.match(QString::fromLatin1(file.readAll()));
    return match.hasMatch() ? match.captured(1).toLongLong() : INT64_MAX;
  }

  int screenBitsPerPixel() override {
    const QScreen* screen = QApplication::primaryScreen();
    const int depth = screen ? screen->depth() : 32;
    return depth >= 24 ? 32 : depth;
  }

  PrintAnswer print(QWidget* parent, const PrintedList& list) override {
    if (QPrinterInfo::availablePrinterNames().isEmpty()) return PrintAnswer::NoPrinter;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(list.title);
    printer.setPageOrientation(QPageLayout::Landscape);
    if (QPrintDialog(&printer, parent).exec() != QDialog::Accepted) return PrintAnswer::Cancelled;
    return paintPages(printer, list) ? PrintAnswer::Printed : PrintAnswer::Failed;
  }

  bool open(const QString& fileOrAddress) override {
    return QDesktopServices::openUrl(QUrl::fromUserInput(fileOrAddress));
  }

 private:
  static constexpr qint64 kSlowAnswerMs = 1000;
  static constexpr qint64 kMuteMs = 30'000;
  QDeadlineTimer mute_;  // the clipboard's owner does not answer
};

Desktop* installed = nullptr;

}  // namespace

QString plainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? "<qt>" + text.toHtmlEscaped() + "</qt>" : text;
}

Desktop& desktop() {
  static QtDesktop real;
  return installed ? *installed : real;
}

Desktop* setDesktop(Desktop* replacement) {
  Desktop* before = installed;
  installed = replacement;
  return before;
}

}  // namespace ruvo::desktop
