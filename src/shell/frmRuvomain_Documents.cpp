// The documents' windows: opening, which one is active, closing, arranging.
#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QLayout>
#include <QStyleOptionTitleBar>
#include <QToolTip>
#include <algorithm>

#include "base/paths.h"
#include "canvas/ucCanvas.h"
#include "document/frmRuvoPaint.h"
#include "platform/desktop/desktop.h"
#include "platform/imaging/imaging_service.h"
#include "shell/frmRuvomain_Private.h"
#include "shell/session/document_list.h"
#include "shell/session/session_texts.h"
#include "shell/theme.h"

namespace ruvo {
namespace {

constexpr int kCascadeStep = 28;
constexpr int kCascadeLength = 6;
// Room around a picture in its window, for the handles at its edges and a little air.
constexpr QSize kAroundPicture(72, 64);
constexpr QSize kSmallestDocument(420, 320);

// Qt takes "[*]" in a title for its mark of an unsaved window; doubled it stands for itself.
QString literalTitle(QString text) {
  return text.replace("[*]", "[*][*]");
}

}  // namespace

bool DocumentWindow::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    auto* help = static_cast<QHelpEvent*>(event);
    const bool inTitle = help->pos().y() < contentsRect().top() + style()->pixelMetric(QStyle::PM_TitleBarHeight) &&
                         help->pos().x() < width() - 100;
    if (inTitle && !isMaximized() && !wholePath.isEmpty()) {
      QToolTip::showText(help->globalPos(), wholePath.toHtmlEscaped(), this);
      return true;
    }
  }
  return QMdiSubWindow::event(event);
}

frmRuvoPaint* frmRuvomain::activeDocument() const {
  return d_->active;
}

int frmRuvomain::documentCount() const {
  const auto loaded =
      std::count_if(d_->documents.begin(), d_->documents.end(), [](const auto* d) { return d != nullptr; });
  return countDocuments(d_->services.state.documents, 1 + static_cast<int>(loaded));
}

frmRuvoPaint* frmRuvomain::documentAt(int slot) const {
  return slot >= 0 && slot < static_cast<int>(d_->documents.size()) ? d_->documents[static_cast<std::size_t>(slot)]
                                                                    : nullptr;
}

QMdiSubWindow* frmRuvomain::windowOf(const frmRuvoPaint* document) const {
  for (QMdiSubWindow* window : d_->workspace->subWindowList())
    if (window->widget() == document) return window;
  return nullptr;
}

frmRuvoPaint* frmRuvomain::documentOf(const QMdiSubWindow* window) const {
  for (frmRuvoPaint* document : d_->documents)
    if (document != nullptr && window != nullptr && window->widget() == document) return document;
  return nullptr;
}

void frmRuvomain::openDocument(PendingOpen command, const QString& file) {
  const int slot = allocateSlot(session().documents);
  if (slot >= static_cast<int>(d_->documents.size())) d_->documents.resize(static_cast<std::size_t>(slot) + 1, nullptr);
  auto* document = new frmRuvoPaint(*this, slot);
  auto* window = new DocumentWindow(d_->workspace);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWidget(document);
  window->setWindowIcon(theme::icon("app"));
  d_->documents[static_cast<std::size_t>(slot)] = document;
  // The new child is the active one from here on: that the window system shows it is no activation of its own.
  frmRuvoPaint* before = d_->active;
  d_->active = document;
  d_->workspace->addSubWindow(window);
  const bool alone = session().options.sdiOnly || (before != nullptr && windowOf(before)->isMaximized());
  placeWindow(*window);
  if (alone)
    window->showMaximized();
  else
    window->show();
  d_->workspace->setActiveSubWindow(window);
  if (!file.isEmpty()) setDocumentCaption(document, QString::fromStdString(shortenPath(file.toStdString())), file);
  showActive(document);
  if (!document->firstActivation(command, file)) return removeDocument(document);
  fitWindow(*window);
}

// Each window begins a little lower and further right than the one before.
void frmRuvomain::placeWindow(QMdiSubWindow& window) {
  // The layouts may not have run since the window was made.
  for (QLayout* layout : {this->layout(), centralWidget()->layout()}) layout->activate();
  const QSize room = d_->workspace->viewport()->size();
  const int step = kCascadeStep * ((documentCount() - 1) % kCascadeLength);
  window.setGeometry(QRect(QPoint(step, step), (room * 4 / 5).boundedTo(room - QSize(step, step))));
}

// As large as the picture wants it, within what is free.
void frmRuvomain::fitWindow(QMdiSubWindow& window) {
  frmRuvoPaint* shown = documentOf(&window);
  if (shown == nullptr || window.isMaximized() || window.isMinimized()) return;
  ucCanvas& canvas = *shown->canvas();
  const QSize picture =
      QSizeF(QSizeF(canvas.DIB().DIBWidth(), canvas.DIB().DIBHeight()) / devicePixelRatioF()).toSize();
  const QSize chrome = window.size() - canvas.size();
  const QSize room = d_->workspace->viewport()->size() - QSize(window.x(), window.y());
  window.resize((picture + kAroundPicture).expandedTo(kSmallestDocument).boundedTo(room - chrome) + chrome);
}

