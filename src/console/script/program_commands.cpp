// SPDX-License-Identifier: MIT
// The commands that control the script and the program as a whole.
#include <limits>

#include "console/script/call_commands.h"
#include "console/script/script_commands.h"
#include "console/script/script_line.h"

namespace requite {
namespace {

constexpr int kMillisecondsASecond = 1000;

Complaint LayAnswer(ScriptSession& session, const Words& words) {
  ConsoleDialogs& dialogs = session.Program.Dialogs;
  const std::string& word = words[0];
  if (word == "file" && words.size() == 2) {
    dialogs.LayReadyFile(words[1]);  // not converted: a path is bytes of the file system
  } else if (words.size() == 2) {
    return "only \"answer file\" takes a path";
  } else if (word == "ok") {
    dialogs.LayReady(Answer::Ok);
  } else if (word == "cancel") {
    dialogs.LayReady(Answer::Cancel);
  } else if (word == "yes") {
    dialogs.LayReady(Answer::Yes);
  } else if (word == "no") {
    dialogs.LayReady(Answer::No);
  } else {
    return "\"" + word + "\" is no answer";
  }
  return {};
}

std::optional<int> ReadMilliseconds(const std::string& text) {
  const std::optional<int> number = ReadNumber(text);
  return number && *number >= 0 ? number : std::nullopt;
}

Complaint RunFor(ScriptSession& session, const Words& words) {
  const std::optional<int> milliseconds = ReadMilliseconds(words[0]);
  if (!milliseconds) return NoNumber(words[0]);
  session.Program.Loop.RunUntil([&] { return session.Ended(); }, *milliseconds);
  return {};
}

Complaint Wait(ScriptSession& session, const Words& words) {
  const std::optional<int> seconds = ReadNumber(words[1]);
  if (words[0] != "idle") return "only \"wait idle\" is known";
  if (!seconds || *seconds < 0 || *seconds > std::numeric_limits<int>::max() / kMillisecondsASecond) {
    return NoNumber(words[1]);
  }
  const ScanState& state = session.Program.Form1.State;
  session.Program.Loop.RunUntil([&] { return !state.Scanning || session.Ended(); },
                                *seconds * kMillisecondsASecond);
  if (state.Scanning && !session.Ended()) session.Status = ExitStatus::NotIdleInTime;
  return {};
}

Complaint After(ScriptSession& session, const Words& words) {
  const std::optional<int> milliseconds = ReadMilliseconds(words[0]);
  if (!milliseconds) return NoNumber(words[0]);
  const std::optional<ScriptLine> command = ReadScriptLine(words[1]);
  if (!command || FindCommand(command->Command) == nullptr) return "\"" + words[1] + "\" is no command";
  session.Program.Loop.After(*milliseconds,
                             [&session, line = session.Line, text = words[1]] { session.Run(line, text); });
  return {};
}

Complaint Load(ScriptSession& session, const Words& words) {
  Windows& windows = session.Program.Form1.Windows;
  if (!windows.IsKnown(words[0])) return "there is no window \"" + words[0] + "\"";
  windows.Show(words[0]);
  return {};
}

Complaint Close(ScriptSession& session, const Words& words) {
  if (!session.IsOpenWindow(words[0])) return NoOpenWindow(words[0]);
  if (ProgramWindow* const other = session.Program.Form1.Windows.Find(words[0])) {
    other->Close();
  } else {
    session.Program.Form1.Close();
  }
  return {};
}

Complaint Get(ScriptSession& session, const Words& words) {
  const std::string key = session.Program.Codec.FromUtf8(words[0]);
  session.Program.PrintLine(session.Program.Store.Read(key).value_or(""));
  return {};
}

Complaint Put(ScriptSession& session, const Words& words) {
  const TextCodec& codec = session.Program.Codec;
  const std::string value = words.size() > 1 ? words[1] : std::string();
  session.Program.Store.Write(codec.FromUtf8(words[0]), SettingValue(codec, words[0], value));
  return {};
}

Complaint Echo(ScriptSession& session, const Words& words) {
  session.Program.PrintLine(words.empty() ? std::string() : session.Program.Codec.FromUtf8(words[0]));
  return {};
}

constexpr ScriptCommand kCommands[] = {
    {"answer", "answer WORD", "answers the next message box or dialog: ok, cancel, yes, no, or file PATH", 1,
     2, LayAnswer},
    {"run", "run MS", "lets events run for MS milliseconds", 1, 1, RunFor},
    {"wait", "wait idle SECONDS",
     "lets events run until no scan is in progress; exit status 3 if SECONDS pass first", 2, 2, Wait},
    {"after", "after MS COMMAND",
     "runs COMMAND once MS milliseconds have passed, at the next place where events run", 2, 2, After, false,
     Escapes::Keep},
    {"load", "load WINDOW", "loads a window that no command on screen opens", 1, 1, Load},
    {"close", "close WINDOW", "closes a window; \"close Form1\" closes the program", 1, 1, Close},
    {"get", "get KEY", "prints a setting; an empty line for a missing key", 1, 1, Get, true},
    {"put", "put KEY VALUE", "writes a setting", 1, 2, Put, true},
    {"var", "var NAME", "prints a field of the scan state or a counter by its name", 1, 1, PrintVariable},
    {"call", "call OPERATION TEXT",
     "calls an operation of the program and prints its result and the argument after the call", 1, 2,
     CallOperation},
    {"echo", "echo TEXT", "prints TEXT", 0, 1, Echo, true},
};

}  // namespace

std::span<const ScriptCommand> ProgramCommands() { return kCommands; }

}  // namespace requite
