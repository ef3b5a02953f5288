// Character sets of fonts ([MS-WMF] 2.1.1.5) and the letters of symbol fonts.
#include <iconv.h>

#include <array>

#include "base/byte_reader.h"
#include "platform/imaging/metafile_text.h"

namespace ruvo::imaging::meta {
namespace {

constexpr int kSymbolSet = 2;
constexpr char32_t kReplacement = 0xFFFD;

const char* codePageOf(int charset) {
  struct Row {
    int charset;
    const char* name;
  };
  static constexpr Row kRows[] = {
      {77, "MACINTOSH"}, {128, "CP932"},  {129, "CP949"},  {130, "JOHAB"},  {134, "GBK"},    {136, "BIG5"},
      {161, "CP1253"},   {162, "CP1254"}, {163, "CP1258"}, {177, "CP1255"}, {178, "CP1256"}, {186, "CP1257"},
      {204, "CP1251"},   {222, "CP874"},  {238, "CP1250"}, {255, "CP437"},
  };
  for (const Row& row : kRows) {
    if (row.charset == charset) return row.name;
  }
  return "CP1252";
}

class Converter {
 public:
  explicit Converter(const char* from) : handle_(iconv_open("UTF-32LE", from)) {}
  ~Converter() {
    if (ok()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool ok() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
  // The character that the first `length` bytes are, or nothing.
  std::optional<char32_t> one(std::span<const std::uint8_t> bytes) {
    std::array<char, 4> copy{};
    std::copy(bytes.begin(), bytes.end(), copy.begin());
    std::array<std::uint8_t, 8> out{};
    char* in = copy.data();
    char* to = reinterpret_cast<char*>(out.data());
    std::size_t inLeft = bytes.size(), outLeft = out.size();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &in, &inLeft, &to, &outLeft) == static_cast<std::size_t>(-1) || inLeft != 0) return std::nullopt;
    return ByteReader(out).u32();
  }

