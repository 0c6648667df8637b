// SPDX-License-Identifier: MIT
// The program's text files: 8-bit bytes, lines that end in CR LF, replaced by deleting and writing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace requite {

/// The folder that all fixed file names are appended to. Does not end in a separator.
struct ProgramFolder {
  std::string Path;

  /// The full path of a file in the folder, such as "filetypes.txt" or "sounds/finished.wav".
  [[nodiscard]] std::string File(std::string_view name) const;
};

/// Which bytes end a line. Page files and project files do not end a line at a lone LF;
/// files that people edit by hand do.
enum class LineEnds { CarriageReturn, Any };

/// Takes a text apart into lines. The text must outlive the reader. A line end at the very end of
/// the text is not followed by another line.
class LineReader {
 public:
  LineReader(std::string_view text, LineEnds ends) : rest_(text), ends_(ends) {}

  /// The next line without its end, or nothing after the last one.
  [[nodiscard]] std::optional<std::string_view> Next();
  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

 private:
  [[nodiscard]] std::size_t EndOfLine();

  std::string_view rest_;
  LineEnds ends_;
  const char* lineFeed_ = nullptr;  ///< the next LF or the text's end, found once and kept until passed
};

/// Throw RuntimeFailure with the classic number of what the file system refused: PathFileAccess for
/// anything but a normal file (a pipe, a device, a folder), OutOfMemory for a file of 2 GiB or more.
[[nodiscard]] std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, std::string_view text);
/// WriteFile for a file that is written again and again: the old bytes are overwritten and the rest is
/// cut off. Emptying the file first would take some file systems milliseconds.
/// After a failure the file may hold new text followed by old.
void OverwriteFile(const std::string& path, std::string_view text);
/// Adds the text whole or not at all: after a failure the file has its old length, and a file that
/// was empty or missing before does not exist.
void AppendToFile(const std::string& path, std::string_view text);
void DeleteFile(const std::string& path);

/// Writes the whole text to an open file; `path` is named in a failure.
void WriteBytes(int descriptor, const std::string& path, std::string_view text);
/// Throws the classic failure for an error number of the system.
[[noreturn]] void ThrowFileFailure(const std::string& path, int error);

/// True for anything but a folder. Never fails.
[[nodiscard]] bool FileExists(const std::string& path);

/// True for a normal file at exactly that path: not for a folder, a hidden file or a pattern. Never fails.
[[nodiscard]] bool xfileExists(const std::string& path);

/// The text after the last path separator; a text without one is its own result.
[[nodiscard]] std::string FileNameOfPath(std::string_view path);

}  // namespace requite
