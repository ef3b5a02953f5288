#include "formats/clsEXIF_Text.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/number_format.h"

namespace ruvo::exif {
namespace {

enum Tag {
  kOrientation = 274,
  kXResolution = 282,
  kYResolution = 283,
  kResolutionUnit = 296,
  kYCbCrPositioning = 531,
  kExposureTime = 33434,
  kFNumber = 33437,
  kExifVersion = 36864,
  kComponentsConfiguration = 37121,
  kShutterSpeedValue = 37377,
  kApertureValue = 37378,
  kExposureBiasValue = 37380,
  kMaxApertureValue = 37381,
  kMeteringMode = 37383,
  kLightSource = 37384,
  kFlash = 37385,
  kFocalLength = 37386,
  kFlashPixVersion = 40960,
  kColorSpace = 40961,
  kFocalPlaneResolutionUnit = 41488,
  kSensingMethod = 41495,
  kExposureMode = 41986,
  kWhiteBalance = 41987,
  kContrast = 41992,
  kSaturation = 41993,
  kSharpness = 41994,
  kSubjectDistanceRange = 41995
};

struct TagRow {
  int number;
  std::string_view name;
  bool listed = true;
};

constexpr TagRow kTags[] = {
    {270, "ImageDescription"},
    {271, "Manufacturer"},
    {272, "Model"},
    {kOrientation, "OrientationRowColumn"},
    {kXResolution, "XResolution"},
    {kYResolution, "YResolution"},
    {kResolutionUnit, "ResolutionUnit"},
    {305, "Software"},
    {306, "DateTime"},
    {318, "WhitePoint"},
    {319, "PrimaryChromaticities"},
    {529, "YCbCrCoefficients", false},
    {kYCbCrPositioning, "YCbCrPositioning"},
    {532, "ReferenceBlackWhite"},
    {33432, "Copyright"},
    {kExifOffset, "ExifOffset", false},
    {kExposureTime, "ExposureTime"},
    {kFNumber, "FNumber"},
    {34850, "ExposureProgram"},
    {34855, "ISOSpeedRatings"},
    {kExifVersion, "ExifVersion"},
    {kDateTimeOriginal, "DateTimeOriginal"},
    {36868, "DateTimeDigitized"},
    {kComponentsConfiguration, "ComponentsConfiguration"},
    {37122, "CompressedBitsPerPixel"},
    {kShutterSpeedValue, "ShutterSpeedValue"},
    {kApertureValue, "ApertureValue"},
    {37379, "BrightnessValue"},
    {kExposureBiasValue, "ExposureBiasValue", false},
    {kMaxApertureValue, "MaxApertureValue"},
    {37382, "SubjectDistance"},
    {kMeteringMode, "MeteringMode"},
    {kLightSource, "LightSource"},
    {kFlash, "Flash"},
    {kFocalLength, "FocalLength"},
    {37500, "ManufacturerNote", false},
    {37510, "UserComment", false},
    {37520, "SubsecTime"},
    {37521, "SubsecTimeOriginal"},
    {37522, "SubsecTimeDigitized"},
    {kFlashPixVersion, "FlashPixVersion"},
    {kColorSpace, "ColorSpace"},
    {kOriginalWidth, "ExifOriginalImageWidth"},
    {kOriginalHeight, "ExifOriginalImageHeight"},
    {40964, "RelatedSoundFile"},
    {kInteroperabilityOffset, "ExifInteroperabilityOffset", false},
    {41486, "FocalPlaneXResolution", false},
    {41487, "FocalPlaneYResolution", false},
    {kFocalPlaneResolutionUnit, "FocalPlaneResolutionUnit", false},
    {41493, "ExposureIndex"},
    {kSensingMethod, "SensingMethod"},
    {41728, "FileSource", false},
    {41729, "SceneType"},
    {41730, "CFAPattern"},
    {kExposureMode, "ExposureMode"},
    {kWhiteBalance, "WhiteBalance"},
    {41988, "ZoomRatio"},
    {kContrast, "Contrast"},
    {kSaturation, "Saturation"},
    {kSharpness, "Sharpness"},
    {kSubjectDistanceRange, "SubjectDistanceRange"},
};

const TagRow* rowOfTag(int number) {
  const auto* row =
      std::find_if(std::begin(kTags), std::end(kTags), [&](const TagRow& r) { return r.number == number; });
  return row == std::end(kTags) ? nullptr : row;
}

// The words of the values from `first` on.
struct WordRow {
  int number;
  int first;
  std::span<const std::string_view> words;
};

constexpr std::string_view kOrientations[] = {"[Top, Left]", "[Top, Right]", "[Bottom, Right]", "[Bottom, Left]",
                                              "[Left, Top]", "[Right, Top]", "[Right, Bottom]", "[Left, Bottom]"};
constexpr std::string_view kUnits[] = {"Inch", "Centimeter"};
constexpr std::string_view kPositionings[] = {"Center of pixel array ", "Datum point"};
constexpr std::string_view kSrgb[] = {"sRGB"};
constexpr std::string_view kUncalibrated[] = {"Uncalibrated"};
constexpr std::string_view kMeteringModes[] = {
    "Unknown", "Average", "Center Weighted Average", "Spot", "MultiSpot", "Pattern/Multisegment", "Partial"};
constexpr std::string_view kCommonLights[] = {"Unknown", "Daylight", "Fluorescent", "Tungsten", "Flash"};
constexpr std::string_view kWeatherLights[] = {
    "Fine weather",           "Cloudy weather",   "Shade", "Daylight fluorescent", "Day white fluorescent",
    "Cool white fluorescent", "White fluorescent"};
constexpr std::string_view kStandardLights[] = {
    "Standard light A", "Standard light B", "Standard light C", "D55", "D65", "D75", "D50", "ISO studio tungsten"};
constexpr std::string_view kFlashes[] = {"No flash", "Flash on", "No return light detected", "Return light detected"};
constexpr std::string_view kSensors[] = {"Undefined",
                                         "One-chip color area sensor",
                                         "Two-chip color area sensor",
                                         "Three-chip color area sensor",
                                         "Color sequential area sensor",
                                         "Trilinear sensor",
                                         "Color sequential linear sensor"};
constexpr std::string_view kExposureModes[] = {"Auto exposure", "Manual exposure", "Auto bracket"};
constexpr std::string_view kBalances[] = {"Auto balance", "Manual balance"};
constexpr std::string_view kHardness[] = {"Normal", "Soft", "Hard"};
constexpr std::string_view kSaturations[] = {"Normal", "Low saturation", "High saturation"};
constexpr std::string_view kDistances[] = {"Macro", "Close View", "Distant view"};

constexpr WordRow kWords[] = {
    {kOrientation, 1, kOrientations},
    {kResolutionUnit, 2, kUnits},
    {kFocalPlaneResolutionUnit, 2, kUnits},
    {kYCbCrPositioning, 1, kPositionings},
    {kColorSpace, 1, kSrgb},
    {kColorSpace, 65535, kUncalibrated},
    {kMeteringMode, 0, kMeteringModes},
    {kLightSource, 0, kCommonLights},
    {kLightSource, 9, kWeatherLights},
    {kLightSource, 17, kStandardLights},
    {kFlash, 0, kFlashes},
    {kSensingMethod, 1, kSensors},
    {kExposureMode, 0, kExposureModes},
    {kWhiteBalance, 0, kBalances},
    {kContrast, 0, kHardness},
    {kSharpness, 0, kHardness},
    {kSaturation, 0, kSaturations},
    {kSubjectDistanceRange, 1, kDistances},
};

std::string integerText(int number, std::int64_t value) {
  for (const WordRow& row : kWords) {
    const std::int64_t place = value - row.first;
    if (row.number == number && place >= 0 && place < std::ssize(row.words)) {
      return std::string(row.words[static_cast<std::size_t>(place)]);
    }
  }
  return std::to_string(value);
}

// Some tags have their own forms; aperture and shutter speed are stored as powers of two (APEX).
std::string rationalText(int number, std::int64_t top, std::int64_t bottom, bool isSigned) {
  if (!isSigned && (number == kXResolution || number == kYResolution)) return std::to_string(top);
  const std::string pair = std::to_string(top) + '/' + std::to_string(bottom);
  if (top == 0 || bottom == 0) return pair;
  const double value = static_cast<double>(top) / static_cast<double>(bottom);
  if (isSigned) {
    if (number == kExposureBiasValue) return formatNumber(value, "0.000");
    if (number == kShutterSpeedValue) return "1/" + formatNumber(std::exp2(value), "0") + " sec";
    return pair + "  " + formatNumber(value, "0.0");
  }
  switch (number) {
    case kExposureTime:
      return "1/" + formatNumber(static_cast<double>(bottom) / static_cast<double>(top), "0");
    case kFNumber:
      return formatNumber(value, "0.0");
    case kApertureValue:
    case kMaxApertureValue:
      return formatNumber(std::exp2(value / 2), "0.0");
    case kFocalLength:
      return formatNumber(value, "0.0") + " mm";
    default:
      return pair + "  " + formatNumber(value, "0.000");
  }
}

std::string componentText(int number, int type, FieldReader& from) {
  switch (type) {
    case kShort:
      return integerText(number, from.u16());
    case kLong:
      return integerText(number, from.u32());
    case kSignedByte:
      return integerText(number, static_cast<std::int8_t>(from.u8()));
    case kSignedShort:
      return integerText(number, static_cast<std::int16_t>(from.u16()));
    case kSignedLong:
      return integerText(number, static_cast<std::int32_t>(from.u32()));
    case kRational: {
      const std::uint32_t top = from.u32();
      return rationalText(number, top, from.u32(), false);
    }
    case kSignedRational: {
      const auto top = static_cast<std::int32_t>(from.u32());
      return rationalText(number, top, static_cast<std::int32_t>(from.u32()), true);
    }
    default:
      return integerText(number, from.u8());
  }
}

std::string letters(std::span<const std::uint8_t> bytes) {
  // No block is longer; a value that claims more is most of a large file, perhaps that of many entries.
  constexpr std::size_t kMostLetters = 1 << 16;
  const auto text = bytes.first(std::min(bytes.size(), kMostLetters));
  return {text.begin(), std::find(text.begin(), text.end(), 0)};
}

std::string channelNames(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kChannels[] = {"", "Y", "Cb", "Cr", "R", "G", "B"};
  std::string text;
  for (const std::uint8_t channel : bytes.first(std::min<std::size_t>(bytes.size(), 4))) {
    if (channel < std::size(kChannels)) text += kChannels[channel];
  }
  return text;
}

std::string versionText(std::span<const std::uint8_t> bytes) {
  std::string text = letters(bytes.first(std::min<std::size_t>(bytes.size(), 4)));
  if (text.size() > 2) text.insert(2, ".");
  return text;
}

}  // namespace

int componentSize(int type) {
  constexpr int kSizes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8};
  return type >= kByte && type <= kSignedRational ? kSizes[type] : 0;
}

std::string tagName(int number) {
  const TagRow* row = rowOfTag(number);
  return row ? std::string(row->name) : "TAG #" + std::to_string(number);
}

bool isListed(int number) {
  const TagRow* row = rowOfTag(number);
  return row && row->listed;
}

std::string valueText(int number, int type, std::span<const std::uint8_t> bytes, bool intel) {
  constexpr std::size_t kMostShown = 16;
  if (type == kAscii) return letters(bytes);
  if (type == kUndefined && number == kComponentsConfiguration) return channelNames(bytes);
  if (type == kUndefined && (number == kExifVersion || number == kFlashPixVersion)) return versionText(bytes);
  FieldReader from(bytes, intel);
  std::string text;
  for (std::size_t i = 0; i < kMostShown && from.left() > 0; ++i) {
    if (i > 0) text += ", ";
    text += componentText(number, type, from);
  }
  return text;
}

}  // namespace ruvo::exif
