// Peak memory of a decode: for each format a picture of 20 megapixels is written and read again in a process of its own,
// whose growth is held against the finished surface and the file together. Prints rows of the table that bench/run
// begins.
//
//   memory_bench                the table
//   memory_bench --read FILE [--native]   reads one file and prints the growth and the surface in bytes
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "base/paths.h"
#include "formats/clsGIF.h"
#include "formats/clsPCX.h"
#include "formats/clsTGA.h"
#include "formats/format_table.h"
#include "image/clsPal.h"
#include "image/clsPalDither.h"
#include "photograph.h"
#include "platform/imaging/encoders.h"
#include "platform/imaging/imaging_service.h"
#include "support/temp_folder.h"

namespace {

using namespace ruvo;
constexpr int kWidth = 5000, kHeight = 4000;

std::int64_t peakBytes() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::int64_t>(usage.ru_maxrss) * 1024;
}

int readOne(const std::filesystem::path& file, bool native) {
  imaging::startImagingService();
  const std::int64_t before = peakBytes();
  std::int64_t surface = 0;
  if (native && formatOfExtension(".gif") == formatOfExtension(utf8Of(file.extension()))) {
    clsGIF gif;
    if (gif.LoadFromGIFFile(file) != kGifOk) return 1;
    surface = gif.FrameDIBXOR(1).DIBSize() + gif.FrameDIBAND(1).DIBSize();
    std::printf("%lld %lld\n", static_cast<long long>(peakBytes() - before), static_cast<long long>(surface));
    return 0;
  }
  ReadRequest request;
  request.native = native;
  const ReadPicture read = readPicture(file, *formatOfExtension(utf8Of(file.extension())), request);
  if (!read) return 1;
  std::printf("%lld %lld\n", static_cast<long long>(peakBytes() - before),
              static_cast<long long>(read.dib.surface().byteCount()));
  return 0;
}

void printRow(const char* self, const std::string& name, const std::filesystem::path& file, bool native) {
  const std::string command =
      std::string("'") + self + "' --read '" + file.string() + "'" + (native ? " --native" : "");
  std::FILE* pipe = ::popen(command.c_str(), "r");
  long long growth = 0, surface = 0;
  const bool read = pipe && std::fscanf(pipe, "%lld %lld", &growth, &surface) == 2;
  if (pipe) ::pclose(pipe);
  if (!read) {
    std::printf("| %s | not read | | | |\n", name.c_str());
    return;
  }
  const double allowed = static_cast<double>(surface) + static_cast<double>(std::filesystem::file_size(file));
  std::printf("| Peak memory: %s, surface and file together | %.1f MB | %.1f MB | %.2f | 1.2 |\n", name.c_str(),
              static_cast<double>(growth) / 1e6, allowed / 1e6, static_cast<double>(growth) / allowed);
}

// Written in a process that ends, so that the one that prints stays small.
void write(const std::function<void()>& act) {
  const pid_t child = ::fork();
  if (child == 0) {
    act();
    ::_exit(0);
  }
  ::waitpid(child, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 3 && std::strcmp(argv[1], "--read") == 0) return readOne(argv[2], argc > 3);
  const test::TempFolder folder;
  write([&] {
    imaging::startImagingService();
    const clsDIB photo = bench::photograph(kWidth, kHeight);
    photo.Save_DIB_To_File(folder / "a.bmp", photo);
    imaging::saveJpeg(photo.surface(), folder / "a.jpg", 90);
    imaging::savePng(photo.surface(), folder / "a.png", false);
    imaging::saveTiff(photo.surface(), folder / "a.tif", 24, false);
    clsPCX pcx;
    pcx.Compressed = true;
    pcx.SavePCXinFile(folder / "a.pcx", photo.surface(), kWidth, kHeight);
    clsTGA().SaveTGAinFile(folder / "a.tga", photo.surface(), kWidth, kHeight);
    clsDIB copy, eight;
    clsDIB::CloneDIB(photo, copy, kWhite, false);
    clsPal pal;
    clsPalDither dither;
    if (clsDIB::ConvertDIB_To_DIB8BPP(copy, eight, pal, dither, folder.path())) {
      clsGIF::SaveGIFFrom_BPP8_DIB(folder / "a.gif", eight, pal, 8);
    }
  });
  printRow(argv[0], "BMP", folder / "a.bmp", false);
  printRow(argv[0], "JPEG", folder / "a.jpg", false);
  printRow(argv[0], "PNG by the service", folder / "a.png", false);
  printRow(argv[0], "PNG by our reader", folder / "a.png", true);
  printRow(argv[0], "TIFF", folder / "a.tif", false);
  printRow(argv[0], "GIF, first frame", folder / "a.gif", false);
  printRow(argv[0], "GIF, frame model", folder / "a.gif", true);
  printRow(argv[0], "PCX", folder / "a.pcx", false);
  printRow(argv[0], "TGA", folder / "a.tga", false);
  return 0;
}
