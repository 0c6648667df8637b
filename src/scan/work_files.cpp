// SPDX-License-Identifier: MIT
// For a small page, writing it twice is much of the work. So each file is opened once, and its old text is
// written over.
#include "scan/work_files.h"

#include <algorithm>

#include "platform/piece_file.h"
#include "platform/text.h"

namespace requite {
namespace {

/// Calls `write` for each slice of the text, until it returns false or the scan is stopped.
template <class Write>
void ForEachSlice(std::string_view text, const Slices& slices, Write&& write) {
  while (write(text.substr(0, slices.Bytes)) && text.size() > slices.Bytes) {
    if (!slices.GoOn()) return;
    text.remove_prefix(slices.Bytes);
  }
}

}  // namespace

std::string PageFile(const WorkFolder& folder, std::int16_t connection) {
  return folder.File("html" + std::to_string(connection) + ".txt");
}

std::string FlatPageFile(const WorkFolder& folder, std::int16_t connection) {
  return folder.File("html2" + std::to_string(connection) + ".txt");
}

void AppendWithoutLineEnds(std::string& flat, std::string_view text) {
  const auto next = [text](char end, std::size_t from) {
    return std::min(text.find(end, from), text.size());
  };
  std::size_t carriageReturn = next('\r', 0);
  std::size_t lineFeed = next('\n', 0);
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(carriageReturn, lineFeed);
    flat.append(text, begin, end - begin);
    begin = end + 1;
    if (end == carriageReturn) carriageReturn = next('\r', begin);
    if (end == lineFeed) lineFeed = next('\n', begin);
  }
}

bool WritePageFile(const std::string& path, std::string_view text, const Slices& slices) {
  PieceFile file(path);
  ForEachSlice(text, slices, [&](std::string_view slice) { return file.Write(slice); });
  return file.Finish();
}

bool WriteFlatPageFile(const std::string& path, std::string_view text, const Slices& slices) {
  PieceFile file(path);
  std::string flat;
  flat.reserve(std::min(text.size(), slices.Bytes) + kLineEnd.size());
  ForEachSlice(text, slices, [&](std::string_view slice) {
    flat.clear();
    AppendWithoutLineEnds(flat, slice);
    if (slice.end() == text.end()) flat.append(kLineEnd);
    return file.Write(flat);
  });
  return file.Finish();
}

}  // namespace requite
