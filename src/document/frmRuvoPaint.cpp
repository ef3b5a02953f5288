#include "document/frmRuvoPaint.h"

#include <QMenu>
#include <QResizeEvent>

#include "document/frmRuvoPaint_Private.h"
#include "document/model/picture_loading.h"
#include "document/model/status_texts.h"
#include "formats/format_table.h"

namespace ruvo {

frmRuvoPaint::Private::Private(frmRuvoPaint& owner, MainWindowLink& mainWindow, int place)
    : self(owner),
      link(mainWindow),
      slot(place),
      canvas(new ucCanvas(&owner)),
      history(
          mainWindow.session().tempFolder, std::to_string(place),
          [this](const std::filesystem::path& file) { return canvas->DIB().Save_DIB_To_File(file, canvas->DIB()); },
          [this](const std::filesystem::path& file) {
            auto state = loadUndoState(file);
            if (state) canvas->DIB() = std::move(*state);
            return state.has_value();
          }) {
  canvas->setObjectName(QStringLiteral("Canvas"));
  canvas->settings().FileExtAllowed = openableExtensions();
  canvas->settings().TransparentColor = kWhite;
  menus = std::make_unique<MenuSet>(kScopeDocument, &owner,
                                    [this](const QString& control, int index) { runMenu(control, index); });
  QObject::connect(menus->menu("mnuEdit"), &QMenu::aboutToShow, &self, [this] { self.updateEditButtons(); });
  effectHost.loadPicture = [this](QWidget*) -> std::shared_ptr<const clsDIB> {
    auto picture = std::make_shared<clsDIB>();
    // What is see-through in it stays so.
    return loadChosenPicture(QStringLiteral("Effect"), {.keepAlpha = true}, *picture) ? picture : nullptr;
  };
  connectCanvas();
  connectMeasures();
}

frmRuvoPaint::frmRuvoPaint(MainWindowLink& link, int slot, QWidget* parent)
    : QWidget(parent), d_(std::make_unique<Private>(*this, link, slot)) {
  setObjectName(QStringLiteral("frmRuvoPaint"));
  setFocusProxy(d_->canvas);
}

frmRuvoPaint::~frmRuvoPaint() = default;

int frmRuvoPaint::slot() const {
  return d_->slot;
}

ucCanvas* frmRuvoPaint::canvas() {
  return d_->canvas;
}

const QList<QMenu*>& frmRuvoPaint::menus() {
  return d_->menus->menus();
}

// --- Talking

void frmRuvoPaint::Private::tell(const QString& text, desktop::Icon icon) {
  desktop::desktop().message(link.window(), text, icon);
}

bool frmRuvoPaint::Private::ask(const QString& question, desktop::Buttons buttons) {
  return desktop::desktop().message(link.window(), question, desktop::Icon::Question, buttons) == desktop::Answer::Yes;
}

// Arranging windows resizes all documents; only the active one may write to the shared panels.
bool frmRuvoPaint::Private::isActive() const {
  return link.activeDocument() == &self;
}

void frmRuvoPaint::Private::updatePanels() {
  if (!isActive()) return;
  link.setStatusPanel(kPanelMessage, qt(record.name));
  int width = 0;
  int height = 0;
  if (hasPicture()) canvas->GetCurrentGrossImageSize(width, height);
  link.setStatusPanel(kPanelScreenSize, hasPicture() ? qt(sizeText(width, height)) : QString());
  const Size net = canvas->DIB().size();
  link.setStatusPanel(kPanelNetSize, hasPicture() ? qt(sizeText(net.width, net.height)) : QString());
}

void frmRuvoPaint::Private::setChanged(bool changed) {
  link.setDocumentChanged(slot, changed);
}

bool frmRuvoPaint::Private::hasUnsavedChanges() const {
  const auto& documents = link.session().documents;
  return slot >= 0 && static_cast<std::size_t>(slot) < documents.size() && documents[slot].changed;
}

// --- Display

void frmRuvoPaint::Private::showPicture() {
  limitMagnify();
  canvas->CanvasResize();
  self.AllowOrDisallowQuickScroll();
  self.OnOffQuickScroll();
  self.Do_UpdateZoomButtons();
  updatePanels();
  refreshPanoramic();
}

void frmRuvoPaint::UpdateDisplay() {
  d_->showPicture();
}

void frmRuvoPaint::resizeEvent(QResizeEvent*) {
  if (isMinimized()) return;
  d_->canvas->setGeometry(rect());
  d_->canvas->AdjustRegionDispPosition_After_FormMax();
  d_->refreshPanoramic();
  if (!d_->isActive()) return;
  AllowOrDisallowQuickScroll();
  OnOffQuickScroll();
  d_->updatePanels();
}

}  // namespace ruvo
