// SPDX-License-Identifier: MIT
// Reads `filetypes.txt`.
#include "model/file_types.h"

#include "platform/text.h"

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

}  // namespace requite
