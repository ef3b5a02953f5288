// How a file of each format becomes a picture: the functions behind the rows of the format table.
#pragma once

#include "formats/format_table.h"

namespace ruvo::readers {

// BMP, JPEG, metafiles and a GIF's first frame, by content, through the platform's picture loader.
ReadPicture classic(const std::filesystem::path& file, const ReadRequest& request);
// PNG and TIFF (and what the classic loader takes) through the imaging service.
ReadPicture imagingService(const std::filesystem::path& file, const ReadRequest& request);
// Through the service or, natively, clsPNG.
ReadPicture png(const std::filesystem::path& file, const ReadRequest& request);
// The first frame through clsGIF; a file over kLargestModelledGif through the classic loader unless natively.
ReadPicture gif(const std::filesystem::path& file, const ReadRequest& request);
ReadPicture pcx(const std::filesystem::path& file, const ReadRequest& request);
ReadPicture tga(const std::filesystem::path& file, const ReadRequest& request);
// The image that is asked for, on white; `mask` is a copy of its own.
ReadPicture icon(const std::filesystem::path& file, const ReadRequest& request);
ReadPicture cursor(const std::filesystem::path& file, const ReadRequest& request);

}  // namespace ruvo::readers
