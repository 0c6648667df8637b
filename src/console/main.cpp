// SPDX-License-Identifier: MIT
// Starts requite-console: makes the services and passes them to the program.
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>

#include "console/history_commands.h"
#include "console/import_command.h"
#include "console/options.h"
#include "console/output_buffer.h"
#include "console/path_checks.h"
#include "console/program.h"
#include "console/scan_command.h"
#include "console/script/script_runner.h"
#include "console/settings_command.h"
#include "console/window_program.h"
#include "model/settings.h"
#include "model/visitor.h"
#include "platform/code_page.h"
#include "platform/dialogs_after_late_work.h"
#include "platform/process_start.h"
#include "platform/run_settings.h"
#include "runahead/run_ahead_services.h"
#include "shell/recovery.h"
#include "system/curl_internet.h"
#include "system/event_guard.h"
#include "system/freed_memory.h"
#include "system/locale_module.h"
#include "system/name_resolver.h"
#include "system/page_connection.h"
#include "system/poll_loop.h"
#include "system/program_folder.h"
#include "system/settings_file.h"
#include "system/signal_watch.h"
#include "system/socket_poller.h"

namespace requite {
namespace {

constexpr TextCodec kCodec{ToUtf8, FromUtf8};

class PollConsoleLoop : public ConsoleLoop {
 public:
  PollConsoleLoop(PollLoop& loop, const EventGuard& guard) : loop_(loop), guard_(guard) {}

  bool RunUntil(const std::function<bool()>& done, int milliseconds) override {
    if (milliseconds >= 0) return loop_.RunUntil(done, std::chrono::milliseconds(milliseconds));
    while (!loop_.RunUntil(done, std::chrono::hours(1))) {
    }
    return true;
  }
  void After(int milliseconds, std::function<void()> action) override {
    loop_.StartTimer(std::chrono::milliseconds(milliseconds), false,
                     [this, action = std::move(action)] { guard_.Run(action); });
  }

