// SPDX-License-Identifier: MIT
// What waits, and when it is written.
#include "scan/work_file_writer.h"

#include <utility>

#include "scan/work_files.h"

namespace requite {

WorkFileWriter::WorkFileWriter(ScanContext& scan) : scan_(scan) {
  scan_.Platform.EventLoop.Late().Add(this, [this] { WriteWaiting(); });
}

WorkFileWriter::~WorkFileWriter() {
  WriteWaiting();
  scan_.Platform.EventLoop.Late().Remove(this);
}

bool WorkFileWriter::Put(File file, const Text& text) {
  const bool isFirstPage = !scan_.State.WorkFilesBegun;
  const bool isOneSlice = text->size() <= scan_.PageSlices().Bytes;
  if (!isFirstPage && isOneSlice && scan_.Platform.EventLoop.Late().MayWait()) {
    waiting_[static_cast<std::size_t>(file)] = text;
    return true;
  }
  WriteWaiting();  // or it would replace this text
  return Write(file, *text);
}

void WorkFileWriter::WriteWaiting() {
  bool written = true;
  for (const File file : {File::Page, File::FlatPage}) {
    const Text text = std::exchange(waiting_[static_cast<std::size_t>(file)], nullptr);
    if (text) written = Write(file, *text) && written;
  }
  if (!written) TellUnwritten();
}

bool WorkFileWriter::Write(File file, const std::string& text) const {
  if (file == File::Page) return WritePageFile(PageFile(scan_.Work, kConnection), text, scan_.PageSlices());
  return WriteFlatPageFile(FlatPageFile(scan_.Work, kConnection), text, scan_.PageSlices());
}

void WorkFileWriter::TellUnwritten() {
  if (!std::exchange(scan_.State.WorkFilesUnwritten, true)) scan_.Host.TellWorkFilesUnwritten();
}

}  // namespace requite
