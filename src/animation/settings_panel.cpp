#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include "animation/comment_field.h"
#include "animation/model/gif_texts.h"
#include "animation/session_panels.h"
#include "dialogs/named_controls.h"
#include "platform/theme/controls.h"

namespace ruvo {
namespace {

enum Button { kProceed, kUndo, kClose, kAnimate, kStop, kShowCurrent };
constexpr int kLongestListedDelay = 180;
constexpr int kMostOfField = 0xFFFF;  // a GIF keeps delays, places and loops in 16 bits

// Selects the item of that value; one that the list does not have comes behind the others until the next call.
void showValue(QComboBox* box, int listed, int value, const QString& text) {
  while (box->count() > listed) box->removeItem(listed);
  if (value >= listed) box->addItem(text, value);
  box->setCurrentIndex(value >= listed ? listed : value);
}
int valueOf(const QComboBox* box) {
  if (box->isEditable()) return box->currentText().toInt();
  const QVariant extra = box->currentData();
  return extra.isValid() ? extra.toInt() : box->currentIndex();
}

// A list into which other numbers can be typed.
QComboBox* numberField(const QString& name, const QStringList& items, QWidget* parent) {
  QComboBox* box = namedComboBox(name, items, parent);
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setValidator(wholeNumbersUpTo(kMostOfField, box));
  return box;
}

QStringList delays() {
  QStringList items;
  for (int delay = 0; delay <= kLongestListedDelay; ++delay) items << QString::number(delay);
  return items;
}
QStringList disposals() {
  QStringList items;
  for (const char* name : kDisposalNames) items << QString::fromLatin1(name);
  return items;
}

}  // namespace

struct SettingsPanel::Private {
  QComboBox* scope = nullptr;
  QComboBox* item = nullptr;
  QComboBox* delay = nullptr;
  QComboBox* disposal = nullptr;
  QComboBox* left = nullptr;
  QComboBox* top = nullptr;
  QComboBox* paletteScope = nullptr;
  QComboBox* interlaced = nullptr;
  QComboBox* sorted = nullptr;
  QLineEdit* loops = nullptr;
  CommentField* comment = nullptr;
  QPushButton* transparent = nullptr;
};

SettingsPanel::SettingsPanel(SessionHost& host, QWidget* parent)
    : SessionPanel(host, SessionWork::Settings, 2, tr("Modify settings"), parent), d_(new Private) {
  const auto buttons = namedButtons("cmdModifySettings",
                                    {tr("Proceed"), tr("Undo"), tr("Close"), tr("Animate"), tr("Stop"),
                                     tr("Show current  settings of current frame")},
                                    this);
  d_->scope =
      namedComboBox("cboScopeModifySettings", {tr("Apply to all frames"), tr("Apply to current frame only")}, this);
  // Its longest items are wider than the panel can be.
  d_->item = theme::combo(
      "cboScopeModifySettingsSpecificItem",
      {tr("All items"), tr("Delay only"), tr("Disposal only"), tr("[Left,Top] only"), tr("Palette Scope only"),
       tr("Interlace only"), tr("Palette Sorted only"), tr("Loops only  (Irrespective of Apply selected)"),
       tr("Comment only  (Irrespective of Apply selected)")},
      0, 0, this);
  auto* head = new QHBoxLayout;
  head->addWidget(d_->scope);
  head->addWidget(d_->item, 1);
  head->addWidget(buttons[kShowCurrent]);

  auto* left = new QVBoxLayout;
  left->addLayout(head);
  left->addLayout(buildFields());
  left->addStretch();
  layOut(left, {buttons[kProceed], buttons[kAnimate], buttons[kStop], buttons[kUndo], buttons[kClose]});

  setButtons(buttons[kAnimate], buttons[kStop], buttons[kUndo], buttons[kClose]);
  connect(buttons[kProceed], &QPushButton::clicked, this, &SettingsPanel::proceed);
  connect(buttons[kShowCurrent], &QPushButton::clicked, this, &SettingsPanel::showFrame);
  connect(d_->item, &QComboBox::currentIndexChanged, this, &SettingsPanel::showWritten);
  connect(d_->transparent, &QPushButton::clicked, this,
          [this] { tell(tr("Transparency setting can be modified at Edit Palette screen.")); });
}

SettingsPanel::~SettingsPanel() = default;

QLayout* SettingsPanel::buildFields() {
  const QStringList noYes{tr("No"), tr("Yes")};
  d_->delay = numberField("cboDelay", delays(), this);
  d_->disposal = namedComboBox("cboDisposal", disposals(), this);
  d_->left = numberField("cboPosLeft", {QStringLiteral("0")}, this);
  d_->top = numberField("cboPosTop", {QStringLiteral("0")}, this);
  d_->paletteScope = namedComboBox("cboPaletteScope", {tr("Global"), tr("Local")}, this);
  d_->interlaced = namedComboBox("cboInterlaced", noYes, this);
  d_->sorted = namedComboBox("cboPaletteSorted", noYes, this);
  d_->transparent = namedButton("picFrameTransparentColor", {}, this);
  d_->loops = new QLineEdit(this);
  d_->loops->setObjectName("txbLoops");
  d_->loops->setValidator(wholeNumbersUpTo(kMostOfField, d_->loops));
  d_->comment = new CommentField("txbModifyComment", clsGIF::kMostCommentBytes, this);
  d_->comment->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);

