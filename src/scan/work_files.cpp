// SPDX-License-Identifier: MIT
// A page is written twice, so these are among the larger costs of a small page: the files are opened
// once each, and the old text is written over.
#include "scan/work_files.h"

#include <algorithm>
#include <utility>

#include "platform/runtime_failure.h"

namespace requite {

std::string PageFile(const ProgramFolder& folder, std::int16_t connection) {
  return folder.File("html" + std::to_string(connection) + ".txt");
}

std::string FlatPageFile(const ProgramFolder& folder, std::int16_t connection) {
  return folder.File("html2" + std::to_string(connection) + ".txt");
}

std::string WithoutLineEnds(std::string_view text, std::string buffer) {
  std::string flat = std::move(buffer);
  flat.resize(text.size());
  char* filled = flat.data();
  const auto next = [text](char end, std::size_t from) {
    return std::min(text.find(end, from), text.size());
  };
  std::size_t carriageReturn = next('\r', 0);
  std::size_t lineFeed = next('\n', 0);
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(carriageReturn, lineFeed);
    filled = std::copy(text.begin() + begin, text.begin() + end, filled);
    begin = end + 1;
    if (end == carriageReturn) carriageReturn = next('\r', begin);
    if (end == lineFeed) lineFeed = next('\n', begin);
  }
  flat.resize(static_cast<std::size_t>(filled - flat.data()));
  return flat;
}

void ReplaceFile(const std::string& path, std::string_view text) {
  if (PassOver([&] { OverwriteFile(path, text); })) return;
  PassOver([&] { DeleteFile(path); });
  WriteFile(path, text);
}

}  // namespace requite
