// SPDX-License-Identifier: MIT
// A page is written twice, so these are among the larger costs of a small page: the files are opened
// once each, and the old text is written over.
#include "scan/work_files.h"

#include "platform/runtime_failure.h"

namespace requite {

std::string PageFile(const ProgramFolder& folder, std::int16_t connection) {
  return folder.File("html" + std::to_string(connection) + ".txt");
}

std::string FlatPageFile(const ProgramFolder& folder, std::int16_t connection) {
  return folder.File("html2" + std::to_string(connection) + ".txt");
}

std::string WithoutLineEnds(std::string_view text) {
  std::string flat;
  flat.reserve(text.size() + 2);
  const auto appendWithout = [&flat](std::string_view line) {
    for (std::size_t end = line.find('\r'); end != std::string_view::npos; end = line.find('\r')) {
      flat.append(line.substr(0, end));
      line.remove_prefix(end + 1);
    }
    flat.append(line);
  };
  for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    appendWithout(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  appendWithout(text);
  return flat;
}

void ReplaceFile(const std::string& path, std::string_view text) {
  if (PassOver([&] { OverwriteFile(path, text); })) return;
  PassOver([&] { DeleteFile(path); });
  WriteFile(path, text);
}

}  // namespace requite
