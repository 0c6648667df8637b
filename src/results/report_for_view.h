// SPDX-License-Identifier: MIT
// The report as a view inside the program may show it: nothing that an address holds is markup there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace requite {

/// What every report begins with, and no other page of the program.
inline constexpr std::string_view kReportBegin = "<html>\r\n<head>\r\n<title>Reciprocal Link Report</title>";

/// Addresses that are longer are shown as text and are no links.
inline constexpr std::size_t kLongestLinkShown = 8192;

[[nodiscard]] inline bool IsReport(std::string_view page) { return page.starts_with(kReportBegin); }

/// The page with a content policy that loads nothing, and with those "<" alone left as they are that begin
/// the report's own markup, where the report writes it; each other one is shown as "<". So no address hides
/// what follows it, leads elsewhere, or loads anything. The text of a link is always its target. The page
/// must be a report; the time is linear in its length. Entities stay as they are: they make no markup.
[[nodiscard]] std::string ReportForView(std::string_view page);

}  // namespace requite
