#include "platform/theme/theme.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <atomic>
#include <map>
#include <mutex>
#include <thread>

#include "platform/theme/painted_icon.h"
#include "platform/theme/theme_style.h"

// The drawings lie in a static library, whose resources are not there until they are asked for. (The macro must stand
// outside any namespace.)
static void loadDrawings() {
  Q_INIT_RESOURCE(assets);
}

namespace ruvo::theme {
namespace {

// The ink that the drawings are made with.
constexpr const char* kDrawnInk = "#2B3A4A";
constexpr qreal kDisabledOpacity = 0.44;

Roles lightRoles() {
  return {.dark = false,
          .window = QColor("#F3F5F8"),
          .raised = QColor("#FBFCFD"),
          .field = QColor("#FFFFFF"),
          .workspace = QColor("#D3DAE3"),
          .ink = QColor("#22303E"),
          .quietInk = QColor("#5A6878"),
          .line = QColor("#D0D7E0"),
          .accent = QColor("#2563D9"),
          .accentInk = QColor("#FFFFFF"),
          .hover = QColor("#E4EAF2"),
          .pressed = QColor("#D2DCE9"),
          .selected = QColor("#D6E4FD")};
}

Roles darkRoles() {
  return {.dark = true,
          .window = QColor("#262B33"),
          .raised = QColor("#2D333D"),
          .field = QColor("#1C2027"),
          .workspace = QColor("#16191E"),
          .ink = QColor("#DFE6EE"),
          .quietInk = QColor("#9DAAB9"),
          .line = QColor("#3D4551"),
          .accent = QColor("#5C9BFF"),
          .accentInk = QColor("#0B1526"),
          .hover = QColor("#363E4A"),
          .pressed = QColor("#424C5A"),
          .selected = QColor("#2C4A78")};
}

Roles current = lightRoles();

// The drawings as pictures of a size, each rendered once. A start needs several dozen of them at one size; a second
// thread renders those while the window is being built.
class DrawingStore {
 public:
  ~DrawingStore() { finish(); }

  // Ends the preparing. Due before the application object goes, since the thread draws by its means.
  void finish() {
    stop_ = true;
    if (worker_.joinable()) worker_.join();
  }

  // A square of `side` device pixels, empty when there is no such drawing.
  QImage image(const QString& name, int side) {
    const std::pair key(name, side);
    {
      const std::lock_guard lock(mutex_);
      if (const auto found = images_.find(key); found != images_.end()) return found->second;
    }
    QImage rendered = render(name, side);
    const std::lock_guard lock(mutex_);
    return images_.try_emplace(key, std::move(rendered)).first->second;
  }

  void prepare(int side) {
    finish();
    stop_ = false;
    worker_ = std::thread([this, side] {
      for (const QString& file : QDir(":/icons").entryList({"*.svg"})) {
        if (stop_) return;
        if (!file.startsWith("cursor_")) image(file.chopped(4), side);
      }
    });
  }

 private:
  static QImage render(const QString& name, int side) {
    QFile file(":/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray text = file.readAll();
    text.replace(kDrawnInk, current.ink.name().toLatin1());
    QSvgRenderer drawing(text);
    if (!drawing.isValid()) return {};
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter, QRectF(0, 0, side, side));
    return picture;
  }

  std::mutex mutex_;
  std::map<std::pair<QString, int>, QImage> images_;
  std::atomic<bool> stop_ = false;
  std::thread worker_;
};

DrawingStore& drawings() {
  static DrawingStore store;
  return store;
}

void paintDrawing(QPainter& painter, const QRectF& box, const QString& name, QIcon::Mode mode) {
  const qreal scale = painter.device()->devicePixelRatio();
  const int side = static_cast<int>(std::min(box.width(), box.height()));
  QImage picture = drawings().image(name, qRound(side * scale));
  if (picture.isNull()) return;
  picture.setDevicePixelRatio(scale);
  QRectF square(0, 0, side, side);
  square.moveCenter(box.center());
  if (mode == QIcon::Disabled) painter.setOpacity(painter.opacity() * kDisabledOpacity);
  painter.drawImage(square.toAlignedRect().topLeft(), picture);
}

QPalette paletteOf(const Roles& r) {
  QPalette p;
  p.setColor(QPalette::Window, r.window);
  p.setColor(QPalette::WindowText, r.ink);
  p.setColor(QPalette::Base, r.field);
  p.setColor(QPalette::AlternateBase, r.raised);
  p.setColor(QPalette::Text, r.ink);
  p.setColor(QPalette::PlaceholderText, r.quietInk);
  p.setColor(QPalette::Button, r.raised);
  p.setColor(QPalette::ButtonText, r.ink);
  p.setColor(QPalette::BrightText, r.accentInk);
  p.setColor(QPalette::Highlight, r.accent);
  p.setColor(QPalette::HighlightedText, r.accentInk);
  p.setColor(QPalette::ToolTipBase, r.raised);
  p.setColor(QPalette::ToolTipText, r.ink);
  p.setColor(QPalette::Link, r.accent);
  p.setColor(QPalette::Light, r.dark ? r.hover : QColor("#FFFFFF"));
  p.setColor(QPalette::Midlight, r.hover);
  p.setColor(QPalette::Mid, r.line);
  p.setColor(QPalette::Dark, r.dark ? QColor("#12151A") : QColor("#9AA7B5"));
  p.setColor(QPalette::Shadow, r.dark ? QColor("#0A0C0F") : QColor("#6C7885"));
  QColor pale = r.ink;
  pale.setAlphaF(0.42F);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, role, pale);
  p.setColor(QPalette::Disabled, QPalette::Highlight, r.pressed);
  return p;
}

}  // namespace

void apply(QApplication& application) {
  const QByteArray asked = qgetenv("RUVO_THEME").toLower();
  const bool desktopIsDark = application.palette().color(QPalette::Window).lightness() < 128;
  const bool dark = asked == "dark" || (asked != "light" && desktopIsDark);
  current = dark ? darkRoles() : lightRoles();
  application.setStyle(new ShellStyle);
  application.setPalette(paletteOf(current));
  loadDrawings();
  qAddPostRoutine([] { drawings().finish(); });
  drawings().prepare(qRound(kIconSide * application.devicePixelRatio()));
}

const Roles& roles() {
  return current;
}

QIcon icon(const QString& name) {
  loadDrawings();
  return QIcon(new PaintedIcon(
      [name](QPainter& painter, const QRectF& box, QIcon::Mode mode) { paintDrawing(painter, box, name, mode); }));
}

}  // namespace ruvo::theme
