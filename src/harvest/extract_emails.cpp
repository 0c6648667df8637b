// SPDX-License-Identifier: MIT
// Reads a page for addresses and stores the new ones.
#include "harvest/extract_emails.h"

#include <algorithm>
#include <limits>

#include "platform/runtime_failure.h"
#include "scan/seen_url.h"
#include "scan/work_files.h"

namespace requite {
namespace {

constexpr std::size_t kSlice = 4096;  ///< characters read between two yields

}  // namespace

void EmailHarvester::ExtractEmails(std::int16_t connection) {
  StatusBar& status = scan_.Window.StatusBar1;
  status.SetPanel(StatusPanel::Page, "Getting Emails");
  if (!scan_.State.Scanning) return;
  scan_.Platform.EventLoop.LetPendingEventsRun();
  EndSilently([&] { ReadLines(connection); });
  status.SetPanel(StatusPanel::Page, "");
  if (scan_.State.Scanning) PassOver(scanNextPage_);
}

void EmailHarvester::ReadLines(std::int16_t connection) {
  const std::string text = ReadFile(FlatPageFile(scan_.Work, connection));
  LineReader lines(text, LineEnds::CarriageReturn);
  while (!lines.AtEnd()) {
    scan_.Platform.EventLoop.LetPendingEventsRun();
    if (!ReadEmailLine(std::string(*lines.Next()), *this)) return;
  }
}

bool EmailHarvester::GoesOn(std::size_t characters) {
  for (std::size_t done = 0; done <= characters && scan_.State.Scanning; done += kSlice) {
    scan_.Platform.EventLoop.LetPendingEventsRun();
  }
  return scan_.State.Scanning;
}

bool EmailHarvester::TakeLongAddress(std::size_t staying) {
  // Nothing longer than a database field is stored, and nothing longer than every known URL is known.
  if (staying <=
      std::max(modDatabase::kFieldLength, LongestSeenUrl(scan_.Project, scan_.Lists.List2, scan_.State)))
    return false;
  CountAddress([] { return true; });
  return true;
}

void EmailHarvester::TakeHalves(const std::string& left, std::string_view rawRight) {
  const std::string right = CleanRight(rawRight);
  std::string candidate = left + "@" + right;
  // IsValidEmail must run first: EmailExists pastes the text into an SQL statement.
  if (!IsValidEmail(candidate) || database_.EmailExists(candidate)) return;
  database_.AddEmail(candidate);
  CountAddress([&] { return AddWebsiteOf(right); });
}

bool EmailHarvester::AddWebsiteOf(const std::string& right) {
  std::string url = "http://www." + right + "/";
  if (IsSeenUrl(scan_.Project, scan_.Lists.List2, scan_.State, url)) return false;
  return database_.AddWebsite(url);
}

template <class AddWebsite>
void EmailHarvester::CountAddress(AddWebsite&& addWebsite) {
  ScanState& state = scan_.State;
  const auto raise = [](std::int32_t& counter) {
    if (counter < std::numeric_limits<std::int32_t>::max()) ++counter;
  };
  raise(state.LinksOnSite);
  PassOver([&] {
    if (scan_.Settings.IsOne(setting::chkAudioEmail)) {
      scan_.Platform.Sounds.PlaySoundFile(scan_.Folder.File(sound::kLinkFound));
    }
  });
  if (addWebsite()) PassOver([&] { scan_.Host.UpdateStats(Counted::PageFound); });
  PassOver([&] { scan_.Host.UpdateStats(Counted::LinkFound); });
  raise(state.PagesQueued);  // uses up a slot of SeenPages that stays empty
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Site,
                                   "Found " + std::to_string(state.LinksOnSite) + " emails");
  scan_.Platform.EventLoop.LetPendingEventsRun();
}

}  // namespace requite