  auto* grid = new QGridLayout;
  const auto put = [&](int row, int column, const QString& text, QWidget* field) {
    auto* label = namedLabel({}, text, this);
    label->setBuddy(field);
    grid->addWidget(label, row, 2 * column);
    grid->addWidget(field, row, 2 * column + 1);
  };
  put(0, 0, tr("Delay (1/100 s):"), d_->delay);
  put(1, 0, tr("Disposal:"), d_->disposal);
  put(2, 0, tr("Left:"), d_->left);
  put(3, 0, tr("Top:"), d_->top);
  put(0, 1, tr("Palette scope:"), d_->paletteScope);
  put(1, 1, tr("Interlaced:"), d_->interlaced);
  put(2, 1, tr("Palette sorted:"), d_->sorted);
  put(3, 1, tr("Transparent color:"), d_->transparent);
  put(0, 2, tr("Loops (0: endless):"), d_->loops);
  // As high as the three rows beside it, and no row is made higher for it.
  auto* label = namedLabel({}, tr("Comment:"), this);
  label->setBuddy(d_->comment);
  grid->addWidget(label, 1, 4);
  grid->addWidget(d_->comment, 1, 5, 3, 1);
  grid->setColumnStretch(5, 1);
  return grid;
}

void SettingsPanel::opened() {
  showFrame();
  showWritten();
}

void SettingsPanel::undone() {
  showFrame();
}

void SettingsPanel::frameSelected() {
  if (isOpen()) showFrame();
}

void SettingsPanel::showFrame() {
  const clsGIF& gif = session().gif();
  const int frame = host().selectedFrame();
  const FrameSettings now = settingsOf(gif, frame);
  showValue(d_->delay, kLongestListedDelay + 1, now.delay, QString::number(now.delay));
  showValue(d_->disposal, static_cast<int>(kDisposalNames.size()), now.disposal,
            QStringLiteral("%1 (%2)").arg(QString::fromStdString(disposalName(now.disposal))).arg(now.disposal));
  d_->left->setEditText(QString::number(now.left));
  d_->top->setEditText(QString::number(now.top));
  d_->paletteScope->setCurrentIndex(now.localPalette ? 1 : 0);
  d_->interlaced->setCurrentIndex(now.interlaced ? 1 : 0);
  d_->sorted->setCurrentIndex(now.sorted ? 1 : 0);
  d_->loops->setText(QString::number(now.loops));
  d_->comment->setComment(QString::fromStdString(now.comment));

  const bool transparent = gif.FrameUseTransparentColor(frame);
  const Colour colour = gif.FrameTransparentColor(frame);
  QPixmap picture(d_->transparent->iconSize());
  picture.fill(QColor(redOf(colour), greenOf(colour), blueOf(colour)));
  d_->transparent->setIcon(transparent ? QIcon(picture) : QIcon());
  d_->transparent->setText(transparent ? QString::number(gif.FrameTransparentColorIndex(frame)) : tr("None"));
}

// Only what Proceed would write can be changed.
void SettingsPanel::showWritten() {
  const auto item = static_cast<SettingsItem>(d_->item->currentIndex());
  const auto offer = [item](QWidget* field, SettingsItem its) {
    field->setEnabled(item == SettingsItem::All || item == its);
  };
  offer(d_->delay, SettingsItem::Delay);
  offer(d_->disposal, SettingsItem::Disposal);
  offer(d_->left, SettingsItem::LeftTop);
  offer(d_->top, SettingsItem::LeftTop);
  offer(d_->paletteScope, SettingsItem::PaletteScope);
  offer(d_->interlaced, SettingsItem::Interlace);
  offer(d_->sorted, SettingsItem::PaletteSorted);
  offer(d_->loops, SettingsItem::Loops);
  offer(d_->comment, SettingsItem::Comment);
}

SettingsOrder SettingsPanel::order() const {
  SettingsOrder order;
  order.allFrames = d_->scope->currentIndex() == 0;
  order.item = static_cast<SettingsItem>(d_->item->currentIndex());
  order.frame = host().selectedFrame();
  order.values.delay = valueOf(d_->delay);
  order.values.disposal = valueOf(d_->disposal);
  order.values.left = valueOf(d_->left);
  order.values.top = valueOf(d_->top);
  order.values.localPalette = d_->paletteScope->currentIndex() == 1;
  order.values.interlaced = d_->interlaced->currentIndex() == 1;
  order.values.sorted = d_->sorted->currentIndex() == 1;
  order.values.loops = d_->loops->text().toInt();
  order.values.comment = d_->comment->comment().trimmed().toStdString();
  return order;
}

void SettingsPanel::proceed() {
  // Before the animation stops: the window may tell of the selected frame then, and the fields are read anew.
  const SettingsOrder wanted = order();
  host().stopAnimation();
  clsGIF& gif = session().gif();
  if (const auto refusal = settingsRefusal(gif, wanted)) {
    tell(QString::fromStdString(*refusal));
    return;
  }
  if (!ask(QString::fromStdString(settingsQuestion(gif, wanted)))) return;
  const SettingsResult result = atWork([&](const Progress&) { return applySettings(gif, wanted); });
  if (result.changed) {
    changeMade(wanted.frame);
    showFrame();
  }
  if (!result.message.empty()) tell(QString::fromStdString(result.message));
}

}  // namespace ruvo
