// SPDX-License-Identifier: MIT
// The reading of a page for addresses. What looks like a slip in it (an address near the start of a line is
// lost, a hyphen goes, "&rt;" is no entity) is how addresses have always been read here, and stays.
#include "harvest/extract_emails.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "harvest/email_tail.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "scan/seen_url.h"
#include "scan/work_files.h"

namespace requite {
namespace {

constexpr std::size_t kLeftHalf = 40;  ///< characters kept in front of an "@" that stands further in
constexpr std::size_t kSlice = 4096;   ///< characters between two looks at the events

/// What is cleaned away; the right half loses its commas as well, and neither its "&".
constexpr std::string_view kCleanedOfLeft = ":\" <>[]()?=*/-\r\n;";
constexpr std::string_view kCleanedOfRight = ":\" <>[]()?=,*/-\r\n;";

std::string Clean(std::string_view text, std::string_view cleaned) {
  std::string clean(text);
  std::erase_if(clean, [&](char c) { return cleaned.find(c) != std::string_view::npos; });
  return clean;
}

/// Grows leftward from the two characters in front of the final "@", until a stop character is inside.
std::string_view LeftHalf(std::string_view piece) {
  if (piece.size() < 3) return {};
  const std::size_t end = piece.size() - 1;
  std::size_t begin = end - 2;
  if (IsStopCharacter(piece[end - 1])) return piece.substr(begin, end - begin);
  while (begin > 0 && !IsStopCharacter(piece[begin])) --begin;
  return piece.substr(begin, end - begin);
}

}  // namespace

void EmailHarvester::ExtractEmails(std::int16_t connection) {
  StatusBar& status = context_.Window.StatusBar1;
  status.SetPanel(2, "Getting Emails");
  if (!context_.State.Scanning) return;
  context_.Platform.EventLoop.LetPendingEventsRun();
  EndSilently([&] { ReadLines(connection); });
  status.SetPanel(2, "");
  if (context_.State.Scanning) PassOver([&] { context_.Steps.ScanNextPage(connection); });
}

void EmailHarvester::ReadLines(std::int16_t connection) {
  const std::string text = ReadFile(FlatPageFile(context_.Folder, connection));
  LineReader lines(text, LineEnds::CarriageReturn);
  while (!lines.AtEnd()) {
    context_.Platform.EventLoop.LetPendingEventsRun();
    std::string line(*lines.Next());
    ReplaceIn(line, "%40", "@", Compare::Binary);
    ReplaceIn(line, "%20", " ", Compare::Binary);
    ReplaceIn(line, "&lt;", "<", Compare::Binary);
    ReplaceIn(line, "&rt;", ">", Compare::Binary);
    if (!ReadLine(std::move(line))) return;
  }
}

bool EmailHarvester::ReadLine(std::string line) {
  EmailTail tail(std::move(line));
  for (std::size_t at = tail.FirstAt(); at != std::string_view::npos; at = tail.FirstAt()) {
    context_.Platform.EventLoop.LetPendingEventsRun();
    if (!context_.State.Scanning) return false;
    // Of a longer text in front of the "@" only its end is left; of a shorter one nothing, and the text up
    // to the next "@" is the left half then.
    const std::size_t place = at + 1;
    tail.TakeEverywhere(place > kLeftHalf ? place - kLeftHalf : place);
    const std::size_t next = tail.FirstAt();
    const std::string piece = tail.TakeEverywhere(next == std::string_view::npos ? 0 : next + 1);

    const std::size_t length = tail.Text().size();
    const std::size_t stop = tail.FirstStop();
    const std::size_t right = length < 2 ? 0 : std::max<std::size_t>(2, std::min(stop + 1, length));
    if (!Yield(std::max(piece.size(), right))) return false;
    TakeAddress(Clean(LeftHalf(piece), kCleanedOfLeft), Clean(tail.Text().substr(0, right), kCleanedOfRight));
    // One character behind the stop goes too; where there is none to take, the text stays whole.
    const std::size_t cut = std::max<std::size_t>(right, 1) + 1;
    if (cut <= length) tail.TakeFront(cut);
  }
  return true;
}

/// Lets events run for that many characters looked at. False when the scan was stopped.
bool EmailHarvester::Yield(std::size_t characters) {
  for (std::size_t done = 0; done < characters && context_.State.Scanning; done += kSlice) {
    context_.Platform.EventLoop.LetPendingEventsRun();
  }
  return context_.State.Scanning;
}

void EmailHarvester::TakeAddress(const std::string& left, const std::string& right) {
  std::string candidate = left + "@" + right;
  // The test of the form comes first: it keeps the statement behind it what it is.
  if (!IsValidEmail(candidate) || database_.EmailExists(candidate)) return;
  database_.AddEmail(candidate);
  CountAddress(right);
}

void EmailHarvester::CountAddress(const std::string& right) {
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
  std::string url = "http://www." + right + "/";
  if (!IsSeenUrl(context_, url)) {
    database_.AddWebsite(url);
    PassOver([&] { context_.Host.UpdateStats(1); });
  }
  PassOver([&] { context_.Host.UpdateStats(2); });
  raise(state.PagesQueued);  // a slot of SeenPages with nothing stored into it
  context_.Window.StatusBar1.SetPanel(3, "Found " + std::to_string(state.LinksOnSite) + " emails");
  context_.Platform.EventLoop.LetPendingEventsRun();
}

}  // namespace requite
