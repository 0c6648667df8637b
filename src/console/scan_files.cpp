// SPDX-License-Identifier: MIT
// Writes the files with the same bytes that the buttons of the window write.
#include "console/scan_files.h"

#include <filesystem>
#include <ostream>

#include "model/project_text.h"
#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "results/saved_files.h"

namespace requite {
namespace {

using TakePiece = ScanFiles::TakePiece;
using Pieces = ScanFiles::Pieces;

std::string Joined(const Pieces& pieces) {
  std::string text;
  pieces([&text](std::string_view piece) { text.append(piece); });
  return text;
}

/// Keeps the old text until the new one is complete. Writes in place, at one go, where that is all that
/// can be done: to a pipe, a device, or a file in a folder that is not the user's.
void PutFile(const std::string& path, const Pieces& pieces) {
  std::error_code none;
  const auto status = std::filesystem::status(path, none);
  if (exists(status) && !is_regular_file(status)) return WriteFile(path, Joined(pieces));
  try {
    WholeFile file(path);
    pieces([&file](std::string_view piece) { file.Write(piece); });
    file.PutInPlace(Flush::No);
  } catch (const RuntimeFailure& failure) {
    if (failure.Number != static_cast<int>(Failure::PermissionDenied)) throw;
    WriteFile(path, Joined(pieces));
  }
}

}  // namespace

ScanFiles::ScanFiles(ConsoleProgram& program, const ScanOptions& options)
    : program_(program), options_(options) {
  // Takes the text itself: another program may have overwritten the report file.
  program_.Form1.Report.OnGenerated = [this](const SpooledText& page) {
    generated_ = true;
    reported_ = WriteOne(options_.Report, [&] {
      PutPieces(options_.Report, [&page](const TakePiece& take) { page.ForEachPiece(take); });
    });
  };
}

ScanFiles::~ScanFiles() { program_.Form1.Report.OnGenerated = nullptr; }

bool ScanFiles::WriteRows(const std::function<std::string()>& utf8) {
  return WriteOne(options_.Output, [&] {
    const std::string text = utf8();
    if (options_.Output != kStandardStream) {
      return PutFile(options_.Output, [&text](const TakePiece& take) { take(text); });
    }
    program_.Out << text << std::flush;  // has no control characters, which a terminal might obey
  });
}

bool ScanFiles::TakeOutput() const {
  for (const std::string* path : {&options_.Save, &options_.Report, &options_.Tab, &options_.Page}) {
    if (*path == kStandardStream) return true;
  }
  return false;
}

bool ScanFiles::Write() {
  Form1& form = program_.Form1;
  if (!generated_ && !options_.Report.empty()) program_.Complain("there is no report to write");
  const bool saved = WriteOne(options_.Save, [&] {
    if (options_.Save == kStandardStream) {
      Put(options_.Save, ProjectText(form.Sites) + std::string(kLineEnd));
    } else {
      form.Files.SaveProject(options_.Save);
    }
  });
  const bool listed = WriteOne(options_.Tab, [&] { Put(options_.Tab, TabDelimitedText(form.Sites.List3)); });
  // After saving: generated links become part of the project only when the user says so.
  const bool built = WriteOne(options_.Page, [&] {
    form.Pages.GenerateLinks();
    Put(options_.Page, form.Pages.WebPage());
  });
  return saved && listed && built && (reported_ || options_.Report.empty());
}

bool ScanFiles::WriteOne(const std::string& path, const std::function<void()>& step) {
  if (path.empty()) return true;
  try {
    step();
    return true;
  } catch (const RuntimeFailure& failure) {
    program_.Complain("\"" + path + "\": " + failure.Description);
    return false;
  }
}

void ScanFiles::Put(const std::string& path, const std::string& text) {
  PutPieces(path, [&text](const TakePiece& take) { take(text); });
}

void ScanFiles::PutPieces(const std::string& path, const Pieces& pieces) {
  if (path != kStandardStream) return PutFile(path, pieces);
  pieces([this](std::string_view piece) {
    if (program_.OutIsTerminal) {
      program_.Out << program_.Codec.ToUtf8(Visible(piece));
    } else {
      program_.Out << piece;
    }
  });
  program_.Out << std::flush;
}

}  // namespace requite
