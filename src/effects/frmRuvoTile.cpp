#include "effects/frmRuvoTile.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "canvas/ucCanvas.h"
#include "dialogs/named_controls.h"
#include "effects/model/effect_table.h"
#include "effects/model/reduced_copy.h"
#include "effects/sample_panel.h"

namespace ruvo {
namespace {

constexpr QSize kCanvasSide(300, 220);
constexpr int kRectangleTool = 11;

}  // namespace

frmRuvoTile::frmRuvoTile(const EffectSubject& subject, EffectHost& host, QWidget* parent)
    : EffectWindow(QStringLiteral("frmRuvoTile"), tr("Tile"), subject, parent), host_(host) {
  canvas_ = new ucCanvas(this);
  canvas_->setObjectName(QStringLiteral("ucCanvas1"));
  canvas_->setMinimumSize(kCanvasSide);
  canvas_->setCanvasScreenMode(1);
  canvas_->setSuspendCanvasResizeByEdgeDragging(true);
  auto* load = namedButton("cmdLoad", tr("&Load image ...."), this);
  auto* own = namedButton("cmdUsePicture", tr("&Use the picture itself"), this);
  auto* hint =
      namedLabel("lblHint", tr("Mark the part that is to be repeated; without a mark it is the whole image."), this);
  hint->setWordWrap(true);
  size_ = namedLabel("lblTileSize", {}, this);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(load);
  buttons->addWidget(own);
  buttons->addStretch();
  controls()->addLayout(buttons);
  controls()->addWidget(canvas_, 1);
  controls()->addWidget(hint);
  controls()->addWidget(size_);
  connect(load, &QPushButton::clicked, this, &frmRuvoTile::load);
  connect(own, &QPushButton::clicked, this, &frmRuvoTile::takeSubject);
  connect(canvas_, &ucCanvas::NotifyRegionStatus, this, &frmRuvoTile::takeTile);
  takeSubject();
}

void frmRuvoTile::load() {
  if (const auto chosen = host_.loadPicture(this)) showSource(*chosen);
}

void frmRuvoTile::takeSubject() {
  showSource(subject().picture);
}

void frmRuvoTile::showSource(const clsDIB& source) {
  clsDIB::CloneDIB(source, canvas_->DIB(), kWhite, source.BottomUp());
  canvas_->SetScrollValues(0, 0, false, true);
  canvas_->CanvasResize();
  canvas_->setCanvasOp(kRectangleTool);
  takeTile();
}

// A marked part may also be moved about; where it was lifted shows then, but the tile is what it holds.
void frmRuvoTile::takeTile() {
  clsDIB marked;
  if (canvas_->HasRegion() && canvas_->copyRegion(marked)) {
    tile_ = std::move(marked);
  } else {
    clsDIB::CloneDIB(canvas_->DIB(), tile_, kWhite, canvas_->DIB().BottomUp());
  }
  size_->setText(tr("Tile:   %1 x %2").arg(tile_.DIBWidth()).arg(tile_.DIBHeight()));
  choiceChanged();
}

QString frmRuvoTile::refusal() {
  return tile_.empty() ? tr(kNoMemoryText) : QString();
}

bool frmRuvoTile::apply(clsDIB& picture, double scale, const Progress& progress) {
  if (tile_.empty()) return false;
  auto tile = std::make_shared<clsDIB>();
  const bool copied =
      scale == 1 ? clsDIB::CloneDIB(tile_, *tile, kWhite, tile_.BottomUp()) : reducedCopy(tile_, scale, *tile);
  if (!copied) return false;
  EffectInput input({{0, tile}});
  input.scale = scale;
  return effectOf("tile")->apply(picture, input, progress);
}

}  // namespace ruvo
