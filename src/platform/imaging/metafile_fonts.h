// Installed fonts: the one nearest to what a record asks for, and the outlines of its glyphs.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "platform/imaging/metafile_geometry.h"
#include "platform/imaging/metafile_objects.h"

namespace ruvo::imaging::meta {

// From this weight on letters count as bold.
inline constexpr int kBoldFrom = 600;

// A font file that is open. Lengths are in ems.
class Face {
 public:
  Face(FT_Library library, const std::string& file, int index);
  ~Face();
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  bool ok() const { return face_ != nullptr; }
  double ascent() const { return ascent_; }
  double descent() const { return descent_; }          // positive
  double letterWidth() const { return letterWidth_; }  // of small letters on average
  double underlinePosition() const;                    // below the base line
  double underlineThickness() const;
  // 0: the face has no such letter.
  unsigned glyphOf(char32_t code) const;
  double advanceOf(unsigned glyph) const;
  // In font units, y upwards; null when there is none. Valid until the next call.
  FT_Outline* outlineOf(unsigned glyph) const;
  double unitsPerEm() const;

 private:
  FT_Face face_ = nullptr;
  double ascent_ = 0;
  double descent_ = 0;
  double letterWidth_ = 0.5;
};

// A face for a request, and what the request asks for that the face has not.
struct FontMatch {
  Face* face = nullptr;
  bool slant = false;
  bool embolden = false;
  bool substitute = false;  // another family stands in for the one asked for

  explicit operator bool() const { return face != nullptr; }
};

class Fonts {
 public:
  Fonts();
  ~Fonts();
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  // The fonts of this thread, which stay open between one metafile and the next.
  static Fonts& ofThread();
  // Closes them when they have become many. No match may be in use.
  void trim();

  FT_Library library() const { return library_; }
  // None when no font can be opened at all. Faces stay valid until trim().
  FontMatch match(const FontSpec& spec) { return match(spec, 0); }
  // A face that has the letter, in the manner of the request.
  FontMatch match(const FontSpec& spec, char32_t letter);
  // How many requests were new, each of which costs some milliseconds.
  int searches() const { return searches_; }

 private:
  FontMatch search(const FontSpec& spec, char32_t letter);

  using Key = std::tuple<std::string, int, bool, int, char32_t>;
  FT_Library library_ = nullptr;
  int searches_ = 0;
  std::map<Key, FontMatch> matches_;
  std::map<std::pair<std::string, int>, std::unique_ptr<Face>> files_;
};

}  // namespace ruvo::imaging::meta
