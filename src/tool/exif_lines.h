// The listing of camera data as lines of plain text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ruvo::tool {

// The lines of clsEXIF::ListInfoTags without its line ends and indents, safe to print.
std::vector<std::string> exifLines(std::string_view listed);

}  // namespace ruvo::tool
