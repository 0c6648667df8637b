// SPDX-License-Identifier: MIT
// The state that the commands of a running script share.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/exit_status.h"
#include "console/program.h"

namespace requite {

/// Why a command could not be run; empty when it was.
using Complaint = std::string;

/// A line that ended the script.
struct ScriptFault {
  int Line = 0;
  std::string Why;
};

/// Prints the text of a control each time it changes.
class Tracer : public ControlView {
 public:
  explicit Tracer(ConsoleProgram& program) : program_(program) {}
  /// Adds a text to print; `name` is what the command called it.
  void Tell(const NamedControl& control, std::string name, int panel);
  void Refresh(const Control& control) override;

 private:
  struct Told {
    NamedControl Which;
    std::string Name;
    int Panel;
    std::string Text;
  };

  ConsoleProgram& program_;
  std::vector<Told> told_;
};

class ScriptSession {
 public:
  explicit ScriptSession(ConsoleProgram& program);
  ~ScriptSession();
  ScriptSession(const ScriptSession&) = delete;
  ScriptSession& operator=(const ScriptSession&) = delete;

  /// Runs one line of a script. A fault is kept, and nothing runs after it. Throws RuntimeFailure for
  /// what the program's own action did not handle.
  void Run(int line, std::string_view text);

  /// Whether the script ends before its last line.
  [[nodiscard]] bool Ended() const { return Fault.has_value() || Status != ExitStatus::Done; }

  /// The control with a name as scripts spell it, or none. A window's name may come first.
  [[nodiscard]] NamedControl Find(std::string_view name) const;
  [[nodiscard]] bool IsOpenWindow(std::string_view name) const;

  ConsoleProgram& Program;
  std::optional<ScriptFault> Fault;
  ExitStatus Status = ExitStatus::Done;
  int Line = 0;                                       ///< of the command that runs
  std::vector<std::vector<std::string>> Navigations;  ///< control and URL of each
  std::map<Control*, std::unique_ptr<Tracer>> Tracers;

 private:
  void Carry(std::string_view text);
  void Record(BrowserView& view, const std::string& window);
  void Record(ProgramWindow& window);
  void Forget(ProgramWindow& window);
};

}  // namespace requite
