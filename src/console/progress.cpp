// SPDX-License-Identifier: MIT
// The progress line and the verdict on each site.
#include "console/progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <ostream>

namespace requite {
namespace {

constexpr std::chrono::milliseconds kRedrawInterval{100};
constexpr std::size_t kUsualColumns = 80;
constexpr int kScanOneMainSite = 1;
constexpr int kScanOneLinkingSite = 2;
/// The label that a site's end is counted in.
constexpr std::size_t kLinkingSitesLabel = 5;

std::size_t TerminalColumns() {
  winsize size{};
  return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsualColumns;
}

}  // namespace

ScanProgress::Watch::Watch(Control& control, std::function<void()> onChange)
    : control_(control), onChange_(std::move(onChange)) {
  control_.SetView(this);
}

ScanProgress::ScanProgress(ConsoleProgram& program, Output output)
    : program_(program),
      output_(output),
      start_(std::chrono::steady_clock::now()),
      sites_(program.Form1.lblStats[kLinkingSitesLabel], [this] { SiteFinished(); }),
      panels_(program.Form1.StatusBar1, [this] { Redraw(); }) {}

ScanProgress::~ScanProgress() { Clear(); }

/// The figure rises before the site's state is cleared, so that state still tells how it went.
void ScanProgress::SiteFinished() {
  const Statistics& figures = program_.Form1.Figures;
  if (figures.LinkingSitesScanned <= finished_) return;
  finished_ = figures.LinkingSitesScanned;
  const bool linksBack = SiteLinksBack();
  if (linksBack) ++linkBack_;
  if (!linksBack && SiteNotReached()) ++notReached_;
  if (OnSiteFinished) OnSiteFinished();
  if (output_ == Output::None) return;
  if (output_ == Output::Terminal) return Redraw();
  const ScanState& state = program_.Form1.State;
  const std::string reason = linksBack || state.ReasonNote.empty() ? "" : " (" + state.ReasonNote + ")";
  program_.Err << program_.Outside(Position(finished_) + ": " + state.CurrentLinkingUrl + ": " +
                                   std::to_string(state.LinksCounted) + " of " +
                                   std::to_string(state.LinksExpected) + " links" + reason)
               << std::endl;
}

bool ScanProgress::SiteLinksBack() const {
  const ScanState& state = program_.Form1.State;
  if (state.LinksCounted >= state.LinksExpected) return true;
  // A link that goes through a redirect is one link, where such links are looked for.
  return !state.LinkFound && state.RedirectSuspected && state.LinksExpected == 1 &&
         program_.Form1.Settings.IsOne(setting::chkRedirect);
}

/// Nothing came of the site's first page: its name is unknown, it refuses, or it is silent.
bool ScanProgress::SiteNotReached() const {
  const ScanState& state = program_.Form1.State;
  const bool givenUp = state.ReasonNote == "Timeout" || state.ReasonNote == "Skipped";
  return givenUp && state.PagesDone <= 1 && state.LinksCounted == 0;
}

std::int32_t ScanProgress::SitesToScan() const {
  const Project& sites = program_.Form1.Sites;
  const int type = program_.Form1.State.ScanType;
  if (type == kScanOneLinkingSite) return 1;
  std::size_t rows = 0;
  for (int k = 1; k <= sites.ListCount(); ++k) {
    if (type != kScanOneMainSite || k == sites.CurrentMainSite) rows += sites.List1(k).RowCount();
  }
  return static_cast<std::int32_t>(rows);
}

std::string ScanProgress::Position(std::int32_t number) const {
  return "Linking Site " + std::to_string(number) + " of " + std::to_string(SitesToScan());
}

void ScanProgress::Redraw() {
  const auto now = std::chrono::steady_clock::now();
  if (output_ != Output::Terminal || (lineOnShow_ && now - drawn_ < kRedrawInterval)) return;
  drawn_ = now;
  const ScanState& state = program_.Form1.State;
  if (!state.Scanning) return;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - start_).count();
  Draw(Position(std::min(finished_ + 1, SitesToScan())) + ", page " + std::to_string(state.PagesDone) +
       " of " + std::to_string(state.PagesQueued + 1) + ", " +
       std::to_string(program_.Form1.Figures.LinksFound) + " links found, " + std::to_string(seconds) + " s" +
       (state.PageFull.empty() ? "" : ", " + state.PageFull));
}

void ScanProgress::Draw(const std::string& text) {
  // A line that reaches the last column would wrap, and the next one could not be drawn over it.
  program_.Err << '\r' << program_.Codec.ToUtf8(Escaped(text).substr(0, TerminalColumns() - 1)) << "\x1b[K"
               << std::flush;
  lineOnShow_ = true;
}

void ScanProgress::Summarise() {
  Clear();
  if (output_ == Output::None) return;
  const std::int32_t all = SitesToScan();
  program_.Err << finished_ << (finished_ < all ? " of " + std::to_string(all) : "")
               << (std::max(finished_, all) == 1 ? " site: " : " sites: ") << linkBack_ << " link back, "
               << finished_ - linkBack_ - notReached_ << " do not, " << notReached_ << " not reached"
               << std::endl;
}

void ScanProgress::Clear() {
  if (!lineOnShow_) return;
  program_.Err << "\r\x1b[K" << std::flush;
  lineOnShow_ = false;
}

}  // namespace requite
