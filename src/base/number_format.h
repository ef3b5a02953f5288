// Numbers as text by a picture of digits: '0' is a digit that always stands, '#' one that stands when it is needed, ','
// among them groups by thousands, and what follows '.' is the decimals.
#pragma once

#include <string>
#include <string_view>

namespace ruvo {

inline constexpr std::string_view kFormatLimit = "##,000,000";
inline constexpr std::string_view kFormatSideLimit = "##,000";
inline constexpr std::string_view kFormatAngle = "##0.0";
inline constexpr std::string_view kFormatFileSize = "###,###,##0";
inline constexpr std::string_view kFormatAnimationSize = "#,#0";  // bytes; two digits at the least

// Rounds half away from zero to the pattern's decimals (at most 9). The separators are "," and "." in every locale. A
// value that is no finite number gives "0".
std::string formatNumber(double value, std::string_view pattern);

}  // namespace ruvo
