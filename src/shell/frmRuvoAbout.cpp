#include "shell/frmRuvoAbout.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <array>

#include "base/program_title.h"

namespace ruvo {
namespace {

// All lengths below are logical pixels on a plate of this size.
constexpr int kWidth = 560;
constexpr int kHeight = 340;
constexpr int kMargin = 36;

const QColor kNight(0x17, 0x1B, 0x2E);
const QColor kDusk(0x2C, 0x2A, 0x54);
const QColor kPaper(0xF6, 0xF4, 0xEF);
const QColor kQuiet(0xB4, 0xB6, 0xCC);
const std::array<QColor, 5> kInks = {QColor(0xFF, 0x5A, 0x5F), QColor(0xFF, 0xA6, 0x2B), QColor(0xFF, 0xD9, 0x3D),
                                     QColor(0x2E, 0xC4, 0xB6), QColor(0x4D, 0x8B, 0xFF)};

// Five brush strokes that leave one point and fan out to the right edge, the way a hand tries its colours.
void paintStrokes(QPainter& painter) {
  painter.save();
  for (std::size_t i = 0; i < kInks.size(); ++i) {
    const double spread = static_cast<double>(i) - 2;
    QPainterPath stroke(QPointF(kWidth * 0.60, kHeight * 0.60 + spread * 10));
    stroke.cubicTo(QPointF(kWidth * 0.72, kHeight * (0.30 + 0.02 * spread)),
                   QPointF(kWidth * 0.80, kHeight * (0.58 + 0.09 * spread)),
                   QPointF(kWidth + 30, kHeight * (0.26 + 0.105 * spread)));
    QColor ink = kInks[i];
    ink.setAlpha(235);
    painter.setPen(QPen(ink, 17 - 1.5 * std::abs(spread), Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(stroke);
    // A wet highlight along each stroke.
    painter.setPen(QPen(QColor(255, 255, 255, 46), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(stroke.translated(0, -3.5));
  }
  painter.restore();
}

// A strip of frames in which a ball bounces.
void paintFrames(QPainter& painter) {
  constexpr int kFrames = 7;
  constexpr double kSide = 46, kGap = 8;
  const double top = kHeight - kMargin - kSide;
  painter.save();
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < kFrames; ++i) {
    const QRectF frame(kMargin + i * (kSide + kGap), top, kSide, kSide);
    painter.setBrush(QColor(255, 255, 255, 22));
    painter.drawRoundedRect(frame, 7, 7);
    const double phase = i / double(kFrames - 1) * 2 - 1;  // -1 to 1, highest in the middle
    const double height = (1 - phase * phase) * (kSide - 22);
    const double squash = i == 0 || i == kFrames - 1 ? 2.5 : 0;
    painter.setBrush(QColor(0, 0, 0, 60));
    painter.drawEllipse(QPointF(frame.center().x(), frame.bottom() - 6), 8 - height / 8, 1.6);
    painter.setBrush(kInks[static_cast<std::size_t>(i) % kInks.size()]);
    painter.drawEllipse(QPointF(frame.center().x(), frame.bottom() - 14 - height + squash), 7.5 + squash, 7.5 - squash);
  }
  painter.restore();
}

void paintWords(QPainter& painter, const QFont& base) {
  // The title stands on two lines; both parts come from the one name.
  const QString title = QString::fromUtf8(kProgramTitle);
  const qsizetype cut = title.indexOf('&');
  QFont large = base;
  large.setPixelSize(46);
  large.setWeight(QFont::Bold);
  painter.setFont(large);
  painter.setPen(kPaper);
  painter.drawText(QPointF(kMargin, 92), title.left(cut).trimmed());
  QFont medium = base;
  medium.setPixelSize(20);
  painter.setFont(medium);
  painter.setPen(kQuiet);
  painter.drawText(QPointF(kMargin + 2, 124), title.mid(cut));
  QFont small = base;
  small.setPixelSize(13);
  painter.setFont(small);
  painter.drawText(QPointF(kMargin + 2, 164), "Version " + QString::fromUtf8(programVersion()));
}

void paintPlate(QPainter& painter, const QFont& font) {
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient ground(0, 0, kWidth, kHeight);
  ground.setColorAt(0, kNight);
  ground.setColorAt(1, kDusk);
  painter.fillRect(QRect(0, 0, kWidth, kHeight), ground);
  paintStrokes(painter);
  paintFrames(painter);
  paintWords(painter, font);
}

}  // namespace

const char* programVersion() {
  return RUVO_VERSION;
}

frmRuvoAbout::frmRuvoAbout(Use use, QWidget* parent) : QDialog(parent), use_(use) {
  setObjectName("frmRuvoAbout");
  setWindowTitle(use == Use::About ? "About " + QString::fromUtf8(kProgramTitle) : QString::fromUtf8(kProgramTitle));
  setAccessibleName(QString::fromUtf8(kProgramTitle));
  setFixedSize(kWidth, kHeight);
  if (use == Use::Splash) {
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
      move(screen->availableGeometry().center() - rect().center());
    }
    return;
  }
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setModal(true);
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("cmdOK");
  ok->setDefault(true);
  ok->setStyleSheet(
      "QPushButton { color: #171B2E; background: #F6F4EF; border: none; border-radius: 6px; font-weight: 600; }"
      "QPushButton:hover, QPushButton:focus { background: #FFD93D; }");
  ok->setGeometry(kWidth - kMargin - 84, kHeight - kMargin - 32, 84, 32);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
}

void frmRuvoAbout::releaseTopmost() {
  // On the native window: the widget's own call would hide and show it again.
  if (windowHandle()) windowHandle()->setFlag(Qt::WindowStaysOnTopHint, false);
}

void frmRuvoAbout::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintPlate(painter, font());
}

void frmRuvoAbout::mouseReleaseEvent(QMouseEvent* event) {
  QDialog::mouseReleaseEvent(event);
  if (use_ == Use::About) accept();
}

}  // namespace ruvo
