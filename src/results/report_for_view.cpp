// SPDX-License-Identifier: MIT
// The report's file repeats remote text unescaped and must stay that way: it is a given format. Browsers
// would read tags in that text, so the view gets a copy that escapes everything except the report's own
// markup.
#include "results/report_for_view.h"

#include <array>
#include <optional>

namespace requite {
namespace {

constexpr std::string_view kHead = "<html>\r\n<head>\r\n";
constexpr std::string_view kPolicy =
    "<meta http-equiv=Content-Security-Policy content=\"default-src 'none'; base-uri 'none'; "
    "form-action 'none'";
constexpr std::string_view kOwnStyle = "; style-src 'unsafe-inline'";
constexpr std::string_view kPolicyEnd = "\">\r\n";
constexpr std::string_view kSections = "<h1>Main Site Specific Overviews</h1>";
/// The tags before the sections; there is no remote text there.
constexpr std::array<std::string_view, 16> kOverviewTags{
    "<body>",   "<H1>", "</H1>", "<BR>", "<hr>",           "<table cellpadding=5 border=0>",
    "</table>", "<tr>", "</tr>", "<td>", "<td colspan=2>", "</td>",
    "<b>",      "</b>", "<li>",  "</li>"};

class ReportCopy {
 public:
  ReportCopy(std::string_view page, std::string_view styleSheet) : rest_(page), styleSheet_(styleSheet) {}

  std::string Make() {
    copy_.reserve(rest_.size() + rest_.size() / 8 + kPolicy.size());
    CopyMarkup(kHead.size());
    AppendPolicy();
    CopyMarkup(kReportBegin.size() - kHead.size());
    while (!rest_.empty()) {
      if (inSections_ ? CopySectionTag() : CopyOverviewTag()) continue;
      const std::string_view text = rest_.substr(0, rest_.find('<', 1));
      AppendText(text);
      rest_.remove_prefix(text.size());
    }
    return std::move(copy_);
  }

 private:
  void AppendPolicy() {
    copy_ += kPolicy;
    // Harmless where all of the report's text is escaped: no other style can get in.
    if (!styleSheet_.empty()) copy_ += kOwnStyle;
    copy_ += kPolicyEnd;
    if (styleSheet_.empty()) return;
    copy_.append("<style>").append(styleSheet_).append("</style>\r\n");
  }

  void CopyMarkup(std::size_t length) {
    copy_ += rest_.substr(0, length);
    rest_.remove_prefix(length);
  }

  void AppendText(std::string_view text) {
    for (const char each : text) {
      switch (each) {
        case '<': copy_ += "&lt;"; break;
        case '>': copy_ += "&gt;"; break;
        case '\'': copy_ += "&#39;"; break;  // it would end a target
        default: copy_ += each;
      }
    }
  }

  bool CopyOverviewTag() {
    inSections_ = rest_.starts_with(kSections);
    if (inSections_) {
      CopyMarkup(kSections.size());
      return true;
    }
    for (const std::string_view tag : kOverviewTags) {
      if (!rest_.starts_with(tag)) continue;
      CopyMarkup(tag.size());
      return true;
    }
    return false;
  }

  bool CopySectionTag() {
    constexpr std::string_view kBreak = "<BR>";
    if (!rest_.starts_with(kBreak)) return CopyHeading() || CopyLink();
    CopyMarkup(kBreak.size());
    return true;
  }

  /// The text between `begin`, with which the rest must begin, and the next `end`.
  [[nodiscard]] std::optional<std::string_view> Between(std::string_view begin, std::string_view end) const {
    if (!rest_.starts_with(begin)) return std::nullopt;
    const std::string_view window = rest_.substr(begin.size(), kLongestLinkShown + end.size());
    const std::size_t length = window.find(end);
    if (length == std::string_view::npos) return std::nullopt;
    return window.substr(0, length);
  }

  /// A Main Site up to the end of its line. A closing tag inside it is part of its text.
  bool CopyHeading() {
    constexpr std::string_view kBegin = "<h3>";
    constexpr std::string_view kEnd = "</h3>\r\n";
    const auto site = Between(kBegin, kEnd);
    if (!site) return false;
    copy_ += kBegin;
    AppendText(*site);
    copy_ += kEnd;
    rest_.remove_prefix(kBegin.size() + site->size() + kEnd.size());
    return true;
  }

  /// A link counts as one only when its whole target follows as its text, so nothing in the target is
  /// hidden.
  bool CopyLink() {
    constexpr std::string_view kBegin = "<a href='";
    constexpr std::string_view kMiddle = "'>";
    constexpr std::string_view kEnd = "</a><BR>";
    const auto target = Between(kBegin, kMiddle);
    if (!target) return false;
    const std::string_view after = rest_.substr(kBegin.size() + target->size() + kMiddle.size());
    if (!after.starts_with(*target) || !after.substr(target->size()).starts_with(kEnd)) return false;
    copy_ += kBegin;
    AppendText(*target);
    copy_ += kMiddle;
    AppendText(*target);
    copy_ += kEnd;
    rest_.remove_prefix(kBegin.size() + 2 * target->size() + kMiddle.size() + kEnd.size());
    return true;
  }

  std::string_view rest_;
  std::string_view styleSheet_;
  bool inSections_ = false;
  std::string copy_;
};

}  // namespace

std::string ReportForView(std::string_view page, std::string_view styleSheet) {
  return ReportCopy(page, styleSheet).Make();
}

}  // namespace requite