 private:
  PollLoop& loop_;
  const EventGuard& guard_;
};

int Code(ExitStatus status) { return static_cast<int>(status); }

void PrintReport(const std::vector<ReportLine>& lines) {
  for (const ReportLine& each : lines) {
    std::cerr << "requite-console: " << ToUtf8(each.Words);
    if (!each.Path.empty()) std::cerr << ' ' << each.Path;
    std::cerr << std::endl;
  }
}

ExitStatus RunCommand(const Options& options, DescriptorLoop& descriptors, ConsoleProgram& program) {
  if (const auto* scan = std::get_if<ScanOptions>(&options.Command)) {
    Interrupt interrupt;
    const SignalWatch watch(descriptors, [&interrupt] {
      interrupt.Seen = true;
      if (interrupt.OnInterrupt) interrupt.OnInterrupt();
    });
    const auto shown =
        ::isatty(STDERR_FILENO) != 0 ? ScanProgress::Output::Terminal : ScanProgress::Output::Lines;
    return RunScan(program, *scan, options.Common.Quiet ? ScanProgress::Output::None : shown, interrupt);
  }
  if (const auto* import = std::get_if<ImportOptions>(&options.Command)) {
    return RunImport(program, *import, options.Common.Quiet);
  }
  const std::string& file = std::get<ScriptOptions>(options.Command).File;
  if (file.empty()) return RunScript(program, std::cin);
  std::ifstream script(file, std::ios::binary);
  return RunScript(program, script);
}

SettingsFile::Use UseOfSettings(const CommonOptions& common) {
  return common.Private ? SettingsFile::Use::Copy : SettingsFile::Use::Shared;
}

/// Stores what the command line asks for. `unsaved` becomes true, now or later, when the file cannot be
/// written; it must outlive the store.
void StoreSettings(const CommonOptions& common, SettingsFile& store, bool& unsaved) {
  store.OnUnsaved = [&unsaved](const std::string& path, int error) {
    unsaved = true;
    std::cerr << "requite-console: settings cannot be saved in \"" << path
              << "\" and last for this run only: " << std::strerror(error) << std::endl;
  };
  for (const auto& [key, value] : common.Settings) {
    store.Write(FromUtf8(key), SettingValue(kCodec, key, value));
  }
}

ExitStatus RunList(const SettingsOptions& list, const CommonOptions& common, std::ostream& out) {
  const std::string& file = common.SettingsFile;
  bool unsaved = false;
  SettingsFile store(file.empty() ? DefaultSettingsPath() : file, UseOfSettings(common));
  StoreSettings(common, store, unsaved);
  ListSettings(store, list, ::isatty(STDOUT_FILENO) != 0, kCodec, out);
  return unsaved ? ExitStatus::Refused : ExitStatus::Done;
}

ExitStatus RunProgram(const Options& options, const ProgramFolder& folder, std::ostream& out) {
  const Project* project = nullptr;
  const std::string settingsFile =
      options.Common.SettingsFile.empty() ? DefaultSettingsPath() : options.Common.SettingsFile;
  PollLoop events;
  const EventGuard guard([&](const RuntimeFailure& failure) {
    const LateWork::Pause pause(events.Late());
    EndWithReport(failure, project, {folder, HomeFolder(), settingsFile}, PrintReport);
  });
  bool unsaved = false;  // a run goes on without what could not be stored
  SettingsFile store(settingsFile, UseOfSettings(options.Common));
  store.PutOffWith(events.Late());
  StoreSettings(options.Common, store, unsaved);
  RunSettings settings(store);
  for (const auto& [key, value] : options.Common.RunSettings) {
    settings.Hold(FromUtf8(key), SettingValue(kCodec, key, value));
  }
  ConnectMap map;
  for (ConnectRule rule : options.Common.ConnectTo) {
    rule.Host = FromUtf8(rule.Host);  // the hosts of a project are bytes of the code page
    map.Add(rule);
  }

  PollConsoleLoop loop(events, guard);
  PollDescriptorLoop descriptors(events, guard);
  SocketPoller poller(descriptors, guard);
  NameResolver resolver(poller);
  SecureHosts secure(SecureRulesOf(settings));
  PageConnection connection(poller, resolver, map, &secure);
  PollTimer timTimeout(events, guard);
  PollTimer timer1(events, guard);
  CurlInternet internet(descriptors, map, LateAsciiHost);
  ConsoleDialogs dialogs(kCodec);
  DialogsAfterLateWork dialogsOfProgram(dialogs, events.Late());
  MemoryClipboard clipboard;
  SoundRecorder sounds;
  QuietShell shell;
  LateClock clock;
  Services services{events,           connection, timTimeout, timer1, internet, settings,
                    dialogsOfProgram, clipboard,  sounds,     shell,  clock};
  std::optional<RunAheadServices> ahead;
  if (SitesAtATime(Settings(settings)) > 1) {
    const auto timer = [&] { return std::make_unique<PollTimer>(events, guard); };
    ahead.emplace(RunAheadServices::Parts{timer, descriptors, poller, resolver, map, secure}, services);
  }
  Form1 form1(ahead ? ahead->Ahead().ServicesOfScan() : services, folder);
  if (ahead) {
    ahead->Ahead().Follow(form1.Scan.Context());
    form1.SiteListeners.push_back(&ahead->Ahead());
  }
  project = &form1.Sites;
  ConsoleProgram program{form1,
                         loop,
                         settings,
                         dialogs,
                         sounds,
                         clipboard,
                         kCodec,
                         out,
                         std::cerr,
                         ::isatty(STDOUT_FILENO) != 0,
                         [&] { return ahead ? ahead->Ahead().PageInProgress() : timTimeout.IsRunning(); }};
  if (ahead) program.SitesAhead = [&ahead] { return ahead->Ahead().Figures().SitesRead; };
  form1.OnNotice = [&program](std::string_view text) { program.Complain(program.Outside(text)); };
  ExitStatus status = ExitStatus::Done;
  guard.Run([&] { status = RunCommand(options, descriptors, program); });
  return status;
}

/// The window program has no command line of its own: it opens the last project.
std::pair<ExitStatus, std::string> RunOpen(const OpenOptions& options) {
  const std::string program = FindWindowProgram();
  if (program.empty()) return {ExitStatus::NotStarted, "there is no window program \"requite\""};
  if (!options.Project.empty()) {
    const std::string file = DefaultSettingsPath();
    if (std::string why = WhyNoSettings(file); !why.empty()) return {ExitStatus::Refused, std::move(why)};
    SettingsFile store(file);
    Settings(store).SaveSetting(setting::LastProject, options.Project);
  }
  std::string why = StartWindowProgram(program);
  return {why.empty() ? ExitStatus::Done : ExitStatus::NotStarted, std::move(why)};
}

/// The commands that need no window. Nothing for the others.
std::optional<ExitStatus> RunOnHistory(const Options& options, const ProgramFolder& folder,
                                       std::ostream& out) {
  const HistoryConsole console{
      folder, kCodec, out, std::cerr, ::isatty(STDOUT_FILENO) != 0, LateClock().UtcDateTime()};
  if (const auto* changes = std::get_if<ChangesOptions>(&options.Command))
    return RunChanges(*changes, console);
  if (const auto* history = std::get_if<HistoryOptions>(&options.Command))
    return RunHistory(*history, console);
  return std::nullopt;
}

ExitStatus Main(int argc, char** argv, std::ostream& out) {
  const std::variant<Options, EndAtOnce> read = ReadCommandLine(argc, argv);
  if (const auto* end = std::get_if<EndAtOnce>(&read)) {
    (end->Status == ExitStatus::Done ? out : std::cerr) << end->Text << std::endl;
    return end->Status;
  }
  const auto& options = std::get<Options>(read);
  if (const auto* open = std::get_if<OpenOptions>(&options.Command)) {
    const auto [status, why] = RunOpen(*open);
    if (!why.empty()) std::cerr << "requite-console: " << why << std::endl;
    return status;
  }
  if (const auto* settings = std::get_if<SettingsOptions>(&options.Command))
    return RunList(*settings, options.Common, out);
  const ProgramFolder folder = options.Common.ProgramFolder.empty()
                                   ? ChooseProgramFolder(ProgramPlaces::OfThisProgram())
                                   : ProgramFolder{options.Common.ProgramFolder};
  if (const auto status = RunOnHistory(options, folder, out)) return *status;
  if (std::holds_alternative<ScanOptions>(options.Command)) {
    if (const std::string why = WhyNoProgramFolder(folder.Path); !why.empty()) {
      std::cerr << "requite-console: " << why << std::endl;
      return ExitStatus::Refused;
    }
  }
  return RunProgram(options, folder, out);
}

/// Lost output outweighs any other status but that of an interrupt.
ExitStatus WithOutputTold(ExitStatus status, const OutputBuffer& output) {
  if (output.Failure() == 0) return status;
  std::cerr << "requite-console: standard output: " << std::strerror(output.Failure()) << std::endl;
  return status == ExitStatus::Interrupted ? status : ExitStatus::Refused;
}

}  // namespace
}  // namespace requite

int main(int argc, char** argv) {
  requite::OpenStandardStreams();
  requite::LetWritesFail();
  requite::KeepFreedMemory();
  requite::OutputBuffer output(STDOUT_FILENO);
  std::ostream out(&output);
  const requite::ExitStatus status = requite::Main(argc, argv, out);
  out.flush();
  return requite::Code(requite::WithOutputTold(status, output));
}
