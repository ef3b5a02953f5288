// The undo history of one document: whole pictures in files of a folder, nothing in memory. State n lies in the file
// "<tag>00n.m_Temp"; states run from 1 to 11, so there are ten steps back.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace ruvo {

class UndoHistory {
 public:
  static constexpr int kDepth = 11;

  // Writes the picture as it is now to a file, or shows a file's picture. False leaves the picture as it was.
  using FileAction = std::function<bool(const std::filesystem::path& file)>;

  // `tag` begins the names of this document's files: one that another open document has not.
  UndoHistory(std::filesystem::path folder, std::string tag, FileAction save, FileAction load);

  // The number of the state that is shown, 0 before the first; and the last one that Redo can reach.
  int position() const { return position_; }
  int top() const { return top_; }
  bool canUndo() const { return position_ >= 2; }
  bool canRedo() const { return top_ >= 2 && position_ < top_; }
  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path fileOf(int number) const;

  // Deletes all files of this document.
  void reset();
  // Saves the picture as the state after the present one and ends the Redo chain; from 11 states on the oldest goes.
  // False when the file could not be written: the number counts on, so that a step back finds the state before, and no
  // older state is dropped.
  bool push();
  // One step; true when the state was loaded. A state whose file is missing is stepped over without loading (back), or
  // not stepped to (forth).
  bool undo();
  bool redo();
  // Back to the oldest state kept, with no way forth. False when nothing was loaded: there is only one state, its file
  // can not be read (then nothing changes), or it is missing (then the picture as it is becomes that state).
  bool undoAll();

 private:
  void removeFrom(int number);
  void dropOldest();

  std::filesystem::path folder_;
  std::string tag_;
  FileAction save_;
  FileAction load_;
  int position_ = 0;
  int top_ = 0;
};

}  // namespace ruvo
