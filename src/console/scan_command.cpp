// SPDX-License-Identifier: MIT
// The steps of `requite-console scan`.
#include "console/scan_command.h"

#include <ostream>

#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "results/report.h"
#include "results/saved_files.h"

namespace requite {
namespace {

constexpr int kNoLimit = -1;

/// Message boxes go to standard error: nobody is there to press their button.
class BoxPrinter {
 public:
  BoxPrinter(ConsoleProgram& program, ScanProgress& progress) : program_(program) {
    program_.Dialogs.OnShown = [this, &progress](const ConsoleDialogs::Shown& box) {
      progress.Finish();
      program_.Err << "requite-console: " << program_.Outside(box.Text) << std::endl;
      ++shown_;
    };
  }
  ~BoxPrinter() { program_.Dialogs.OnShown = nullptr; }
  BoxPrinter(const BoxPrinter&) = delete;
  BoxPrinter& operator=(const BoxPrinter&) = delete;

  [[nodiscard]] bool AnyShown() const { return shown_ > 0; }

 private:
  ConsoleProgram& program_;
  int shown_ = 0;
};

void Load(ConsoleProgram& program, const ScanOptions& options) {
  Form1& form = program.Form1;
  form.StartWithoutProject();
  form.Files.LoadProject(options.Project);
  // A load that comes to the end of the file selects the first Main Site.
  if (form.Sites.List4.SelectedRow() >= 0 || form.Sites.List4.Empty()) return;
  program.Err << "requite-console: \"" << options.Project
              << "\" could be read in part only: what follows the first line that cannot be read is missing"
              << std::endl;
}

void Stop(Form1& form) {
  if (form.State.Scanning) form.cmdStop.Click();
}

void PrintResults(ConsoleProgram& program) {
  const RecordList<LinkResult>& results = program.Form1.Sites.List3;
  std::vector<std::string> captions;
  for (std::size_t column = 0; column < results.ColumnCount(); ++column) {
    captions.emplace_back(results.Caption(column));
  }
  program.PrintLine(captions);
  for (std::size_t row = 0; row < results.RowCount(); ++row) program.PrintLine(RowFields(results, row));
}

/// Runs one step that writes a file; tells a failure and returns false.
bool Write(ConsoleProgram& program, const std::string& path, const std::function<void()>& step) {
  if (path.empty()) return true;
  try {
    step();
    return true;
  } catch (const RuntimeFailure& failure) {
    program.Err << "requite-console: \"" << path << "\": " << failure.Description << std::endl;
    return false;
  }
}

bool WriteFilesAskedFor(ConsoleProgram& program, const ScanOptions& options) {
  Form1& form = program.Form1;
  const bool saved = Write(program, options.Save, [&] { form.Files.SaveProject(options.Save); });
  const bool reported = Write(program, options.Report,
                              [&] { WriteFile(options.Report, ReadFile(form.Folder.File(kReportFile))); });
  const bool listed =
      Write(program, options.Tab, [&] { WriteFile(options.Tab, TabDelimitedText(form.Sites.List3)); });
  // Behind the save: generated links are not part of the project unless the user wants them to be.
  const bool built = Write(program, options.Page, [&] {
    form.Pages.GenerateLinks();
    WriteFile(options.Page, form.Pages.WebPage());
  });
  return saved && reported && listed && built;
}

/// An interrupt ends it before the next request.
void Post(Form1& form, Interrupt& interrupt) {
  if (interrupt.Seen) return;
  interrupt.OnInterrupt = [&form] {
    form.Post.Stop();
    form.Platform.Internet.Abort();
  };
  form.Post.PostLinks();
  interrupt.OnInterrupt = nullptr;
}

}  // namespace

ExitStatus RunScan(ConsoleProgram& program, const ScanOptions& options, ScanProgress::Output output,
                   Interrupt& interrupt) {
  Form1& form = program.Form1;
  Load(program, options);
  ScanProgress progress(program, output);
  const BoxPrinter boxes(program, progress);
  interrupt.OnInterrupt = [&form] { Stop(form); };

  form.Command1.Click();
  const bool refused = !form.State.Scanning && boxes.AnyShown();
  if (interrupt.Seen) Stop(form);  // it may have come before there was anything to stop
  // A message in mid-scan leaves the scan standing still until Stop is pressed.
  program.Loop.RunUntil([&] { return !form.State.Scanning || boxes.AnyShown(); }, kNoLimit);
  const bool stoodStill = form.State.Scanning;
  Stop(form);
  interrupt.OnInterrupt = nullptr;
  progress.Finish();
  if (refused) return ExitStatus::Refused;

  PrintResults(program);
  const bool written = WriteFilesAskedFor(program, options);
  if (options.Post) Post(form, interrupt);
  if (interrupt.Seen) return ExitStatus::Interrupted;
  if (!written) return ExitStatus::Refused;
  return progress.AllLinkBack() && !stoodStill ? ExitStatus::Done : ExitStatus::LinksMissing;
}

}  // namespace requite
