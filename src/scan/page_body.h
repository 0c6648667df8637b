// SPDX-License-Identifier: MIT
// The text of a page on its way from the connection to the triage.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace requite {

/// The end of a text: a response keeps its header in front of the body, because to move megabytes a few
/// hundred bytes forward takes longer than to say where they begin.
class PageBody {
 public:
  PageBody() = default;
  /// `begin` must not be greater than the size of the text.
  PageBody(std::string text, std::size_t begin = 0) : text_(std::move(text)), begin_(begin) {}

  [[nodiscard]] std::string_view View() const { return std::string_view(text_).substr(begin_); }

 private:
  std::string text_;
  std::size_t begin_ = 0;
};

}  // namespace requite
