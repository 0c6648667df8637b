// SPDX-License-Identifier: MIT
// The steps of `requite-console scan`.
#include "console/scan_command.h"

#include <ostream>

#include "console/outcome_collector.h"
#include "console/scan_files.h"
#include "console/scan_limits.h"
#include "model/project_reader.h"
#include "platform/files.h"
#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr int kNoLimit = -1;

/// Sends message boxes and notices to standard error: nobody is there to press a button.
class BoxPrinter {
 public:
  BoxPrinter(ConsoleProgram& program, ScanProgress& progress) : program_(program) {
    program_.Dialogs.OnShown = [this, &progress](const ConsoleDialogs::Shown& box) {
      progress.Clear();
      program_.Complain(program_.Outside(box.Text));
      ++shown_;
      if (!program_.Form1.State.Scanning) ++shownAtStop_;
    };
    program_.Form1.OnNotice = [this, &progress](std::string_view text) {
      progress.Clear();
      program_.Complain(program_.Outside(text));
    };
  }
  ~BoxPrinter() {
    program_.Dialogs.OnShown = nullptr;
    program_.Form1.OnNotice = nullptr;
  }
  BoxPrinter(const BoxPrinter&) = delete;
  BoxPrinter& operator=(const BoxPrinter&) = delete;

  [[nodiscard]] bool AnyShown() const { return shown_ > 0; }
  /// Whether stopping itself said something, such as that a report could not be written.
  [[nodiscard]] bool AnyShownAtStop() const { return shownAtStop_ > 0; }

 private:
  ConsoleProgram& program_;
  int shown_ = 0;
  int shownAtStop_ = 0;
};

std::size_t LineThatEndsReading(const std::string& path) {
  std::size_t line = 0;
  PassOver([&] {
    Project unused;
    ReadProjectText(ReadFile(path), unused, &line);
  });
  return line;
}

void Load(ConsoleProgram& program, const ScanOptions& options) {
  Form1& form = program.Form1;
  form.StartWithoutProject();
  form.Files.LoadProject(options.Project);
  // Loading a project to the end of its file selects the first Main Site.
  if (form.Sites.List4.SelectedRow() >= 0 || form.Sites.List4.Empty()) return;
  program.Complain("\"" + options.Project + "\" is damaged: line " +
                   std::to_string(LineThatEndsReading(options.Project)) +
                   " cannot be read, and nothing after it was loaded");
}

void Stop(Form1& form) {
  if (form.State.Scanning) form.cmdStop.Click();
}

std::string LinesOfRows(ConsoleProgram& program) {
  const RecordList<LinkResult>& results = program.Form1.Sites.List3;
  std::vector<std::string> captions;
  for (std::size_t column = 0; column < results.ColumnCount(); ++column) {
    captions.emplace_back(results.Caption(column));
  }
  std::string lines = program.Line(captions);
  for (std::size_t row = 0; row < results.RowCount(); ++row) lines += program.Line(RowFields(results, row));
  return lines;
}

/// Writes the result rows in the form and to the place asked for. Returns false when that failed.
bool WriteRows(ConsoleProgram& program, const ScanOptions& options, ScanFiles& files,
               OutcomeCollector& collector, bool complete) {
  if (options.Output.empty()) {
    if (!files.TakeOutput()) program.Out << LinesOfRows(program) << std::flush;
    return true;
  }
  return files.WriteRows([&] {
    if (options.Format == ResultFormat::Tsv) return LinesOfRows(program);
    const ScanOutcome outcome = collector.Take(options.Project, complete);
    if (options.Format == ResultFormat::Csv) return CsvOfOutcome(outcome);
    return options.Format == ResultFormat::Json ? JsonOfOutcome(outcome) : JUnitOfOutcome(outcome);
  });
}

/// Posts the rows and prints how many got an answer. An interrupt ends it at once. Returns false when a
/// request got no answer.
bool Post(ConsoleProgram& program, ScanProgress::Output output, Interrupt& interrupt) {
  if (interrupt.Seen) return true;
  Form1& form = program.Form1;
  interrupt.OnInterrupt = [&form] { form.Post.Stop(); };
  const int rows = form.Post.RowsToPost();
  int answered = 0;
  int unanswered = 0;
  form.Post.OnPosted = [&](const std::string& site, const std::string& url, bool hasAnswer) {
    ++(hasAnswer ? answered : unanswered);
    if (!hasAnswer) program.Complain("no answer for " + program.Outside(site) + ": " + program.Outside(url));
  };
  form.Post.PostLinks();
  form.Post.OnPosted = nullptr;
  interrupt.OnInterrupt = nullptr;
  if (output != ScanProgress::Output::None) {
    program.Err << "Posted " << answered << " of " << rows;
    if (unanswered > 0) program.Err << ", " << unanswered << " got no answer";
    program.Err << std::endl;
  }
  return unanswered == 0;
}

}  // namespace

ExitStatus RunScan(ConsoleProgram& program, const ScanOptions& options, ScanProgress::Output output,
                   Interrupt& interrupt) {
  Form1& form = program.Form1;
  Load(program, options);
  ScanProgress progress(program, output);
  const BoxPrinter boxes(program, progress);
  OutcomeCollector collector(program);
  ScanFiles files(program, options);
  const ScanLimits limits(program, options);
  interrupt.OnInterrupt = [&form] { Stop(form); };

  form.Command1.Click();
  const bool refused = !form.State.Scanning && boxes.AnyShown() && progress.SitesFinished() == 0;
  if (interrupt.Seen) Stop(form);  // an interrupt may come before the scan has begun
  // The scan waits for a user after a message, and when a page could not be read. While a page is in
  // progress its time-out runs, and no step is half done between two events.
  const auto inProgress = [&] { return form.State.Scanning && program.PageInProgress(); };
  program.Loop.RunUntil([&] { return !inProgress() || boxes.AnyShown(); }, kNoLimit);
  const bool stoodStill = form.State.Scanning;
  const bool halted = stoodStill && !boxes.AnyShown();
  if (halted) {
    progress.Clear();
    program.Complain("the scan came to a halt at " + program.Outside(form.State.CurrentLinkingUrl) +
                     ": its page could not be read");
  }
  Stop(form);
  interrupt.OnInterrupt = nullptr;
  progress.Clear();
  if (limits.Stopped()) {
    program.Complain("stopped after " + std::to_string(options.StopAfter) +
                     (options.StopAfter == 1 ? " second" : " seconds"));
  }
  if (refused) return ExitStatus::Refused;

  const bool complete = !stoodStill && !interrupt.Seen && !limits.Stopped();
  const bool listed = WriteRows(program, options, files, collector, complete);
  const bool written = files.Write() && listed;
  const bool answered = !options.Post || Post(program, output, interrupt);
  progress.Summarise();
  if (form.Changed && output != ScanProgress::Output::None) program.Err << form.Changed->Words() << std::endl;
  if (interrupt.Seen) return ExitStatus::Interrupted;
  if (!written || halted || boxes.AnyShownAtStop()) return ExitStatus::Refused;
  if (!answered) return ExitStatus::PostFailed;
  return progress.AllLinkBack() && complete ? ExitStatus::Done : ExitStatus::LinksMissing;
}

}  // namespace requite
