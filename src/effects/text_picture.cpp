#include "effects/text_picture.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QTextCharFormat>
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <vector>

#include "base/limits.h"
#include "platform/desktop/texts.h"

namespace ruvo {
namespace {

constexpr double kWidestLine = 4e6;  // the layout's numbers end at twice that
constexpr int kTabWidth = 4;         // in heights of the font
constexpr int kSoftRim = 1;          // how far a soft edge may reach beyond an outline
constexpr double kGroundMargin = 8;  // of a filled ground: the font's height over this
constexpr std::uint8_t kHalf = 128;

QTextOption textOption(const TextChoices& choices) {
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setWrapMode(QTextOption::NoWrap);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  option.setTabStopDistance(kTabWidth * choices.size);
  return option;
}

// Blanks at the end of a line would push it away from its side: from the left one where the script runs to the left.
QString withoutBlankEnd(QString line) {
  while (!line.isEmpty() && line.back().isSpace()) line.chop(1);
  return line;
}

// `length` is what it takes in the text.
char32_t characterAt(const QString& text, int at, int& length) {
  const QChar first = text[at];
  const bool pair = first.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
  length = pair ? 2 : 1;
  return pair ? QChar::surrogateToUcs4(first, text[at + 1]) : first.unicode();
}

// Marks and joiners go with the letter before them.
bool goesWithLetter(char32_t character) {
  return QChar::isMark(character) || QChar::category(character) == QChar::Other_Format;
}

// Slanted and bold faces often lack scripts that the upright, plain ones of the same fonts have, and whatever stands in
// is asked for the same style. Where a letter would show as a box for that, the parts with less style that bring it.
QList<QTextLayout::FormatRange> plainerParts(const QString& text, const QFont& font) {
  struct Manner {
    QFontMetrics metrics;
    QTextCharFormat format;
  };
  std::vector<Manner> manners;
  QFont plainer = font;
  QTextCharFormat format;
  if (font.italic()) {
    plainer.setItalic(false);
    format.setFontItalic(false);
    manners.push_back({QFontMetrics(plainer), format});
  }
  if (font.bold()) {
    plainer.setWeight(QFont::Normal);
    format.setFontWeight(QFont::Normal);
    manners.push_back({QFontMetrics(plainer), format});
  }
  QList<QTextLayout::FormatRange> parts;
  if (manners.empty()) return parts;
  const QFontMetrics wanted(font);
  const Manner* last = nullptr;
  for (int at = 0, length = 1; at < text.size(); at += length) {
    const char32_t character = characterAt(text, at, length);
    const auto brings = [character](const Manner& manner) { return manner.metrics.inFontUcs4(character); };
    const Manner* manner = last;
    if (!goesWithLetter(character)) {
      const auto found = wanted.inFontUcs4(character) ? manners.end() : std::ranges::find_if(manners, brings);
      manner = found == manners.end() ? nullptr : &*found;
    }
    if (manner && manner == last) {
      parts.back().length += length;
    } else if (manner) {
      parts.push_back({at, length, manner->format});
    }
    last = manner;
  }
  return parts;
}

double shareLeftOf(TextAlign align) {
  return align == TextAlign::Left ? 0 : align == TextAlign::Center ? 0.5 : 1;
}

// What the painter multiplied by alpha becomes straight again. Where it is the letters' own colour, that is stored: a
// division would bring back a faint pixel in another hue.
class Straightener {
 public:
  Straightener(Colour ink, bool antialias) : ink_(Pixel32::plain(ink)), antialias_(antialias) {}

  void turn(Pixel32& pixel) const {
    std::uint8_t alpha = pixel.alpha;
    if (!antialias_) alpha = alpha < kHalf ? 0 : 255;
    if (alpha == 0 || isInk(pixel)) {
      pixel = ink_;
    } else {
      pixel = {straight(pixel.blue, pixel.alpha), straight(pixel.green, pixel.alpha), straight(pixel.red, pixel.alpha),
               0};
    }
    pixel.alpha = alpha;
  }

 private:
  static std::uint8_t straight(int multiplied, int alpha) {
    return static_cast<std::uint8_t>(std::min(255, (multiplied * 255 + alpha / 2) / alpha));
  }
  bool isInk(const Pixel32& p) const {
    const auto near = [&p](int ink, int multiplied) { return std::abs(ink * p.alpha - multiplied * 255) <= 255; };
    return near(ink_.blue, p.blue) && near(ink_.green, p.green) && near(ink_.red, p.red);
  }

