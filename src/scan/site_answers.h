// SPDX-License-Identifier: MIT
// Whether all that a site answers over plain HTTP is the way to its secure pages.
#pragma once

#include <cstdint>
#include <string_view>

namespace requite {

/// What the answer for one page says about this.
enum class PageAnswer : std::uint8_t {
  Awaited,      ///< it has not come yet
  SaysNothing,  ///< it is empty, or the page is at another plain address
  SentToHttps,  ///< the page is at an address that begins with "https://"
  Read,         ///< the server answers over plain HTTP; an error page is an answer too
};

/// What a header block says. It may be cut anywhere, and no server has to keep to the rules.
[[nodiscard]] PageAnswer AnswerOf(std::string_view header);

/// Whether an address begins with "https://", in any letter case.
[[nodiscard]] bool IsHttpsAddress(std::string_view address);

/// The answers of one site. They are only noted: no step of the scan looks at them.
class SiteAnswers {
 public:
  void BeginPage();
  /// The current page is answered.
  void NotePage(PageAnswer answer) { page_ = answer; }
  /// What became of the page's move replaces the note. A page that is not answered yet has not moved: a Skip
  /// has begun another site in the middle of a page, and the page says nothing of that site.
  void NoteMove(PageAnswer answer) {
    if (page_ != PageAnswer::Awaited) page_ = answer;
  }
  /// Some page was sent to https, and no page could be read.
  [[nodiscard]] bool HttpsOnly() const;

 private:
  PageAnswer page_ = PageAnswer::Awaited;
  bool sentToHttps_ = false;  ///< by pages before the current one
  bool read_ = false;         ///< likewise
};

}  // namespace requite
