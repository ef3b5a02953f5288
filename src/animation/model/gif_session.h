// One animated GIF that is being edited: the model, where it came from, which work is unsaved, and the backup on disk
// that a panel's Undo goes back to. The windows show it.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "animation/model/palette_edit.h"
#include "formats/clsGIF.h"

namespace ruvo {

// Whose changes are not saved yet.
enum class SessionWork { Minimise = 0, Settings = 1, Series = 2, Resize = 3 };

inline constexpr const char* kTextBackupFailed = "Failed to save backup for undo; operation cancelled.";
inline constexpr const char* kTextUnsavedAnimation = "You have not saved changes yet.  Proceed still?";
inline constexpr const char* kTextNoAnimation = "There is no animated GIF yet.";

// The frame that goes back to the paint side, in the temp folder.
inline constexpr const char* kSelectedFrameFile = "tmpSelFrame.gif";

class GifSession {
 public:
  explicit GifSession(std::filesystem::path tempFolder) : temp_(std::move(tempFolder)) {}
  ~GifSession();  // removes what it wrote itself to the temp folder
  GifSession(const GifSession&) = delete;
  GifSession& operator=(const GifSession&) = delete;

  clsGIF& gif() { return gif_; }
  const clsGIF& gif() const { return gif_; }
  bool hasFrames() const { return gif_.FramesCount() > 0; }
  // A file of the session in the temp folder.
  std::filesystem::path tempFile(const char* name) const { return temp_ / name; }

  // --- Files. Each answers empty when done, else why not, in the program's words; the session is then as it was.
  // The backup goes and no work is unsaved. atStart chooses the words of a session that begins with this file.
  std::string open(const std::filesystem::path& file, bool atStart = false);
  // What a dialog left there: the model changes; path, title, first size and flags stay.
  std::string reload(const std::filesystem::path& file);
  // All frames with the comment; then path, title and first size are those of the file, which was read again, and no
  // work is unsaved.
  std::string save(const std::filesystem::path& file);
  // All frames with the comment, into any file; nothing of the session changes.
  bool writeCopy(const std::filesystem::path& file) const;
  // The animation and a page that shows it, in the temp folder. The page is browserPageFile().
  std::string writeBrowserPage();
  std::filesystem::path browserPageFile() const;

  const std::filesystem::path& path() const { return path_; }  // empty until opened or saved
  std::string title() const;                                   // of the file without extension, or "Untitled"
  std::string proposedName() const;                            // of a save: title + "_X.gif"
  std::int64_t firstFileSize() const { return firstSize_; }
  // Bytes that a save would have now; 0 when that can not be told.
  std::int64_t measure(bool withComment = true) const;

  // --- Unsaved work
  bool unsaved() const;
  bool unsaved(SessionWork work) const { return unsaved_[static_cast<std::size_t>(work)]; }
  void setUnsaved(SessionWork work, bool unsaved = true) { unsaved_[static_cast<std::size_t>(work)] = unsaved; }

  // --- Backup ("tmpRestore.tmp"). One level; the flags of unsaved work go back with it.
  // False leaves no backup.
  bool saveRestoreFile();
  // Words when the file is missing or can not be read; the session is then as it was.
  std::string restore();
  void dropRestoreFile();

  // Originals of brightened and darkened palettes; dropped when another model takes the place of this one.
  SavedPalettes& savedPalettes() { return savedPalettes_; }

 private:
  void take(clsGIF&& gif);

  std::filesystem::path temp_;
  std::filesystem::path path_;
  std::int64_t firstSize_ = 0;
  clsGIF gif_;
  std::array<bool, 4> unsaved_{};
  std::array<bool, 4> unsavedAtBackup_{};
  std::string commentAtBackup_;  // files keep only a part of the characters
  bool hasBackup_ = false;
  bool hasBrowserPage_ = false;
  SavedPalettes savedPalettes_;
};

}  // namespace ruvo
