// SPDX-License-Identifier: MIT
// Pressing the buttons when their time has come.
#include "console/scan_limits.h"

namespace requite {
namespace {

constexpr int kMillisecondsASecond = 1000;

}  // namespace

ScanLimits::ScanLimits(ConsoleProgram& program, const ScanOptions& options)
    : program_(program), options_(options) {
  SiteBegins();
  if (options_.StopAfter == 0) return;
  program_.Loop.After(options_.StopAfter * kMillisecondsASecond, [this] {
    Form1& form = program_.Form1;
    if (!form.State.Scanning) return;
    stopped_ = true;
    form.cmdStop.Click();
  });
}

void ScanLimits::SiteBegins() {
  ++site_;
  if (options_.SkipAfter == 0) return;
  program_.Loop.After(options_.SkipAfter * kMillisecondsASecond, [this, mine = site_] {
    Form1& form = program_.Form1;
    if (mine == site_ && form.State.Scanning && form.cmdSkip.EnabledInEffect()) form.cmdSkip.Click();
  });
}

}  // namespace requite
