// SPDX-License-Identifier: MIT
// The commands that print what a control, a window or a record holds.
#include "console/script/control_text.h"
#include "console/script/script_commands.h"
#include "console/script/script_line.h"
#include "console/script/use_control.h"
#include "platform/list_view.h"

namespace requite {
namespace {

Complaint Rows(ScriptSession& session, const Words& words) {
  return UseControl(
      session, words[0],
      [&](ListView& list) {
        for (std::size_t row = 0; row < list.RowCount(); ++row) {
          session.Program.PrintLine(RowFields(list, row));
        }
      },
      [&](ComboBox& combo) {
        for (const std::string& item : combo.Items()) session.Program.PrintLine(item);
      });
}

Complaint Style(ScriptSession& session, const Words& words) {
  return UseControl(session, words[0], [&](ListView& list) {
    for (std::size_t row = 0; row < list.RowCount(); ++row) {
      session.Program.PrintLine({std::to_string(list.Icon(row)), std::to_string(list.Colour(row))});
    }
  });
}

/// Also finds "StatusBar1(2)", the second panel; everything else is the name of a control.
NamedControl FindWithPanel(ScriptSession& session, const std::string& name, int& panel) {
  panel = 1;
  NamedControl control = session.Find(name);
  const std::size_t open = name.find('(');
  if (control || open == std::string::npos || name.back() != ')') return control;
  const std::optional<int> number =
      ReadNumber(std::string_view(name).substr(open + 1, name.size() - open - 2));
  control = session.Find(std::string_view(name).substr(0, open));
  if (!number || *number < 1 || *number > StatusBar::kPanels) return {};
  panel = *number;
  return control.As<StatusBar>() == nullptr ? NamedControl() : control;
}

Complaint Print(ScriptSession& session, const Words& words) {
  int panel = 1;
  const NamedControl control = FindWithPanel(session, words[0], panel);
  return UseControl(control, words[0], [&](const NamedControl& found) -> Complaint {
    const std::optional<std::string> text = ControlText(found, panel);
    if (!text) return NoUse(words[0]);
    session.Program.PrintLine(*text);
    return {};
  });
}

Complaint Index(ScriptSession& session, const Words& words) {
  const auto print = [&](int index) { session.Program.PrintLine(std::to_string(index)); };
  return UseControl(
      session, words[0], [&](ListView& list) { print(list.SelectedRow() + 1); },
      [&](ComboBox& combo) { print(combo.ListIndex()); });
}

Complaint Checked(ScriptSession& session, const Words& words) {
  return UseControl(session, words[0], [&](const NamedControl& control) -> Complaint {
    const std::optional<bool> checked = ControlChecked(control);
    if (!checked) return NoUse(words[0]);
    session.Program.PrintLine(*checked ? "1" : "0");
    return {};
  });
}

Complaint Tip(ScriptSession& session, const Words& words) {
  return UseControl(session, words[0], [&](Control& control) { session.Program.PrintLine(control.ToolTip); });
}

Complaint Title(ScriptSession& session, const Words& words) {
  if (!session.IsOpenWindow(words[0])) return NoOpenWindow(words[0]);
  const ProgramWindow* const other = session.Program.Form1.Windows.Find(words[0]);
  session.Program.PrintLine((other == nullptr ? session.Program.Form1.Main : other->Main).Title());
  return {};
}

Complaint State(ScriptSession& session, const Words& words) {
  return UseControl(session, words[0],
                    [&](Control& control) { session.Program.PrintLine(ControlState(control)); });
}

Complaint Panels(ScriptSession& session, const Words&) {
  for (int panel = 1; panel <= StatusBar::kPanels; ++panel) {
    session.Program.PrintLine(session.Program.Form1.StatusBar1.Panel(panel));
  }
  return {};
}

Complaint Trace(ScriptSession& session, const Words& words) {
  int panel = 1;
  const NamedControl control = FindWithPanel(session, words[0], panel);
  return UseControl(control, words[0], [&](const NamedControl& found) -> Complaint {
    if (!ControlText(found, panel)) return NoUse(words[0]);
    std::unique_ptr<Tracer>& tracer = session.Tracers[found.Which];
    if (tracer == nullptr) {
      tracer = std::make_unique<Tracer>(session.Program);
      found.Which->SetView(tracer.get());
    }
    tracer->Tell(found, words[0], panel);
    return {};
  });
}

Complaint Messages(ScriptSession& session, const Words&) {
  ConsoleProgram& program = session.Program;
  for (const ConsoleDialogs::Shown& each : program.Dialogs.TakeShown()) {
    program.PrintLine({each.Kind, each.Title, each.Text, each.Answer});
  }
  return {};
}

Complaint PlayedSounds(ScriptSession& session, const Words&) {
  for (const std::string& file : session.Program.Sounds.TakePlayed()) session.Program.PrintLine(file);
  return {};
}

Complaint PrintNavigations(ScriptSession& session, const Words&) {
  for (const std::vector<std::string>& each : std::exchange(session.Navigations, {})) {
    session.Program.PrintLine(each);
  }
  return {};
}

Complaint PrintClipboard(ScriptSession& session, const Words&) {
  session.Program.PrintLine(session.Program.Clipboard.Text());
  return {};
}

Complaint OpenWindows(ScriptSession& session, const Words&) {
  session.Program.PrintLine(session.Program.Form1.Main.Name());
  for (const std::string& name : session.Program.Form1.Windows.ShownNames()) session.Program.PrintLine(name);
  return {};
}

constexpr ScriptCommand kCommands[] = {
    {"windows", "windows", "prints the names of the open windows, one a line", 0, 0, OpenWindows},
    {"rows", "rows NAME", "prints each row of a list, or the items of a combo box, fields parted by a tab", 1,
     1, Rows},
    {"style", "style NAME", "prints each row's icon number, a tab, and its colour number", 1, 1, Style},
    {"print", "print NAME", "prints a control's text, caption, value or address", 1, 1, Print},
    {"index", "index NAME",
     "prints the list index of a combo box (-1: none), or the selected row of a list (0: none)", 1, 1, Index},
    {"checked", "checked NAME", "prints 1 or 0: the check mark of a menu entry, check box or option", 1, 1,
     Checked},
    {"tip", "tip NAME", "prints the tool tip", 1, 1, Tip},
    {"title", "title WINDOW", "prints the window's title", 1, 1, Title},
    {"state", "state NAME", "prints enabled or disabled, a blank, visible or hidden", 1, 1, State},
    {"panels", "panels", "prints the four status bar panels, one a line", 0, 0, Panels},
    {"trace", "trace NAME", "from now on prints NAME and the text each time the text changes", 1, 1, Trace},
    {"messages", "messages", "prints and forgets the message boxes and dialogs shown so far, one a line", 0,
     0, Messages, true},
    {"sounds", "sounds", "prints and forgets the sound files played so far, one a line", 0, 0, PlayedSounds,
     true},
    {"navigations", "navigations",
     "prints and forgets the addresses that browser views were sent to, one a line", 0, 0, PrintNavigations},
    {"clipboard", "clipboard", "prints the text on the clipboard", 0, 0, PrintClipboard},
};

}  // namespace

std::span<const ScriptCommand> PrintCommands() { return kCommands; }

}  // namespace requite
