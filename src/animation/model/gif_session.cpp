#include "animation/model/gif_session.h"

#include <algorithm>
#include <span>
#include <system_error>

#include "animation/model/gif_texts.h"
#include "animation/model/session_limits.h"
#include "base/file_io.h"
#include "base/paths.h"

namespace ruvo {
namespace fs = std::filesystem;

namespace {

constexpr const char* kRestoreFile = "tmpRestore.tmp";
constexpr const char* kBrowserGif = "tmpIEBrsShow.gif";
constexpr const char* kBrowserPage = "tmpAnimateInBrs.htm";

constexpr const char* kNotLoaded = "Not an animated GIF or failed to load this GIF";
constexpr const char* kNotLoadedAtStart = "Not a valid animated GIF or failed to load.";
constexpr const char* kNoFrames = "Not an animated GIF.";
constexpr const char* kRestoreMissing = "Temporary file for restore missing.";
constexpr const char* kNoBrowserFile = "Failed to obtain temp file.";

bool screenAllowed(int width, int height) {
  return width >= 1 && height >= 1 && std::int64_t{width} * height <= kMostScreenPixels;
}

std::string screenRefused(const fs::path& file, int width, int height) {
  return utf8Of(file) + "\nFor animated GIF, incoming size unacceptable at " + std::to_string(width) + " x " +
         std::to_string(height) + ".";
}

// An animation that a session takes; words why not.
std::string load(const fs::path& file, clsGIF& gif, bool atStart = false) {
  const int code = gif.LoadFromGIFFile(file);
  if (code == kGifNoFrame) return kNoFrames;
  // A size that is refused was either the file's, or that of a later frame within a good screen.
  if (code == kGifBadSize && !screenAllowed(gif.statedWidth(), gif.statedHeight())) {
    return screenRefused(file, gif.statedWidth(), gif.statedHeight());
  }
  if (code != kGifOk) {
    const std::string words = atStart ? std::string(kNotLoadedAtStart) + "\n" + utf8Of(file) : kNotLoaded;
    // Such a file is sound: without the reason nobody would know what is wrong with it.
    return code == kGifTooManyFrames ? words + "\n\n" + clsGIF::FlagErrMessage(code) : words;
  }
  if (!screenAllowed(gif.BgdWidth(), gif.BgdHeight())) return screenRefused(file, gif.BgdWidth(), gif.BgdHeight());
  return {};
}

std::int64_t fileSize(const fs::path& file) {
  std::error_code failed;
  const auto size = fs::file_size(file, failed);
  return failed ? 0 : static_cast<std::int64_t>(size);
}

}  // namespace

GifSession::~GifSession() {
  dropRestoreFile();
  if (!hasBrowserPage_) return;
  for (const char* name : {kBrowserGif, kBrowserPage}) deleteIfPossible(tempFile(name));
}

void GifSession::take(clsGIF&& gif) {
  gif_ = std::move(gif);
  savedPalettes_.drop();
}

std::string GifSession::open(const fs::path& file, bool atStart) {
  clsGIF loaded;
  if (std::string words = load(file, loaded, atStart); !words.empty()) return words;
  take(std::move(loaded));
  path_ = file;
  firstSize_ = fileSize(file);
  unsaved_ = {};
  dropRestoreFile();
  return {};
}

std::string GifSession::reload(const fs::path& file) {
  clsGIF loaded;
  std::string words = load(file, loaded);
  if (words.empty()) take(std::move(loaded));
  return words;
}

std::string GifSession::save(const fs::path& file) {
  if (!hasFrames()) return kTextNoAnimation;
  if (!writeCopy(file)) return "Failed to save to " + utf8Of(file);
  // The next save is to write the same comment.
  const std::string comment = gif_.CommentText();
  if (reload(file).empty()) gif_.setCommentText(comment);
  path_ = file;
  firstSize_ = fileSize(file);
  // A backup that is older than the file has its work unsaved again.
  for (std::size_t i = 0; i < unsaved_.size(); ++i) unsavedAtBackup_[i] |= unsaved_[i];
  unsaved_ = {};
  return {};
}

bool GifSession::writeCopy(const fs::path& file) const {
  return hasFrames() && gif_.Save(file, 0, gif_.CommentText());
}

fs::path GifSession::browserPageFile() const {
  return tempFile(kBrowserPage);
}

std::string GifSession::writeBrowserPage() {
  if (!hasFrames()) return kTextNoAnimation;
  std::error_code unknown;
  const fs::path shown = fs::absolute(tempFile(kBrowserGif), unknown);
  hasBrowserPage_ = true;
  if (unknown || !writeCopy(shown)) return kNoBrowserFile;
  const std::string page = browserPage(shown);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(page.data());
  return replaceFile(browserPageFile(), {bytes, page.size()}) ? "" : kNoBrowserFile;
}

std::string GifSession::title() const {
  return path_.empty() ? "Untitled" : utf8Of(path_.stem());
}

std::string GifSession::proposedName() const {
  return title() + "_X.gif";
}

std::int64_t GifSession::measure(bool withComment) const {
  return hasFrames() ? std::ssize(gif_.saveBytes(0, withComment ? gif_.CommentText() : "")) : 0;
}

bool GifSession::unsaved() const {
  return std::ranges::find(unsaved_, true) != unsaved_.end();
}

bool GifSession::saveRestoreFile() {
  dropRestoreFile();
  if (!writeCopy(tempFile(kRestoreFile))) return false;
  hasBackup_ = true;
  unsavedAtBackup_ = unsaved_;
  commentAtBackup_ = gif_.CommentText();
  return true;
}

std::string GifSession::restore() {
  const fs::path file = tempFile(kRestoreFile);
  if (!hasBackup_ || !fileExists(file)) return kRestoreMissing;
  if (std::string words = reload(file); !words.empty()) return words;
  gif_.setCommentText(commentAtBackup_);
  unsaved_ = unsavedAtBackup_;
  return {};
}

void GifSession::dropRestoreFile() {
  if (hasBackup_) deleteIfPossible(tempFile(kRestoreFile));
  hasBackup_ = false;
}

}  // namespace ruvo
