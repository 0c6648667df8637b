// SPDX-License-Identifier: MIT
// A header has one blank line, at its end. So this searches for blank lines and compares the text before each
// with the header, backwards. No comparison reaches past the blank line before, so all of them together read
// the page once, however long and repetitive header and page are.
#include "scan/response_header.h"

#include <algorithm>

#include "platform/fold_table.h"

namespace requite {
namespace {

constexpr std::string_view kBlankLine = "\r\n\r\n";

bool EndsWithHeader(std::string_view text, std::string_view header) {
  if (text.size() < header.size()) return false;
  return std::equal(header.rbegin(), header.rend(), text.rbegin(), [](char a, char b) {
    return kFoldTable[static_cast<unsigned char>(a)] == kFoldTable[static_cast<unsigned char>(b)];
  });
}

/// Moves the pieces that are kept together. What comes before the first one that is dropped stays in place.
class Compaction {
 public:
  /// `begin` is where the part begins of which something may be dropped.
  Compaction(std::string& text, std::size_t begin) : text_(text), kept_(begin), rest_(begin) {}

  /// Where the part begins that is neither kept nor dropped yet.
  [[nodiscard]] std::size_t Rest() const { return rest_; }
  void Drop(std::size_t begin, std::size_t end) {
    Keep(begin);
    rest_ = end;
  }
  void Finish() {
    Keep(text_.size());
    text_.resize(kept_);
  }

 private:
  void Keep(std::size_t end) {
    if (kept_ != rest_) std::copy(text_.data() + rest_, text_.data() + end, text_.data() + kept_);
    kept_ += end - rest_;
  }

  std::string& text_;
  std::size_t kept_;
  std::size_t rest_;
};

}  // namespace

std::size_t RemoveHeader(std::string& response, std::string_view header, const Slices& slices) {
  if (header.empty()) return 0;
  const TextFinder mark(header.ends_with(kBlankLine) ? kBlankLine : header);
  const std::size_t markSize = mark.Pattern().size();
  const std::string_view text = response;
  Compaction body(response, header.size());
  std::size_t from = header.size();
  for (std::size_t slice = from + slices.Bytes;; slice += slices.Bytes) {
    const std::string_view window = text.substr(0, slice);
    for (std::size_t at = mark.Find(window, from); at != std::string_view::npos;
         at = mark.Find(window, from)) {
      from = at + 1;
      const std::size_t end = at + markSize;
      if (!EndsWithHeader(text.substr(body.Rest(), end - body.Rest()), header)) continue;
      body.Drop(end - header.size(), end);
      from = end;
    }
    if (window.size() == text.size()) break;
    from = std::max(from, window.size() - (markSize - 1));
    if (!slices.GoOn()) return header.size();
  }
  body.Finish();
  return header.size();
}

}  // namespace requite
