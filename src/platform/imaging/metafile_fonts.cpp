#include "platform/imaging/metafile_fonts.h"

#include <fontconfig/fontconfig.h>
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include "base/letter_case.h"

namespace ruvo::imaging::meta {

Face::Face(FT_Library library, const std::string& file, int index) {
  if (FT_New_Face(library, file.c_str(), index, &face_) != 0) face_ = nullptr;
  if (!face_ || face_->units_per_EM == 0 || !FT_IS_SCALABLE(face_)) {
    if (face_) FT_Done_Face(face_);
    face_ = nullptr;
    return;
  }
  ascent_ = face_->ascender / unitsPerEm();
  descent_ = -face_->descender / unitsPerEm();
  if (const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_, FT_SFNT_OS2))) {
    // The heights that line heights of records are measured by.
    if (os2->usWinAscent + os2->usWinDescent > 0) {
      ascent_ = os2->usWinAscent / unitsPerEm();
      descent_ = os2->usWinDescent / unitsPerEm();
    }
  }
  double letters = 0;
  for (char32_t letter = 'a'; letter <= 'z'; ++letter) letters += advanceOf(glyphOf(letter));
  if (letters > 0) letterWidth_ = letters / 26;
}

Face::~Face() {
  if (face_) FT_Done_Face(face_);
}

double Face::unitsPerEm() const {
  return face_->units_per_EM;
}

double Face::underlinePosition() const {
  return -face_->underline_position / unitsPerEm();
}

double Face::underlineThickness() const {
  return std::max(0.02, face_->underline_thickness / unitsPerEm());
}

unsigned Face::glyphOf(char32_t code) const {
  return FT_Get_Char_Index(face_, code);
}

double Face::advanceOf(unsigned glyph) const {
  return FT_Load_Glyph(face_, glyph, FT_LOAD_NO_SCALE) == 0 ? face_->glyph->metrics.horiAdvance / unitsPerEm() : 0;
}

FT_Outline* Face::outlineOf(unsigned glyph) const {
  if (FT_Load_Glyph(face_, glyph, FT_LOAD_NO_SCALE) != 0) return nullptr;
  return face_->glyph->format == FT_GLYPH_FORMAT_OUTLINE ? &face_->glyph->outline : nullptr;
}

Fonts::Fonts() {
  if (FT_Init_FreeType(&library_) != 0) library_ = nullptr;
}

Fonts& Fonts::ofThread() {
  thread_local Fonts fonts;
  return fonts;
}

void Fonts::trim() {
  constexpr std::size_t kManyMatches = 100;
  if (matches_.size() < kManyMatches) return;
  matches_.clear();
  files_.clear();
}

Fonts::~Fonts() {
  files_.clear();
  if (library_) FT_Done_FreeType(library_);
}

FontMatch Fonts::match(const FontSpec& spec, char32_t letter) {
  constexpr std::size_t kMostMatches = 400;
  const Key key{spec.face, spec.weight, spec.italic, spec.pitchAndFamily, letter};
  const auto known = matches_.find(key);
  if (known != matches_.end()) return known->second;
  if (!library_) return {};
  if (matches_.size() >= kMostMatches) return matches_.begin()->second;
  ++searches_;
  return matches_[key] = search(spec, letter);
}

namespace {

struct PatternCloser {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternCloser>;

// The generic family by the bits of a record, for when the face is not installed.
const char* familyOf(int pitchAndFamily) {
  constexpr int kFixed = 1, kRoman = 1, kModern = 3;
  const int family = pitchAndFamily >> 4 & 15;
  if ((pitchAndFamily & 3) == kFixed || family == kModern) return "monospace";
  return family == kRoman ? "serif" : "sans-serif";
}

// The installed font nearest to a family in the manner of the request.
Pattern nearest(const FontSpec& spec, const char* family, char32_t letter) {
  const Pattern pattern(FcPatternCreate());
  if (*family) FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, spec.weight >= kBoldFrom ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern.get(), FC_SLANT, spec.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  if (letter != 0) {
    FcCharSet* set = FcCharSetCreate();
    FcCharSetAddChar(set, letter);
    FcPatternAddCharSet(pattern.get(), FC_CHARSET, set);
    FcCharSetDestroy(set);
  }
  FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  FcResult result = FcResultMatch;
  return Pattern(FcFontMatch(nullptr, pattern.get(), &result));
}

std::string fileOf(const Pattern& font) {
  FcChar8* file = nullptr;
  if (!font || FcPatternGetString(font.get(), FC_FILE, 0, &file) != FcResultMatch) return {};
  return reinterpret_cast<const char*>(file);
}

// A look-alike of the face where one is known; a face that nothing is known of gets its generic family.
Pattern bestFor(const FontSpec& spec, char32_t letter) {
  Pattern byFace = nearest(spec, spec.face.c_str(), letter);
  const bool anyFont = spec.face.empty() || fileOf(byFace) == fileOf(nearest(spec, "", letter));
  return anyFont ? nearest(spec, familyOf(spec.pitchAndFamily), letter) : std::move(byFace);
}

}  // namespace

FontMatch Fonts::search(const FontSpec& spec, char32_t letter) {
  const Pattern found = bestFor(spec, letter);
  const std::string path = fileOf(found);
  if (path.empty()) return {};
  const auto number = [&](const char* property, int fallback) {
    int value = fallback;
    return FcPatternGetInteger(found.get(), property, 0, &value) == FcResultMatch ? value : fallback;
  };
  const int index = number(FC_INDEX, 0) & 0xFFFF;
  std::unique_ptr<Face>& face = files_[{path, index}];
  if (!face) face = std::make_unique<Face>(library_, path, index);
  if (!face->ok()) return {};
  FontMatch match{face.get()};
  match.slant = spec.italic && number(FC_SLANT, FC_SLANT_ROMAN) == FC_SLANT_ROMAN;
  match.embolden = spec.weight >= kBoldFrom && number(FC_WEIGHT, FC_WEIGHT_REGULAR) < FC_WEIGHT_DEMIBOLD;
  match.substitute = true;
  FcChar8* family = nullptr;
  for (int i = 0; FcPatternGetString(found.get(), FC_FAMILY, i, &family) == FcResultMatch; ++i) {
    if (upperCase(reinterpret_cast<const char*>(family)) == upperCase(spec.face)) match.substitute = false;
  }
  return match;
}

}  // namespace ruvo::imaging::meta
