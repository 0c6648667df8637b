// SPDX-License-Identifier: MIT
// Reads the status and the Location of a header block.
#include "scan/site_answers.h"

#include <algorithm>

#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kLocation = "Location:";
constexpr std::size_t kMostHeader = std::size_t{64} * 1024;  // of a header without end no more is searched

/// The first digit of the status is that of all redirects; nothing else of a status counts here.
bool IsRedirect(std::string_view header) {
  const std::size_t blank = header.find(' ');
  return blank != std::string_view::npos && header.substr(blank + 1).starts_with('3');
}

/// The value of the first Location; empty without one.
std::string_view LocationOf(std::string_view header) {
  header = header.substr(0, kMostHeader);
  while (!header.empty()) {
    const std::size_t end = header.find('\n');
    const std::string_view line = header.substr(0, end);
    if (StartsWith(line, kLocation, Compare::Text)) return line.substr(kLocation.size());
    if (end == std::string_view::npos) break;
    header.remove_prefix(end + 1);
  }
  return {};
}

}  // namespace

bool IsHttpsAddress(std::string_view address) { return StartsWith(address, kHttps, Compare::Text); }

PageAnswer AnswerOf(std::string_view header) {
  if (header.empty()) return PageAnswer::SaysNothing;
  if (!IsRedirect(header)) return PageAnswer::Read;
  std::string_view location = LocationOf(header);
  location.remove_prefix(std::min(location.find_first_not_of(" \t"), location.size()));
  return IsHttpsAddress(location) ? PageAnswer::SentToHttps : PageAnswer::SaysNothing;
}

void SiteAnswers::BeginPage() {
  sentToHttps_ = sentToHttps_ || page_ == PageAnswer::SentToHttps;
  read_ = read_ || page_ == PageAnswer::Read;
  page_ = PageAnswer::Awaited;
}

bool SiteAnswers::HttpsOnly() const {
  return (sentToHttps_ || page_ == PageAnswer::SentToHttps) && !read_ && page_ != PageAnswer::Read;
}

}  // namespace requite
