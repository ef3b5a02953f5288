// The coders that the imaging service takes from here, since it stands on a lower floor.
#pragma once

namespace ruvo {

// Gives the imaging service the program's own GIF encoder. Called once at the start of each program.
void registerFormatCodecs();

}  // namespace ruvo
