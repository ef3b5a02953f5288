// The media types under which pictures lie on a clipboard.
#pragma once

#include <optional>
#include <string_view>

namespace ruvo::imaging {

// The place of a media type in the order in which the forms of one picture are tried, the best (0) first: bitmap files,
// then device-independent bitmaps without a file header, then metafiles (RFC 7903 and the names that programs used
// before it). The case of letters and parameters behind a ';' do not count. Nothing for types whose content the readers
// of this program do not know.
std::optional<int> clipboardRank(std::string_view mediaType);

}  // namespace ruvo::imaging
