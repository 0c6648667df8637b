// SPDX-License-Identifier: MIT
// Reads and writes `filetypes.txt`.
#include "model/file_types.h"

#include "platform/text.h"
#include "platform/whole_file.h"

namespace requite {

std::vector<std::string> ReadFileTypes(const ProgramFolder& folder) {
  const std::string text = ReadFile(folder.File(kFileTypesName));
  LineReader lines(text, LineEnds::Any);
  std::string joined;
  bool first = true;
  while (const auto line = lines.Next()) {
    if (IsEmptyOrBlank(*line)) continue;
    if (!first) joined += '|';
    first = false;
    joined += *line;
  }
  if (joined.ends_with('|')) joined.pop_back();
  return Split(joined, "|");
}

std::vector<std::string> ListFileTypes(const ProgramFolder& folder) {
  std::vector<std::string> listed;
  const std::string path = folder.File(kFileTypesName);
  if (!FileExists(path)) return listed;
  const std::string text = ReadFile(path);
  LineReader lines(text, LineEnds::Any);
  while (const auto line = lines.Next()) {
    if (!IsEmptyOrBlank(*line)) listed.emplace_back(*line);
  }
  return listed;
}

void SaveFileTypes(const ProgramFolder& folder, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(kLineEnd);
  WriteWhole(folder.File(kFileTypesName), text, Flush::Yes);
}

}  // namespace requite
