// SPDX-License-Identifier: MIT
// The steps of `changes` and `history`.
#include "console/history_commands.h"

#include <ostream>

#include "console/change_output.h"
#include "history/acknowledge.h"
#include "history/store_scan.h"
#include "model/project_reader.h"
#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr const char* kNoScan =
    "no scan of this project is recorded: run scan with --history, or switch the history on with "
    "--set chkHistory=1";

ExitStatus Complain(const HistoryConsole& console, const std::string& utf8) {
  console.Err << "requite-console: " << VisibleUtf8(utf8) << std::endl;
  return ExitStatus::Refused;
}

bool HasFile(const HistoryConsole& console) { return FileExists(console.Folder.File(kHistoryFile)); }

std::vector<ProjectSite> SitesOfFile(const std::string& path) {
  Project project;
  project.CurrentMainSite = 1;  // as when a project is loaded
  ReadProjectText(ReadFile(path), project);
  return SitesOf(project);
}

void Print(const Table& table, bool aligned, const HistoryConsole& console) {
  (aligned ? PrintAligned : PrintTabbed)(table, console.Codec, console.Out);
}

ExitStatus Mark(const ChangesOptions& options, const HistoryConsole& console) {
  const bool takesBack = options.Acknowledge.empty();
  const std::string name = takesBack ? options.TakeBack : options.Acknowledge.front();
  HistoryFile history(console.Folder, SqliteStore::Open::ToWrite);
  const std::vector<SiteRecord> sites = SitesNamed(history, options.Project, console.Codec.FromUtf8(name));
  if (sites.empty()) return Complain(console, "no recorded site of this project is \"" + name + "\"");
  bool any = false;
  for (const SiteRecord& site : sites) {
    if (takesBack) {
      TakeBackAcknowledged(history, site.Row);
    } else if (FallsShort(site)) {
      Acknowledge(history, options.Project, site, console.Codec.FromUtf8(options.Acknowledge.back()),
                  console.Now);
    } else {
      continue;
    }
    any = true;
  }
  if (any) return ExitStatus::Done;
  return Complain(console, "\"" + name + "\" links back as expected: there is nothing to acknowledge");
}

ExitStatus PrintChanges(const ChangesOptions& options, const HistoryConsole& console) {
  HistoryFile history(console.Folder, SqliteStore::Open::ToRead);
  const ChangeList list = ReadChanges(history, options.Project, SitesOfFile(options.Project), options.Wanted);
  if (!list.Scan) return Complain(console, kNoScan);
  if (options.Format == ChangesFormat::Json) {
    PrintJson(list, console.Codec, console.Out);
  } else {
    const bool byDefault = options.Format == ChangesFormat::Default && console.OutIsTerminal;
    Print(ChangeTable(list), byDefault || options.Format == ChangesFormat::Text, console);
  }
  return list.Counts.AnyLost() ? ExitStatus::LinksMissing : ExitStatus::Done;
}

template <class Steps>
ExitStatus Told(const HistoryConsole& console, Steps&& steps) {
  try {
    return steps();
  } catch (const RuntimeFailure& failure) {
    return Complain(console, console.Codec.ToUtf8(failure.Description));
  }
}

}  // namespace

ExitStatus RunChanges(const ChangesOptions& options, const HistoryConsole& console) {
  if (!HasFile(console)) return Complain(console, kNoScan);
  const bool marks = !options.Acknowledge.empty() || !options.TakeBack.empty();
  return Told(console, [&] { return marks ? Mark(options, console) : PrintChanges(options, console); });
}

ExitStatus RunHistory(const HistoryOptions& options, const HistoryConsole& console) {
  return Told(console, [&] {
    std::vector<ScanRecord> scans;
    if (HasFile(console)) {
      const auto use = options.Prune ? SqliteStore::Open::ToWrite : SqliteStore::Open::ToRead;
      HistoryFile history(console.Folder, use);
      if (options.Prune) PruneScans(history, options.Project, console.Now);
      scans = history.Scans(options.Project);
    }
    Print(ScanTable(scans), console.OutIsTerminal, console);
    return ExitStatus::Done;
  });
}

}  // namespace requite
