// SPDX-License-Identifier: MIT
// The progress line and the verdict on each site.
#include "console/progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <ostream>

#include "scan/scan_share.h"

namespace requite {
namespace {

constexpr std::chrono::milliseconds kRedrawInterval{100};
constexpr std::size_t kUsualColumns = 80;

std::size_t TerminalColumns() {
  winsize size{};
  return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsualColumns;
}

}  // namespace

ScanProgress::ScanProgress(ConsoleProgram& program, Output output)
    : program_(program), output_(output), start_(std::chrono::steady_clock::now()) {
  program_.Form1.SiteListeners.push_back(this);
  program_.Form1.StatusBar1.SetView(this);
}

ScanProgress::~ScanProgress() {
  Clear();
  program_.Form1.StatusBar1.SetView(nullptr);
  std::erase(program_.Form1.SiteListeners, static_cast<SiteEvents*>(this));
}

void ScanProgress::SiteFinished(const SiteVerdict& verdict) {
  if (output_ == Output::None) return;
  if (output_ == Output::Terminal) return Redraw();
  const bool tellsReason = !verdict.LinksBack && !verdict.Reason.empty();
  // In one piece, because standard error writes each piece at once: whoever watches sees it now, and whole.
  program_.Err << program_.Outside(Position(Counts().Sites) + ": " + verdict.Url + ": " +
                                   std::to_string(verdict.LinksCounted) + " of " +
                                   std::to_string(verdict.LinksExpected) + " links" +
                                   (tellsReason ? " (" + verdict.Reason + ")" : "")) +
                      '\n'
               << std::flush;
}

std::int32_t ScanProgress::AllSites() const {
  return static_cast<std::int32_t>(SitesToScan(program_.Form1.Sites, program_.Form1.State));
}

std::string ScanProgress::Position(std::int32_t number) const {
  return "Linking Site " + std::to_string(number) + " of " + std::to_string(AllSites());
}

void ScanProgress::Redraw() {
  const auto now = std::chrono::steady_clock::now();
  if (output_ != Output::Terminal || (lineOnShow_ && now - drawn_ < kRedrawInterval)) return;
  drawn_ = now;
  const ScanState& state = program_.Form1.State;
  if (!state.Scanning) return;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - start_).count();
  Draw(Position(std::min(Counts().Sites + 1, AllSites())) + ", page " + std::to_string(state.PagesDone) +
       " of " + std::to_string(state.PagesQueued + 1) + ", " +
       std::to_string(program_.Form1.Figures.LinksFound) + " links found, " + std::to_string(seconds) + " s" +
       (program_.SitesAhead ? ", " + std::to_string(program_.SitesAhead()) + " ahead" : "") +
       (state.PageFull.empty() ? "" : ", " + state.PageFull));
}

void ScanProgress::Draw(const std::string& text) {
  // A line that reaches the last column would wrap, and the next one could not be drawn over it.
  program_.Err << '\r' + program_.Codec.ToUtf8(Escaped(text).substr(0, TerminalColumns() - 1)) + "\x1b[K"
               << std::flush;
  lineOnShow_ = true;
}

void ScanProgress::Summarise() {
  Clear();
  if (output_ == Output::None) return;
  program_.Err << SummaryOf(Counts(), AllSites()) << std::endl;
  const HttpsOnlySites& httpsOnly = program_.Form1.HttpsOnly;
  if (!httpsOnly.Empty()) program_.Err << httpsOnly.Words() << " With --secure it can." << std::endl;
}

void ScanProgress::Clear() {
  if (!lineOnShow_) return;
  program_.Err << "\r\x1b[K" << std::flush;
  lineOnShow_ = false;
}

}  // namespace requite
