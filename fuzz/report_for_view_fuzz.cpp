// SPDX-License-Identifier: MIT
// Any report: the copy for the view begins with its policy, holds no tag but those of a report, and loses no
// text.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "results/report_for_view.h"

namespace {

constexpr std::array<std::string_view, 21> kTags{"html", "head", "title", "/title", "meta", "body",   "H1",
                                                 "/H1",  "BR",   "hr",    "table",  "tr",   "/table", "/tr",
                                                 "td",   "/td",  "b",     "/b",     "li",   "a",      "h1"};

bool IsKnownTag(std::string_view rest) {
  const std::string_view name = rest.substr(0, rest.find_first_of(" >"));
  const auto is = [&](std::string_view tag) { return tag == name; };
  return std::any_of(kTags.begin(), kTags.end(), is) || is("/li") || is("/a") || is("/h1") || is("h3") ||
         is("/h3");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string page =
      std::string(requite::kReportBegin).append(reinterpret_cast<const char*>(data), size);
  const std::string copy = requite::ReportForView(page);
  if (copy.find("Content-Security-Policy") > requite::kReportBegin.size()) std::abort();
  for (std::size_t at = copy.find('<'); at != std::string::npos; at = copy.find('<', at + 1)) {
    if (!IsKnownTag(std::string_view(copy).substr(at + 1))) std::abort();
  }
  const auto signs = [](std::string_view text) { return std::count(text.begin(), text.end(), '"'); };
  if (signs(copy) < signs(page)) std::abort();
  return 0;
}