void frmRuvomain::openInActiveDocument(const QString& file) {
  frmRuvoPaint* document = activeDocument();
  if (document == nullptr) return openDocument(PendingOpen::CommandLine, file);
  if (document->hasUnsavedChanges() && !document->AskSaveCurr()) return;
  document->LoadOpenFile(file, static_cast<int>(PendingOpen::CommandLine), true);
}

void frmRuvomain::windowActivated(QMdiSubWindow* window) {
  if (d_->unloading) return;
  frmRuvoPaint* document = documentOf(window);
  // A return of the focus to the program is no activation; only a change of the child is.
  if (document == nullptr || document == d_->active) return;
  d_->active = document;
  showActive(document);
  document->activated();
}

// Menus and the chosen tool's frame of the document that has just become the active one.
void frmRuvomain::showActive(frmRuvoPaint* document) {
  showMenusOf(document);
  if (!d_->toolbar->viewMode()) SetOptionFrame(kToolOptionFrame[static_cast<std::size_t>(d_->toolbox->selected())]);
  handCustomPictures(*document);
}

void frmRuvomain::setDocumentChanged(int slot, bool changed) {
  if (slot >= 0 && slot < static_cast<int>(session().documents.size()))
    session().documents[static_cast<std::size_t>(slot)].changed = changed;
}

void frmRuvomain::setDocumentCaption(frmRuvoPaint* document, const QString& shortened, const QString& wholePath) {
  auto* window = static_cast<DocumentWindow*>(windowOf(document));
  if (window == nullptr) return;
  window->setWindowTitle(literalTitle(shortened));
  window->wholePath = wholePath;
}

void frmRuvomain::releaseDocument(frmRuvoPaint* document) {
  const int slot = document->slot();
  if (documentAt(slot) != document) return;
  d_->documents[static_cast<std::size_t>(slot)] = nullptr;
  session().documents[static_cast<std::size_t>(slot)] = {.changed = false, .free = true};
  if (d_->menusShownOf == document) showMenusOf(nullptr);
  if (QMdiSubWindow* window = windowOf(document)) {
    window->hide();
    window->deleteLater();
  }
  if (d_->active != document) return;
  d_->active = nullptr;
  if (!d_->unloading) activateAnother();
}

// After the active document has gone: the one that was used before it, or the window as it is with none.
void frmRuvomain::activateAnother() {
  QList<QMdiSubWindow*> order = d_->workspace->subWindowList(QMdiArea::ActivationHistoryOrder);
  while (!order.isEmpty() && documentOf(order.last()) == nullptr) order.removeLast();
  if (order.isEmpty()) {
    MDI_disableAllButtonsOnToolBar();
    updateMainMenu();
    d_->workspace->viewport()->update();
    return;
  }
  d_->workspace->setActiveSubWindow(order.last());
  windowActivated(order.last());
}

// A document that could not be opened: its window goes without a question.
void frmRuvomain::removeDocument(frmRuvoPaint* document) {
  if (documentAt(document->slot()) == document) releaseDocument(document);
}

bool frmRuvomain::closeDocuments() {
  for (int slot = static_cast<int>(d_->documents.size()) - 1; slot >= 0; --slot) {
    frmRuvoPaint* document = documentAt(slot);
    QMdiSubWindow* window = document != nullptr ? windowOf(document) : nullptr;
    if (window != nullptr && !window->close()) return false;
  }
  return true;
}

void frmRuvomain::closeAllDocuments() {
  closeDocuments();
}

void frmRuvomain::arrangeWindows(int index) {
  if (index == 0) return d_->workspace->cascadeSubWindows();
  QList<QMdiSubWindow*> windows;
  for (QMdiSubWindow* window : d_->workspace->subWindowList())
    if (documentOf(window) != nullptr && !window->isMinimized()) windows << window;
  if (windows.isEmpty()) return;
  // Horizontally: one above the other over the whole width; vertically: side by side.
  const QRect room = d_->workspace->viewport()->rect();
  const int count = static_cast<int>(windows.size());
  for (int i = 0; i < count; ++i) {
    windows[i]->showNormal();
    const auto from = [&](int length) { return length * i / count; };
    const auto to = [&](int length) { return length * (i + 1) / count; };
    windows[i]->setGeometry(index == 1
                                ? QRect(0, from(room.height()), room.width(), to(room.height()) - from(room.height()))
                                : QRect(from(room.width()), 0, to(room.width()) - from(room.width()), room.height()));
  }
}

bool frmRuvomain::busy() const {
  return QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
}

// --- Closing
// ---------------------------------------------------------------------------------------------------------------------

bool frmRuvomain::confirmClosing() {
  if (!session().closingConfirmed && anyUnsavedDocument(session().documents) &&
      desktop::desktop().message(this, kTextUnsavedChanges, desktop::Icon::Question, desktop::Buttons::YesNo) !=
          desktop::Answer::Yes)
    return false;
  session().closingConfirmed = true;
  return true;
}

void frmRuvomain::closeEvent(QCloseEvent* event) {
  if (!confirmClosing()) return event->ignore();
  unloadToolWindows(false);
  d_->unloading = true;
  for (frmRuvoPaint* document : std::vector(d_->documents))
    if (document != nullptr)
      if (QMdiSubWindow* window = windowOf(document)) window->close();
  imaging::stopImagingService();
  storeSettings();
  event->accept();
}

}  // namespace ruvo
