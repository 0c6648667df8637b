// SPDX-License-Identifier: MIT
// Finds the end of a value in one pass and lets events run every few kilobytes.
#include "scan/href_value.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kHref = "href=";
constexpr std::size_t kSlice = 4096;  // bytes between two yields

/// The length of the text before its first quote or ">".
std::size_t LengthOfValue(std::string_view text) {
  for (const char end : {'"', '>', '\''}) text = Before(text, end);
  return text.size();
}

/// The offset of the first quote or ">", or the length of the text. Nothing after a stop.
std::optional<std::size_t> FindTerminator(std::string_view text, const bool& scanning, EventLoop& events) {
  for (std::size_t from = 0; scanning; from += kSlice) {
    if (from > 0) events.LetPendingEventsRun();
    const std::string_view slice = text.substr(from, kSlice);
    const std::size_t length = LengthOfValue(slice);
    if (length < slice.size() || text.size() - from <= kSlice) return from + length;
  }
  return std::nullopt;
}

/// Drops a quote at the start: first a double one, then a single one.
std::string_view WithoutOpeningQuote(std::string_view text) {
  if (text.starts_with('"')) text.remove_prefix(1);
  if (text.starts_with('\'')) text.remove_prefix(1);
  return text;
}

/// How much is kept of a text whose value ends at `end`.
std::size_t KeptLength(std::size_t length, std::size_t end) {
  if (end + 1 < length) return end;
  return length - std::min<std::size_t>(length, 2);
}

/// The bytes that may end a plain value: quotes, ">" and blank.
constexpr std::array<bool, 256> kEnds = [] {
  std::array<bool, 256> ends{};
  for (const char end : {'"', '>', '\'', ' '}) ends[static_cast<unsigned char>(end)] = true;
  return ends;
}();

}  // namespace

Cut CutHrefValue(std::string_view line, const bool& scanning, EventLoop& events, std::string_view& value) {
  const std::string_view rest = WithoutOpeningQuote(line.substr(kHref.size()));
  const std::optional<std::size_t> end = FindTerminator(rest, scanning, events);
  if (!end) return Cut::Stopped;
  // When nothing is left after "href=", there is no value.
  const std::size_t kept = KeptLength(rest.size() + kHref.size(), *end + kHref.size());
  if (kept <= kHref.size()) return Cut::TooShort;
  const std::string_view text = rest.substr(0, kept - kHref.size());
  value = Before(text.substr(std::min(text.find_first_not_of(' '), text.size())), ' ');
  return Cut::Done;
}

std::optional<std::string_view> PlainHrefValue(std::string_view line, std::size_t longest) {
  const std::string_view rest = WithoutOpeningQuote(line.substr(kHref.size()));
  const std::size_t most = std::min(longest + 1, rest.size());
  std::size_t end = 0;
  while (end < most && !kEnds[static_cast<unsigned char>(rest[end])]) ++end;
  if (end == 0 || end == most || end + 1 >= rest.size() || rest[end] == ' ') return std::nullopt;
  return rest.substr(0, end);
}

}  // namespace requite
