// The documents' windows: opening, which one is active, closing, arranging.
#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QLayout>
#include <QMenu>
#include <QStyleOptionTitleBar>
#include <QToolTip>
#include <algorithm>

#include "base/paths.h"
#include "canvas/ucCanvas.h"
#include "document/frmRuvoPaint.h"
#include "platform/desktop/desktop.h"
#include "platform/imaging/imaging_service.h"
#include "platform/theme/theme.h"
#include "shell/frmRuvomain_Private.h"
#include "shell/session/document_list.h"
#include "shell/session/session_texts.h"

namespace ruvo {
namespace {

constexpr int kCascadeStep = 28;
constexpr int kCascadeLength = 6;
// Room around a picture in its window, for the handles at its edges and a little air.
constexpr QSize kAroundPicture(72, 64);
constexpr QSize kSmallestDocument(420, 320);
// Name of each entry of the Windows menu that stands for a window, and of the line above them.
constexpr const char* kWindowRow = "mnuWindowsList";

// Qt takes "[*]" in a title for its mark of an unsaved window; doubled it stands for itself.
QString literalTitle(QString text) {
  return text.replace("[*]", "[*][*]");
}

}  // namespace

DocumentWindow::DocumentWindow(QWidget* parent) : QMdiSubWindow(parent) {
  // Its own menu would claim Ctrl+W beside the File menu, and neither would get it.
  for (QAction* action : systemMenu()->actions())
    if (action->shortcuts().contains(QKeySequence("Ctrl+W"))) action->setShortcut(QKeySequence("Ctrl+F4"));
}

bool DocumentWindow::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    auto* help = static_cast<QHelpEvent*>(event);
    const bool inTitle = help->pos().y() < contentsRect().top() + style()->pixelMetric(QStyle::PM_TitleBarHeight) &&
                         help->pos().x() < width() - 100;
    if (inTitle && !isMaximized() && !wholePath.isEmpty()) {
      QToolTip::showText(help->globalPos(), desktop::plainToolTip(wholePath), this);
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
  // Its own keys (Ctrl+W) would be at odds with those of the File menu, and then neither would act.
  for (QAction* action : window->systemMenu()->actions()) action->setShortcut(QKeySequence());
  for (QMenu* menu : document->menus())
    if (menu->objectName() == "mnuWindows")
      connect(menu, &QMenu::aboutToShow, this, [this, menu] { listWindows(*menu); });
  d_->documents[static_cast<std::size_t>(slot)] = document;
  // The new child is the active one from here on: that the window system shows it is no activation of its own.
  frmRuvoPaint* before = d_->active;
  d_->active = document;
  d_->workspace->addSubWindow(window);
  const bool alone = session().options.sdiOnly || (before != nullptr && windowOf(before)->isMaximized());
  placeWindow(*window, documentCount() - 1);
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
void frmRuvomain::placeWindow(QMdiSubWindow& window, int place) {
  // The layouts may not have run since the window was made.
  for (QLayout* layout : {this->layout(), centralWidget()->layout()}) layout->activate();
  const QSize room = d_->workspace->viewport()->size();
  const int step = kCascadeStep * (place % kCascadeLength);
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

void frmRuvomain::openInActiveDocument(PendingOpen command, const QString& file) {
  frmRuvoPaint* document = activeDocument();
  if (document == nullptr) return openDocument(command, file);
  if (!document->mayReplacePicture()) return;
  if (command == PendingOpen::FirstFrame)
    document->openFirstFrame(file);
  else
    document->LoadOpenFile(file, static_cast<int>(command), true);
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
  d_->toolbar->setPicture(document->canvas());
}

void frmRuvomain::setDocumentChanged(int slot, bool changed) {
  if (slot >= 0 && slot < static_cast<int>(session().documents.size()))
    session().documents[static_cast<std::size_t>(slot)].changed = changed;
}

void frmRuvomain::setDocumentCaption(frmRuvoPaint* document, const QString& shortened, const QString& wholePath) {
  auto* window = static_cast<DocumentWindow*>(windowOf(document));
  if (window == nullptr) return;
  window->setWindowTitle(literalTitle(shortened));
  window->shortened = shortened;
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
    if (window == nullptr) continue;
    // The one that is asked about is the one to be seen.
    if (document->hasUnsavedChanges()) d_->workspace->setActiveSubWindow(window);
    if (!window->close()) return false;
  }
  return true;
}

void frmRuvomain::closeAllDocuments() {
  closeDocuments();
}

void frmRuvomain::arrangeWindows(int index) {
  QList<QMdiSubWindow*> windows;
  // In a cascade the window that lay on top stays there.
  for (QMdiSubWindow* window :
       d_->workspace->subWindowList(index == 0 ? QMdiArea::StackingOrder : QMdiArea::CreationOrder))
    if (documentOf(window) != nullptr && !window->isMinimized()) windows << window;
  if (index == 0) {
    for (int place = 0; place < windows.size(); ++place) {
      windows[place]->showNormal();
      placeWindow(*windows[place], place);
      fitWindow(*windows[place]);
    }
    return;
  }
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

// The documents' windows below the commands of the Windows menu. They are listed anew each time it opens.
void frmRuvomain::listWindows(QMenu& menu) {
  for (QAction* action : menu.actions())
    if (action->objectName() == kWindowRow) delete action;
  menu.addSeparator()->setObjectName(kWindowRow);
  int number = 0;
  for (QMdiSubWindow* window : d_->workspace->subWindowList()) {
    frmRuvoPaint* document = documentOf(window);
    if (document == nullptr) continue;
    const auto* frame = static_cast<DocumentWindow*>(window);
    // Nine have a digit to be picked by.
    const QString mark = ++number <= 9 ? "&" : "";
    QAction* row = menu.addAction(mark + QString::number(number) + ' ' + QString(frame->shortened).replace('&', "&&"));
    row->setObjectName(kWindowRow);
    row->setCheckable(true);
    row->setChecked(document == d_->active);
    row->setToolTip(desktop::plainToolTip(frame->wholePath));
    connect(row, &QAction::triggered, window, [this, window] {
      if (window->isMinimized()) window->showNormal();
      d_->workspace->setActiveSubWindow(window);
    });
  }
}

bool frmRuvomain::busy() const {
  return QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
}

// --- Closing

bool frmRuvomain::confirmClosing() {
  return session().closingConfirmed || !anyUnsavedDocument(session().documents) ||
         desktop::desktop().message(this, kTextUnsavedChanges, desktop::Icon::Question,
                                    desktop::Buttons::YesNoCareful) == desktop::Answer::Yes;
}

void frmRuvomain::closeEvent(QCloseEvent* event) {
  // The animation closes with its own question: by then nothing else may keep the program open.
  if (!confirmClosing() || !closeAnimation()) return event->ignore();
  session().closingConfirmed = true;
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
