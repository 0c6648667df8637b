// SPDX-License-Identifier: MIT
// Pressing the buttons when their time has come.
#include "console/scan_limits.h"

namespace requite {
namespace {

constexpr int kMillisecondsASecond = 1000;

}  // namespace

ScanLimits::ScanLimits(ConsoleProgram& program, const ScanOptions& options)
    : program_(program), options_(options) {
  program_.Form1.SiteListeners.push_back(this);
}

ScanLimits::~ScanLimits() { std::erase(program_.Form1.SiteListeners, static_cast<SiteEvents*>(this)); }

void ScanLimits::SiteBegins(const ScannedSite&) {
  ++site_;
  if (options_.SkipAfter > 0) SkipLater();
  if (options_.StopAfter > 0 && site_ == 1) StopLater();
}

void ScanLimits::SkipLater() {
  program_.Loop.After(options_.SkipAfter * kMillisecondsASecond, [this, mine = site_] {
    Form1& form = program_.Form1;
    if (mine == site_ && form.State.Scanning && form.cmdSkip.EnabledInEffect()) form.cmdSkip.Click();
  });
}

void ScanLimits::StopLater() {
  program_.Loop.After(options_.StopAfter * kMillisecondsASecond, [this] {
    Form1& form = program_.Form1;
    if (!form.State.Scanning) return;
    stopped_ = true;
    form.cmdStop.Click();
  });
}

}  // namespace requite
