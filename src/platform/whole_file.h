// SPDX-License-Identifier: MIT
// Files that are replaced whole or not at all, and the copy of an old project in the folder "Backup".
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

struct stat;

namespace requite {

/// Whether a call returns only when the disk has the text, so that a power cut cannot take it back. A
/// file that is not flushed is still whole or absent after the end of the process by any signal.
enum class Flush { No, Yes };

/// The new text of a file, in a temporary file beside it until PutInPlace. The destructor removes a
/// temporary file that was not put in place; one of a killed process stays, hidden, under a name that
/// begins with ".requite-".
///
/// A symbolic link is followed, also one to a file that is not there yet, and stays a link. An old
/// file's mode is kept, and its owner where the user may give files away; a new file gets the usual
/// mode. Only a normal file is ever replaced, never a folder, a pipe or a device.
///
/// All calls throw RuntimeFailure when the file system refuses.
class WholeFile {
 public:
  /// Looks at the file at `path` and changes nothing. Throws PathFileAccess when it is not a normal file.
  explicit WholeFile(const std::string& path);
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  /// Whether there was a file to replace at construction.
  [[nodiscard]] bool Replaces() const { return replaces_; }
  /// The path once all links are followed.
  [[nodiscard]] const std::string& Target() const { return target_; }

  /// Adds text at the end. The first call makes the temporary file.
  void Write(std::string_view text);
  /// Takes the bytes and the mode of another file, instead of calls of Write. Reads it in bounded pieces.
  void CopyFrom(const std::string& path);
  /// Waits until the disk has the text that was written.
  void FlushText();
  /// Replaces the file in one step: at each moment the name has the old text or the new.
  /// With Flush::Yes the text and the new name are on the disk on return; a failure to flush the name
  /// is thrown although the new text is in place.
  void PutInPlace(Flush flush);

 private:
  struct Rights {
    unsigned Mode = 0;
    unsigned Owner = 0;
    unsigned Group = 0;
  };

  [[nodiscard]] static Rights RightsOf(const struct stat& status);
  void Open();
  void TakeOverRights() const;
  void Close();

  std::string target_;
  std::string temporary_;  ///< empty when nothing is to be removed
  int descriptor_ = -1;
  bool replaces_ = false;
  std::optional<Rights> rights_;  ///< for the temporary file; nothing: the usual ones
};

/// Replaces the file at `path`, or makes it. After a failure the old file is untouched.
void WriteWhole(const std::string& path, std::string_view text, Flush flush);

/// Moves the file at `path` into the folder "Backup" of the program's folder, replacing an older
/// one of that name, and returns when the disk has it. A file that is in "Backup" itself gets ".old"
/// added to its name. Throws RuntimeFailure; the file is then still where it was.
void MoveToBackup(const ProgramFolder& folder, const std::string& path);

/// Replaces a file whose old text must survive whatever happens: it is kept in "Backup". On return the
/// new text is on the disk. After a failure to make or write it there is no file at `path` and the old
/// one is in "Backup"; if it cannot be kept there, it stays in place, untouched. A failure to flush the
/// folders is thrown too, with the new text in place.
void ReplaceKeepingBackup(const ProgramFolder& folder, const std::string& path,
                          const std::function<std::string()>& makeText);

/// Copies a file over any existing target, whole or not at all. Failures are ignored without telling the
/// caller.
void xcopyFile(const std::string& source, const std::string& target);

}  // namespace requite
