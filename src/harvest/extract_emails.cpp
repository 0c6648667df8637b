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
  StatusBar& status = context_.Window.StatusBar1;
  status.SetPanel(2, "Getting Emails");
  if (!context_.State.Scanning) return;
  context_.Platform.EventLoop.LetPendingEventsRun();
  EndSilently([&] { ReadLines(connection); });
  status.SetPanel(2, "");
  if (context_.State.Scanning) PassOver(scanNextPage_);
}

void EmailHarvester::ReadLines(std::int16_t connection) {
  const std::string text = ReadFile(FlatPageFile(context_.Work, connection));
  LineReader lines(text, LineEnds::CarriageReturn);
  while (!lines.AtEnd()) {
    context_.Platform.EventLoop.LetPendingEventsRun();
    if (!ReadEmailLine(std::string(*lines.Next()), *this)) return;
  }
}

bool EmailHarvester::GoesOn(std::size_t characters) {
  for (std::size_t done = 0; done <= characters && context_.State.Scanning; done += kSlice) {
    context_.Platform.EventLoop.LetPendingEventsRun();
  }
  return context_.State.Scanning;
}

bool EmailHarvester::TakeLongAddress(std::size_t staying) {
  // Nothing longer than a database field is stored, and nothing longer than every known URL is known.
  if (staying <= std::max(modDatabase::kFieldLength,
                          LongestSeenUrl(context_.Project, context_.Lists.List2, context_.State)))
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
  if (IsSeenUrl(context_.Project, context_.Lists.List2, context_.State, url)) return false;
  return database_.AddWebsite(url);
}

template <class AddWebsite>
void EmailHarvester::CountAddress(AddWebsite&& addWebsite) {
  ScanState& state = context_.State;
  const auto raise = [](std::int32_t& counter) {
    if (counter < std::numeric_limits<std::int32_t>::max()) ++counter;
  };
  raise(state.LinksOnSite);
  PassOver([&] {
    if (context_.Settings.IsOne(setting::chkAudioEmail)) {
      context_.Platform.Sounds.PlaySoundFile(context_.Folder.File(sound::kLinkFound));
    }
  });
  if (addWebsite()) PassOver([&] { context_.Host.UpdateStats(Counted::PageFound); });
  PassOver([&] { context_.Host.UpdateStats(Counted::LinkFound); });
  raise(state.PagesQueued);  // uses up a slot of SeenPages that stays empty
  context_.Window.StatusBar1.SetPanel(3, "Found " + std::to_string(state.LinksOnSite) + " emails");
  context_.Platform.EventLoop.LetPendingEventsRun();
}

}  // namespace requite
