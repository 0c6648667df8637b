// SPDX-License-Identifier: MIT
// The loop over a script's lines.
#include "console/script/script_runner.h"

#include <cstdio>
#include <istream>
#include <streambuf>
#include <string>

#include "console/script/script_session.h"

namespace requite {
namespace {

/// A longer line means that the file is no script.
constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;

enum class Line { Read, TooLong, End };

Line ReadLine(std::istream& script, std::string& text) {
  text.clear();
  std::streambuf& bytes = *script.rdbuf();
  for (int c = bytes.sbumpc(); c != EOF; c = bytes.sbumpc()) {
    if (c == '\n') return Line::Read;
    if (text.size() == kLongestLine) return Line::TooLong;
    text += static_cast<char>(c);
  }
  return text.empty() ? Line::End : Line::Read;
}

}  // namespace

ExitStatus RunScript(ConsoleProgram& program, std::istream& script) {
  ScriptSession session(program);
  HistoryBrowser web(program.Form1.WebBrowser1, program.Loop);
  HistoryBrowser reports(program.Form1.WebBrowser2, program.Loop);
  program.Form1.Start();
  std::string text;
  for (int line = 1; !session.Ended(); ++line) {
    const Line read = ReadLine(script, text);
    if (read == Line::End) break;
    if (read == Line::TooLong) {
      session.Fault = ScriptFault{line, "longer than 1 MiB: this is no script"};
    } else {
      session.Run(line, text);
    }
  }
  if (!session.Fault) return session.Status;
  program.Complain("line " + std::to_string(session.Fault->Line) + ": " + session.Fault->Why);
  return ExitStatus::Refused;
}

}  // namespace requite