  Pixel32 ink_;
  bool antialias_;
};

}  // namespace

TextPicture::TextPicture(const TextChoices& choices) : choices_(choices) {
  if (!hasLetters(choices.text)) return;
  const QFont font = fontOf();
  family_ = QRawFont::fromFont(font).familyName();
  double y = 0, widest = 0;
  QRectF ink;
  for (const QString& text : qt(choices.text).split(u'\n')) {
    Line& line = lines_.emplace_back(withoutBlankEnd(text), font);
    layOut(line);
    line.at.setY(y);
    const QTextLine laid = line.layout.lineAt(0);
    y += laid.height() + std::max(0.0, laid.leading());
    widest = std::max(widest, line.width);
  }
  for (Line& line : lines_) {
    line.at.setX((widest - line.width) * shareLeftOf(choices.align));
    QRectF lineInk;
    noteGlyphs(line.layout, lineInk);
    if (!lineInk.isEmpty()) ink |= lineInk.translated(line.at);
  }
  QRectF all = ink.adjusted(-kSoftRim, -kSoftRim, kSoftRim, kSoftRim) | QRectF(0, 0, widest, y);
  const double margin = choices.filled ? std::ceil(choices.size / kGroundMargin) : 0;
  all.adjust(-margin, -margin, margin, margin);
  // Letters begin at whole pixels, so that moving the rim does not change their shape.
  origin_ = {-std::floor(all.left()), -std::floor(all.top())};
  width_ = static_cast<std::int64_t>(std::ceil(all.right()) + origin_.x());
  height_ = static_cast<std::int64_t>(std::ceil(all.bottom()) + origin_.y());
}

QFont TextPicture::fontOf() const {
  QFont font = choices_.family.empty() ? QGuiApplication::font() : QFont(qt(choices_.family));
  font.setPixelSize(choices_.size);
  font.setWeight(choices_.bold ? QFont::Bold : QFont::Normal);
  font.setItalic(choices_.italic);
  font.setUnderline(choices_.underline);
  font.setStrikeOut(choices_.strikeThru);
  // Colours of single screen dots have no place in a picture, and the desktop's taste in hinting is not the picture's.
  font.setStyleStrategy(choices_.antialias ? QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias)
                                           : QFont::NoAntialias);
  font.setHintingPreference(choices_.antialias ? QFont::PreferVerticalHinting : QFont::PreferFullHinting);
  return font;
}

void TextPicture::layOut(Line& line) {
  line.layout.setTextOption(textOption(choices_));
  line.layout.setCacheEnabled(true);
  const QList<QTextLayout::FormatRange> parts = plainerParts(line.layout.text(), line.layout.font());
  line.layout.setFormats(parts);
  styleMissing_ = styleMissing_ || !parts.empty();
  line.layout.beginLayout();
  QTextLine laid = line.layout.createLine();
  laid.setLineWidth(kWidestLine);
  laid.setPosition({0, 0});
  line.layout.endLayout();
  line.width = laid.naturalTextWidth();
  // Set anew at its own width, or a right-to-left line would begin far away.
  line.layout.beginLayout();
  laid = line.layout.createLine();
  laid.setLineWidth(std::ceil(line.width));
  laid.setPosition({0, 0});
  line.layout.endLayout();
}

// Where the outlines of a line lie, and which fonts they come from.
void TextPicture::noteGlyphs(const QTextLayout& layout, QRectF& ink) {
  for (const QGlyphRun& run : layout.glyphRuns()) {
    ink |= run.boundingRect();
    const QString family = run.rawFont().familyName();
    if (family != family_ && !standIns_.contains(family)) standIns_ << family;
    glyphMissing_ = glyphMissing_ || run.glyphIndexes().contains(0u);
  }
}

QString TextPicture::fontNote() const {
  QStringList notes;
  const QString wanted = qt(choices_.family);
  // A family of the list may go by another name within: with its maker's, or as one of the desktop's own words.
  if (!empty() && !wanted.isEmpty() && !QFontDatabase::hasFamily(wanted))
    notes << QStringLiteral("%1 is not here; %2 stands in for it.").arg(wanted, family_);
  if (!standIns_.isEmpty())
    notes
        << QStringLiteral("%1 stands in for what %2 does not have.").arg(standIns_.join(QStringLiteral(", ")), family_);
  if (styleMissing_) notes << QStringLiteral("Some characters are not here in that style and stand plainer.");
  if (glyphMissing_) notes << QStringLiteral("Some characters are in no font here and show as boxes.");
  return notes.join(u'\n');
}

bool TextPicture::render(clsDIB& picture) const {
  if (!pictureSizeAllowed(width_, height_)) return false;
  return paint(picture, {static_cast<int>(width_), static_cast<int>(height_)}, 1);
}

bool TextPicture::renderSample(clsDIB& picture, double scale, Size room) const {
  const auto shown = [scale](std::int64_t whole, int most) {
    return static_cast<int>(std::clamp(std::ceil(static_cast<double>(whole) * scale), 1.0, std::max(1.0, most * 1.0)));
  };
  return !empty() && paint(picture, {shown(width_, room.width), shown(height_, room.height)}, scale);
}

bool TextPicture::paint(clsDIB& picture, Size size, double scale) const {
  if (!picture.CreateBlankDIB(size.width, size.height, 32, kBlack, true)) return false;
  picture.setDIBhasAlpha(true);
  const Colour back = choices_.backColour, ink = choices_.colour;
  {
    QImage canvas(picture.DIBBitsPtr(), size.width, size.height, picture.BytesPerScanline(),
                  QImage::Format_ARGB32_Premultiplied);
    if (choices_.filled) canvas.fill(QColor(redOf(back), greenOf(back), blueOf(back)));
    QPainter painter(&canvas);
    if (!painter.isActive()) return false;
    painter.setRenderHint(QPainter::Antialiasing, choices_.antialias);
    painter.setRenderHint(QPainter::TextAntialiasing, choices_.antialias);
    painter.setPen(QColor(redOf(ink), greenOf(ink), blueOf(ink)));
    painter.scale(scale, scale);
    const double bottom = size.height / scale;
    for (const Line& line : lines_) {
      // A line above or below still reaches in by its tallest marks.
      const double top = line.at.y() + origin_.y();
      if (top > bottom + choices_.size) break;
      line.layout.draw(&painter, line.at + origin_);
    }
  }
  if (choices_.filled) return true;
  const Straightener straightener(ink, choices_.antialias);
  for (int y = 0; y < size.height; ++y) {
    auto* row = reinterpret_cast<Pixel32*>(picture.surface().pictureRow(y));
    for (int x = 0; x < size.width; ++x) straightener.turn(row[x]);
  }
  return true;
}

}  // namespace ruvo
