// SPDX-License-Identifier: MIT
// The loop over a script's lines.
#include "console/script_runner.h"

#include <istream>
#include <ostream>

#include "console/script_session.h"

namespace requite {

ExitStatus RunScript(ConsoleProgram& program, std::istream& script) {
  ScriptSession session(program);
  HistoryBrowser web(program.Form1.WebBrowser1, program.Loop);
  HistoryBrowser reports(program.Form1.WebBrowser2, program.Loop);
  program.Form1.Start();
  std::string text;
  for (int line = 1; !session.Ended() && std::getline(script, text); ++line) session.Run(line, text);
  if (!session.Fault) return session.Status;
  program.Err << "requite-console: line " << session.Fault->Line << ": " << session.Fault->Why << std::endl;
  return ExitStatus::Refused;
}

}  // namespace requite
