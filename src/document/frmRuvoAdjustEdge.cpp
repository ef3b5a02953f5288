#include "document/frmRuvoAdjustEdge.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "dialogs/icon_pictures.h"
#include "dialogs/named_controls.h"
#include "document/model/status_texts.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/texts.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

constexpr int kMargin = 12;
constexpr int kPictureSide = 220;
constexpr int kThumbnailSide = 2 * kPictureSide;  // sharp on a screen of double scale
constexpr double kCutOpacity = 0.3;

constexpr std::array kEdgeControls = {"txbLeft", "txbTop", "txbRight", "txbBottom"};

// Small enough to be painted at every step of a field.
QImage thumbnailOf(const clsDIB& picture) {
  int x = 0, y = 0, width = 0, height = 0;
  picture.GetBestFitPointAndSize(kThumbnailSide, kThumbnailSide, x, y, width, height, false);
  clsDIB small;
  if (!small.CreateBlankDIB(width, height, 32, kWhite)) return {};
  clsDIB::StretchPaintFromDIBtoDIB(picture, small, true);
  small.setDIBhasAlpha(picture.DIBhasAlpha());
  return imageOf(small);
}

QRectF rectOf(const Rect& rect) {
  return QRectF(rect.left, rect.top, rect.width(), rect.height());
}

}  // namespace

// The old picture, pale where it is cut off, and the new one with a line around it, both at the same scale.
class EdgePicture : public QWidget {
 public:
  EdgePicture(const clsDIB& picture, QWidget* parent)
      : QWidget(parent), thumbnail_(thumbnailOf(picture)), original_(picture.size()) {
    setObjectName(QStringLiteral("picOutcome"));
    setFixedSize(kPictureSide, kPictureSide);
  }
  void setChange(const EdgeChange& change) {
    change_ = change;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Rect old = Rect::fromSize(0, 0, original_.width, original_.height);
    const Size size = adjustedSize(original_, change_);
    const Rect outcome = Rect::fromSize(-change_.left, -change_.top, std::max(0, size.width), std::max(0, size.height));
    const QRectF all = rectOf(old.united(outcome));
    const double scale = (kPictureSide - 4) / std::max({1.0, all.width(), all.height()});
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const auto placed = [&](const Rect& rect) {
      const QPointF shift = ground().center() - all.center() * scale;
      return QRectF(rectOf(rect).topLeft() * scale + shift, rectOf(rect).size() * scale);
    };
    const QRectF picture = placed(old);
    const QRectF sheet = placed(outcome);
    painter.setOpacity(kCutOpacity);
    painter.fillRect(picture, Qt::white);
    painter.drawImage(picture, thumbnail_);
    painter.setOpacity(1);
    if (outcome.empty()) return;
    painter.setClipRect(sheet);
    painter.fillRect(sheet, Qt::white);
    painter.drawImage(picture, thumbnail_);
    painter.setClipping(false);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
    painter.drawRect(sheet.adjusted(-0.5, -0.5, 0.5, 0.5));
  }

 private:
  QRectF ground() const { return QRectF(rect()); }

  QImage thumbnail_;
  Size original_;
  EdgeChange change_;
};

frmRuvoAdjustEdge::frmRuvoAdjustEdge(const clsDIB& picture, QWidget* parent)
    : QDialog(parent), original_(picture.size()) {
  setObjectName(QStringLiteral("frmRuvoAdjustEdge"));
  setWindowTitle(tr("Adjust Edge"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kMargin);
  column->addWidget(new QLabel(tr("Pixels to add at each edge, in white.  A number below 0 cuts."), this));
  column->addWidget(buildEdges(picture));
  auto* sizes = new QHBoxLayout;
  newSize_ = theme::label({}, this, theme::LabelKind::Heading);
  newSize_->setObjectName(QStringLiteral("lblNewSize"));
  sizes->addWidget(newSize_);
  sizes->addStretch();
  sizes->addWidget(namedLabel("lblOrigSize", qt(originalSizeText(original_)), this));
  column->addLayout(sizes);
  column->addWidget(buildButtons());
  column->setSizeConstraint(QLayout::SetFixedSize);
  showOutcome();
  fields_[0]->setFocus();
  fields_[0]->selectAll();
}

// Each field stands at its edge of the picture.
QWidget* frmRuvoAdjustEdge::buildEdges(const clsDIB& picture) {
  auto* edges = new QWidget(this);
  auto* grid = new QGridLayout(edges);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kMargin);
  constexpr int kPlaces[4][2] = {{1, 0}, {0, 1}, {1, 2}, {2, 1}};  // row, column
  for (int edge = 0; edge < 4; ++edge) {
    grid->addWidget(buildField(edge), kPlaces[edge][0], kPlaces[edge][1], Qt::AlignCenter);
  }
  outcome_ = new EdgePicture(picture, edges);
  grid->addWidget(outcome_, 1, 1);
  return edges;
}

QWidget* frmRuvoAdjustEdge::buildField(int edge) {
  const std::array names = {tr("&Left:"), tr("&Top:"), tr("&Right:"), tr("&Bottom:")};
  const auto at = static_cast<std::size_t>(edge);
  auto* field = new QSpinBox(this);
  field->setObjectName(QString::fromLatin1(kEdgeControls[at]));
  // Beyond the limit, which is told in words: a digit that is not taken would leave another number unseen.
  field->setRange(-kMostTypedSide, kMostTypedSide);
  connect(field, &QSpinBox::valueChanged, this, &frmRuvoAdjustEdge::showOutcome);
  fields_[at] = field;
  auto* name = new QLabel(names[at], this);
  name->setBuddy(field);
  auto* place = new QWidget(this);
  auto* row = new QHBoxLayout(place);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(name);
  row->addWidget(field);
  return place;
}

QWidget* frmRuvoAdjustEdge::buildButtons() {
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  QPushButton* proceed = namedButton("cmdProceed", tr("Proceed"), buttons);
  proceed->setDefault(true);
  QPushButton* cancel = namedButton("cmdCancel", tr("Cancel"), buttons);
  connect(proceed, &QPushButton::clicked, this, &frmRuvoAdjustEdge::accept);
  connect(cancel, &QPushButton::clicked, this, &frmRuvoAdjustEdge::reject);
  row->addStretch();
  row->addWidget(proceed);
  row->addWidget(cancel);
  return buttons;
}

EdgeChange frmRuvoAdjustEdge::change() const {
  return {fields_[0]->value(), fields_[1]->value(), fields_[2]->value(), fields_[3]->value()};
}

void frmRuvoAdjustEdge::showOutcome() {
  const Size size = adjustedSize(original_, change());
  newSize_->setText(tr("New size:  %1").arg(qt(sizeText(size.width, size.height))));
  if (outcome_) outcome_->setChange(change());
}

void frmRuvoAdjustEdge::accept() {
  if (const auto refusal = adjustRefusal(original_, change())) {
    desktop::desktop().message(this, qt(*refusal), desktop::Icon::Exclamation);
    return;
  }
  if (change().none()) return reject();
  QDialog::accept();
}

std::optional<EdgeChange> frmRuvoAdjustEdge::ask(SessionState& session, const clsDIB& picture, QWidget* parent) {
  frmRuvoAdjustEdge dialog(picture, parent);
  session.dialogCancelled = dialog.exec() != QDialog::Accepted;
  if (session.dialogCancelled) return std::nullopt;
  return dialog.change();
}

}  // namespace ruvo
