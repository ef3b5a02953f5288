#include "base/paths.h"
#include "formats/clsICO.h"
#include "formats/picture_readers.h"

namespace ruvo::readers {
namespace {

void refuse(ReadPicture& read, imaging::LoadError error, const char* words) {
  read.error = error;
  read.words = words;
}

// Icons and cursors differ in the words of the refusal only: both classes of file are told by their header.
ReadPicture readAny(const std::filesystem::path& file, const ReadRequest& request, const char* invalid) {
  using enum imaging::LoadError;
  ReadPicture read;
  if (!fileExists(file)) {
    read.error = Missing;
    return read;
  }
  clsICO icon;
  if (!icon.OpenICO(file)) {
    read.width = icon.refusedSize().width;
    read.height = icon.refusedSize().height;
    const bool forItsSize = !icon.refusedSize().empty();
    refuse(read, forItsSize ? TooLarge : Broken, forItsSize ? "" : invalid);
    return read;
  }
  read.severalFrames = icon.IconCount() > 1;
  int index = icon.firstReadable();
  if (*read.severalFrames && request.chooseImage) index = request.chooseImage(icon);
  if (index < 0) {
    read.cancelled = true;
    return read;
  }
  read.width = icon.IconWidth(index);
  read.height = icon.IconHeight(index);
  read.fileDepth = icon.IconBPP(index);
  if (icon.DIBXOR(index).empty()) {
    refuse(read, Broken, invalid);
  } else if (request.keepAlpha) {
    read.dib = icon.withAlpha(index);
  } else if (read.dib.CreateBlankDIB(read.width, read.height, 32, kWhite)) {
    icon.DrawIcon_To_DIB(index, read.dib, 0, 0);
  }
  clsDIB::CloneDIB(icon.DIBAND(index), read.mask, kWhite, false);
  if (!read && read.error == None) read.error = NoMemory;
  return read;
}

}  // namespace

ReadPicture icon(const std::filesystem::path& file, const ReadRequest& request) {
  return readAny(file, request, clsICO::kInvalidIcon);
}

ReadPicture cursor(const std::filesystem::path& file, const ReadRequest& request) {
  return readAny(file, request, clsICO::kInvalidCursor);
}

}  // namespace ruvo::readers
