// SPDX-License-Identifier: MIT
// The table of the words for settings, and how their values are checked.
#include "console/setting_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

#include "model/page_limits.h"
#include "model/visitor.h"

namespace requite {
namespace {

using Kind = SettingWord::Kind;
using Lasts = SettingWord::Lasts;

constexpr int kMostTimeout = std::numeric_limits<std::int16_t>::max();
constexpr int kMostPause = 3'600'000;

constexpr SettingWord Flag(std::string_view option, SettingKey key, std::string_view value,
                           std::string_view words, Lasts how = Lasts::Stored) {
  return {option, "", key, Kind::Fixed, how, value, 0, 0, words};
}

constexpr SettingWord kWords[] = {
    Flag("--secure", setting::chkSecure, "1",
         "Ask for pages over HTTPS where a site offers it, in this run (chkSecure=1)", Lasts::ThisRun),
    {"--user-agent", "TEXT", setting::txtUserAgent, Kind::Text, Lasts::ThisRun, "", 0, 0,
     "The name given to sites in this run (txtUserAgent); many refuse a visitor without one"},
    {"--sites-at-a-time", "N", setting::SitesAtATime, Kind::Number, Lasts::ThisRun, "", 1, kMostSitesAtATime,
     "Read up to N sites side by side in this run, with the same results (SitesAtATime)"},
    {"--history", "", setting::chkHistory, Kind::Fixed, Lasts::ThisRun, "1", 0, 0,
     "Record this scan, so that the command changes can tell what it changed (chkHistory=1)", true},
    {"--timeout", "SECONDS", setting::txtTimeout, Kind::Number, Lasts::Stored, "", 1, kMostTimeout,
     "How long a page may be silent (txtTimeout)"},
    {"--max-pages", "1|10|50|100|500|1000|5000|10000|20000|50000|100000|200000|500000", setting::cmbAdvance,
     Kind::Pages, Lasts::Stored, "", 0, 0,
     "The most pages that are read of one site (chkAuto=1, and cmbAdvance, which counts these numbers from "
     "0)"},
    Flag("--no-max-pages", setting::chkAuto, "0", "Read all pages of a site (chkAuto=0)"),
    Flag("--enough-links", setting::chkAuto2, "1",
         "Go to the next site when the expected number of links has been found (chkAuto2=1)"),
    Flag("--no-enough-links", setting::chkAuto2, "0",
         "Read on when the expected number of links has been found (chkAuto2=0)"),
    Flag("--redirects", setting::chkRedirect, "1",
         "Count links that lead through a redirect script (chkRedirect=1)"),
    Flag("--no-redirects", setting::chkRedirect, "0",
         "Do not count links that lead through a redirect script (chkRedirect=0)"),
    Flag("--update-urls", setting::chkUpdate, "1",
         "Make the page with the link the Website URL, where the next scan starts (chkUpdate=1)"),
    Flag("--no-update-urls", setting::chkUpdate, "0", "Leave each Website URL as it is (chkUpdate=0)"),
    Flag("--file-types", setting::chkFileTypes, "1",
         "Read only pages whose address has one of the endings in filetypes.txt (chkFileTypes=1)"),
    Flag("--no-file-types", setting::chkFileTypes, "0",
         "Read pages whatever their address ends in (chkFileTypes=0)"),
    Flag("--log-rules", setting::chkLog, "1",
         "Note in rules.log each page that a rule leaves out (chkLog=1)"),
    Flag("--no-log-rules", setting::chkLog, "0", "Keep no rules.log (chkLog=0)"),
    {"--pause", "MS", setting::PauseBetweenPages, Kind::Number, Lasts::Stored, "", 0, kMostPause,
     "Milliseconds between two pages of a host, when several sites are read side by side "
     "(PauseBetweenPages)"},
};

/// Digits only, as the settings store has them.
std::optional<int> WholeNumber(const std::string& text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

std::string TakePages(const std::string& value, SettingPairs& pairs) {
  const std::optional<int> pages = WholeNumber(value);
  const auto* const row = std::find_if(kPageLimits.begin(), kPageLimits.end(),
                                       [&](const PageLimitChoice& each) { return each.Pages == pages; });
  if (row == kPageLimits.end()) {
    std::string choices;
    for (const PageLimitChoice& each : kPageLimits) {
      const bool last = &each == &kPageLimits.back();
      choices += (choices.empty() ? "" : last ? " and " : ", ") + std::to_string(each.Pages);
    }
    return "\"" + value + "\" is not one of " + choices;
  }
  pairs.emplace_back(setting::chkAuto.Name, "1");
  pairs.emplace_back(setting::cmbAdvance.Name, std::to_string(row - kPageLimits.begin()));
  return {};
}

}  // namespace

std::span<const SettingWord> SettingWords() { return kWords; }

std::string TakeSettingWord(const SettingWord& word, const std::string& value, SettingPairs& pairs) {
  switch (word.Takes) {
    case Kind::Pages: return TakePages(value, pairs);
    case Kind::Number: {
      const std::optional<int> number = WholeNumber(value);
      if (!number || *number < word.Least || *number > word.Most) {
        return "\"" + value + "\" is not a number from " + std::to_string(word.Least) + " to " +
               std::to_string(word.Most);
      }
      pairs.emplace_back(word.Key.Name, std::to_string(*number));
      return {};
    }
    case Kind::Text:
      if (value != WithoutControlCharacters(value)) {
        return "the text holds a control character, such as a line end";
      }
      pairs.emplace_back(word.Key.Name, value);
      return {};
    case Kind::Fixed: pairs.emplace_back(word.Key.Name, word.Fixed); return {};
  }
  return {};
}

}  // namespace requite
