// SPDX-License-Identifier: MIT
// Runs script lines: finds the command, its arguments, and the controls that it names.
#include "console/script/script_session.h"

#include "console/script/control_text.h"
#include "console/script/script_commands.h"
#include "console/script/script_line.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kMainWindow = "Form1";

}  // namespace

void Tracer::Tell(const NamedControl& control, std::string name, int panel) {
  std::string text = ControlText(control, panel).value_or("");
  told_.push_back({control, std::move(name), panel, std::move(text)});
}

void Tracer::Refresh(const Control&) {
  for (Told& each : told_) {
    std::string text = ControlText(each.Which, each.Panel).value_or("");
    if (text == each.Text) continue;
    each.Text = std::move(text);
    program_.PrintLine(each.Name + ": " + each.Text);
  }
}

ScriptSession::ScriptSession(ConsoleProgram& program) : Program(program) {
  Record(program.Form1.WebBrowser1, "");
  Record(program.Form1.WebBrowser2, "");
  Windows& windows = program.Form1.Windows;
  windows.OnMade = [this](ProgramWindow& window) { Record(window); };
  windows.OnClosed = [this](ProgramWindow& window) { Forget(window); };
}

ScriptSession::~ScriptSession() {
  for (const auto& [control, tracer] : Tracers) control->SetView(nullptr);
  Program.Form1.WebBrowser1.OnNavigate = nullptr;
  Program.Form1.WebBrowser2.OnNavigate = nullptr;
  Windows& windows = Program.Form1.Windows;
  windows.OnMade = nullptr;
  windows.OnClosed = nullptr;
  for (const std::string& name : windows.ShownNames()) Forget(*windows.Find(name));
}

void ScriptSession::Record(BrowserView& view, const std::string& window) {
  view.OnNavigate = [this, name = window + view.Name()](const std::string& url) {
    Navigations.push_back({name, url});
  };
}

void ScriptSession::Record(ProgramWindow& window) {
  window.Controls.ForEach([&](Control& control) {
    if (auto* const view = dynamic_cast<BrowserView*>(&control)) Record(*view, window.Name() + ".");
  });
}

/// The window is closing: its controls are about to be destroyed.
void ScriptSession::Forget(ProgramWindow& window) {
  window.Controls.ForEach([&](Control& control) {
    if (Tracers.erase(&control) > 0) control.SetView(nullptr);
    if (auto* const view = dynamic_cast<BrowserView*>(&control)) view->OnNavigate = nullptr;
  });
}

void ScriptSession::Run(int line, std::string_view text) {
  if (Ended()) return;
  const int outer = std::exchange(Line, line);
  Carry(text);
  Line = outer;
}

void ScriptSession::Carry(std::string_view text) {
  const int line = Line;
  const std::optional<ScriptLine> parts = ReadScriptLine(text);
  if (!parts) return;
  Complaint why;
  const ScriptCommand* const command = FindCommand(parts->Command);
  if (command == nullptr) {
    why = "there is no command \"" + parts->Command + "\"";
  } else if (Program.Form1.Closed() && !command->WorksAfterClose) {
    why = "the program is closed";
  } else {
    std::optional<std::vector<std::string>> words =
        ReadArguments(parts->Rest, command->MostArguments, command->OfArguments);
    if (!words) {
      why = "a backslash stands before something that is no escape";
    } else if (words->size() < command->LeastArguments ||
               (command->MostArguments == 0 && !Trim(parts->Rest).empty())) {
      why = "\"" + parts->Command + "\" has the form: " + std::string(command->Form);
    } else {
      Line = line;
      why = command->Run(*this, *words);
    }
  }
  if (!why.empty() && !Fault) Fault = ScriptFault{line, why};
}

NamedControl ScriptSession::Find(std::string_view name) const {
  const std::size_t dot = name.find('.');
  if (dot != std::string_view::npos) {
    const std::string_view window = name.substr(0, dot);
    name.remove_prefix(dot + 1);
    if (window != kMainWindow) {
      const ProgramWindow* const other = Program.Form1.Windows.Find(window);
      return other == nullptr ? NamedControl() : other->Controls.Find(name);
    }
  }
  return Program.Form1.Controls.Find(name);
}

bool ScriptSession::IsOpenWindow(std::string_view name) const {
  if (name == kMainWindow) return !Program.Form1.Closed();
  return Program.Form1.Windows.IsShown(name);
}

}  // namespace requite
