// Everything that the program asks of the desktop goes through this seam: message boxes, pickers, memory, the opener. The
// real one shows windows; tests install one that answers from a script and fails on a question it did not expect.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/desktop/list_printing.h"
#include "platform/imaging/picture_loader.h"
#include "platform/raster/surface.h"

class QImage;
class QObject;
class QWidget;

namespace ruvo::desktop {

enum class Icon { None, Information, Exclamation, Critical, Question };
// YesNoCareful is for questions whose Yes loses work: Enter answers No.
enum class Buttons { Ok, YesNo, YesNoCareful };
enum class Answer { Ok, Yes, No };

// What a list that went to a printer came to.
enum class PrintAnswer { Printed, Cancelled, NoPrinter, Failed };

class Desktop {
 public:
  virtual ~Desktop() = default;

  // A modal message titled with the program's name. The text is plain (never rich text). A closed box answers No
  // (YesNo) or Ok.
  virtual Answer message(QWidget* parent, const QString& text, Icon icon = Icon::None,
                         Buttons buttons = Buttons::Ok) = 0;

  // File pickers. `filter` is in the classic form "Name (*.a;*.b)|*.a;*.b|Name 2|*.c". Empty when cancelled.
  virtual QString openFile(QWidget* parent, const QString& title, const QString& folder, const QString& filter) = 0;
  // `proposed` is a file name with folder. The extension is added when the user typed none. Asks before replacing.
  virtual QString saveFile(QWidget* parent, const QString& title, const QString& proposed, const QString& filter,
                           const QString& defaultExtension) = 0;
  virtual QString pickFolder(QWidget* parent, const QString& title, const QString& folder) = 0;
  virtual std::optional<QColor> pickColor(QWidget* parent, const QColor& current) = 0;

  // The clipboard's picture test: true when it holds something that Paste can take.
  virtual bool clipboardHasPicture() = 0;
  virtual void putOnClipboard(const QImage& picture) = 0;
  // The picture that another program, or this one, put there. See desktop::pictureOf() for the answers.
  virtual imaging::LoadResult clipboardPicture(std::int64_t maxPixels) = 0;
  // Empties it, whoever filled it.
  virtual void clearClipboard() = 0;
  // Calls `changed` whenever this or another program changed it, as long as `watcher` lives.
  virtual void watchClipboard(QObject* watcher, std::function<void()> changed) = 0;

  // Memory available without swapping, in KB.
  virtual std::int64_t freeRamKb() = 0;
  // Storage bits a pixel of the screen (a depth of 24 or more is 32).
  virtual int screenBitsPerPixel() = 0;
  // Asks for a printer and prints the list.
  virtual PrintAnswer print(QWidget* parent, const PrintedList& list) = 0;
  // Opens a file or address with the desktop's program for it; false when there is none.
  virtual bool open(const QString& fileOrAddress) = 0;
};

// A text for a tool tip that shows it as it is: a path may well hold what looks like a tag.
QString plainToolTip(const QString& text);

// The one in use. Never null; the real one until another is installed.
Desktop& desktop();
// Installs another (null: the real one again) and returns the one before.
Desktop* setDesktop(Desktop* replacement);

}  // namespace ruvo::desktop
