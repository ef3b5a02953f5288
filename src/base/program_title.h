// The program's name as it stands in titles and message boxes.
#pragma once

namespace ruvo {

inline constexpr const char* kProgramTitle = "Ruvo Paint & Animated GIF Editor";

}  // namespace ruvo
