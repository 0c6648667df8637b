// SPDX-License-Identifier: MIT
// The report as a view inside the program may show it: without markup from remote addresses.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace requite {

/// The start of every report, and of no other page of the program.
inline constexpr std::string_view kReportBegin = "<html>\r\n<head>\r\n<title>Reciprocal Link Report</title>";

/// Longer addresses are shown as text, not as links.
inline constexpr std::size_t kLongestLinkShown = 8192;

[[nodiscard]] inline bool IsReport(std::string_view page) { return page.starts_with(kReportBegin); }

/// The page with a content policy that loads nothing. A "<" stays only where it begins the report's own
/// markup, in a place where the report writes it; any other is escaped. So no address can hide what
/// follows it, lead elsewhere, or load anything. The text of a link is always its target. The page must
/// be a report; the time is linear in its length. Entities stay as they are, since they make no markup.
/// A style sheet is the program's own; it is put in unchanged.
[[nodiscard]] std::string ReportForView(std::string_view page, std::string_view styleSheet = {});

}  // namespace requite