 private:
  iconv_t handle_;
};

}  // namespace

std::vector<Character> charactersOf(std::span<const std::uint8_t> text, int charset) {
  std::vector<Character> out;
  out.reserve(text.size());
  Converter converter(codePageOf(charset));
  for (std::size_t i = 0; i < text.size();) {
    if (charset == kSymbolSet || !converter.ok() || text[i] < 0x80) {
      out.push_back({text[i++], 1});
      continue;
    }
    std::size_t length = 1;
    auto code = converter.one(text.subspan(i, 1));
    if (!code && i + 1 < text.size()) {
      code = converter.one(text.subspan(i, 2));
      if (code) length = 2;
    }
    out.push_back({code.value_or(kReplacement), static_cast<int>(length)});
    i += length;
  }
  return out;
}

std::vector<Character> charactersOfUtf16(std::span<const std::uint8_t> text) {
  std::vector<Character> out;
  ByteReader reader(text);
  while (reader.left() >= 2) {
    const char32_t unit = reader.u16();
    const bool continues = unit >= 0xDC00 && unit < 0xE000 && !out.empty() && out.back().units == 1 &&
                           out.back().code >= 0xD800 && out.back().code < 0xDC00;
    if (continues) {
      out.back() = {0x10000 + ((out.back().code - 0xD800) << 10) + (unit - 0xDC00), 2};
    } else {
      out.push_back({unit, 1});
    }
  }
  return out;
}

std::string utf8Of(std::span<const Character> text) {
  std::string out;
  const auto put = [&](char32_t v) { out.push_back(static_cast<char>(v)); };
  for (const Character& c : text) {
    const char32_t code = c.code;
    if (code < 0x80) {
      put(code);
    } else if (code < 0x800) {
      put(0xC0 | code >> 6);
      put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
      put(0xE0 | code >> 12);
      put(0x80 | (code >> 6 & 0x3F));
      put(0x80 | (code & 0x3F));
    } else {
      put(0xF0 | (code >> 18 & 7));
      put(0x80 | (code >> 12 & 0x3F));
      put(0x80 | (code >> 6 & 0x3F));
      put(0x80 | (code & 0x3F));
    }
  }
  return out;
}

namespace {

// The Symbol font from 0x20 and from 0xA0 on, as its encoding vector has it.
constexpr std::u16string_view kSymbolLow =
    u" !\u2200#\u2203%&\u220D()\u2217+,\u2212./0123456789:;<=>?"
    u"\u2245\u0391\u0392\u03A7\u0394\u0395\u03A6\u0393\u0397\u0399\u03D1\u039A\u039B\u039C\u039D\u039F"
    u"\u03A0\u0398\u03A1\u03A3\u03A4\u03A5\u03C2\u03A9\u039E\u03A8\u0396[\u2234]\u22A5_"
    u"\u203E\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5\u03BA\u03BB\u03BC\u03BD\u03BF"
    u"\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5\u03D6\u03C9\u03BE\u03C8\u03B6{|}\u223C";
constexpr std::u16string_view kSymbolHigh =
    u"\u20AC\u03D2\u2032\u2264\u2044\u221E\u0192\u2663\u2666\u2665\u2660\u2194\u2190\u2191\u2192\u2193"
    u"\u00B0\u00B1\u2033\u2265\u00D7\u221D\u2202\u2022\u00F7\u2260\u2261\u2248\u2026\u23D0\u23AF\u21B5"
    u"\u2135\u2111\u211C\u2118\u2297\u2295\u2205\u2229\u222A\u2283\u2287\u2284\u2282\u2286\u2208\u2209"
    u"\u2220\u2207\u00AE\u00A9\u2122\u220F\u221A\u22C5\u00AC\u2227\u2228\u21D4\u21D0\u21D1\u21D2\u21D3"
    u"\u25CA\u2329\u00AE\u00A9\u2122\u2211\u239B\u239C\u239D\u23A1\u23A2\u23A3\u23A7\u23A8\u23A9\u23AA"
    u"\uF8FF\u232A\u222B\u2320\u23AE\u2321\u239E\u239F\u23A0\u23A4\u23A5\u23A6\u23AB\u23AC\u23AD";
static_assert(kSymbolLow.size() == 0x7F - 0x20 && kSymbolHigh.size() == 0xFF - 0xA0);

// The marks of Wingdings that stand in front of list items, and a few that texts use.
constexpr std::pair<char32_t, char32_t> kWingdings[] = {
    {0x4A, 0x263A}, {0x4C, 0x2639}, {0x6C, 0x25CF}, {0x6E, 0x25A0}, {0x6F, 0x25A1}, {0x71, 0x2751},
    {0x73, 0x2B27}, {0x75, 0x25C6}, {0x76, 0x2756}, {0x77, 0x25C6}, {0x9F, 0x2022}, {0xA1, 0x25CB},
    {0xA7, 0x25AA}, {0xA8, 0x25FB}, {0xD8, 0x27A2}, {0xDF, 0x2190}, {0xE0, 0x2192}, {0xE1, 0x2191},
    {0xE2, 0x2193}, {0xE8, 0x2794}, {0xF0, 0x21E8}, {0xFB, 0x2717}, {0xFC, 0x2713}, {0xFE, 0x2611},
};

}  // namespace

char32_t symbolLetter(std::string_view face, char32_t code) {
  const char32_t low = code & 0xFF;
  if (face == "Symbol") {
    if (low >= 0x20 && low < 0x7F) return kSymbolLow[low - 0x20];
    if (low >= 0xA0 && low < 0xFF) return kSymbolHigh[low - 0xA0];
  }
  if (face.starts_with("Wingdings")) {
    for (const auto& [mark, letter] : kWingdings) {
      if (mark == low) return letter;
    }
    return 0x25AA;
  }
  return 0;
}

}  // namespace ruvo::imaging::meta
