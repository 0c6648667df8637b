// SPDX-License-Identifier: MIT
// The console over fakes: time passes only when a script lets events run.
#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "console/program.h"
#include "console/script/script_runner.h"
#include "support/fakes.h"

namespace requite::test {

/// Events wait for their moment of a clock that only RunUntil moves.
class FakeConsoleLoop : public ConsoleLoop {
 public:
  bool RunUntil(const std::function<bool()>& done, int milliseconds) override {
    const int end = milliseconds < 0 ? kForEver : now_ + milliseconds;
    while (!done()) {
      auto next = events_.end();
      for (auto each = events_.begin(); each != events_.end(); ++each) {
        if (each->first <= end && (next == events_.end() || each->first < next->first)) next = each;
      }
      if (next == events_.end()) break;
      now_ = std::max(now_, next->first);
      const auto action = std::move(next->second);
      events_.erase(next);
      action();
    }
    if (milliseconds >= 0) now_ = end;
    return done();
  }
  void After(int milliseconds, std::function<void()> action) override {
    events_.emplace_back(now_ + milliseconds, std::move(action));
  }

 private:
  static constexpr int kForEver = 1'000'000'000;
  std::vector<std::pair<int, std::function<void()>>> events_;
  int now_ = 0;
};

inline std::string SameBytes(std::string_view text) { return std::string(text); }

/// One run of a script over a fresh program.
struct ConsoleRig {
  ConsoleRig() { WriteFile(Folder.File("filetypes.txt"), ".zip\r\n"); }

  ExitStatus Run(const std::string& script) {
    Out.str("");
    Err.str("");
    std::istringstream lines(script);
    return RunScript(Program, lines);
  }

  TemporaryFolder Folder;
  FakeServices Services;
  FakeConsoleLoop Loop;
  ConsoleDialogs Dialogs{{SameBytes, SameBytes}};
  SoundRecorder Sounds;
  MemoryClipboard Clipboard;
  requite::Services All{Services.EventLoop,
                        Services.Connection,
                        Services.timTimeout,
                        Services.Timer1,
                        Services.Internet,
                        Services.Store,
                        Dialogs,
                        Clipboard,
                        Sounds,
                        Services.Shell,
                        Services.Clock};
  requite::Form1 Form{All, Folder.Folder};
  std::ostringstream Out;
  std::ostringstream Err;
  ConsoleProgram Program{Form,
                         Loop,
                         Services.Store,
                         Dialogs,
                         Sounds,
                         Clipboard,
                         {SameBytes, SameBytes},
                         Out,
                         Err,
                         false,
                         [this] { return Services.timTimeout.Running; }};
};

}  // namespace requite::test
