// SPDX-License-Identifier: MIT
// Each pass would remove one tag from the whole text; this walks the text only once. The text is cut
// after each ">". Since no tag holds a ">" except at its end, a piece loses its end in the first pass
// whose tag it ends with. The rest of such a piece joins the next piece from that pass on.
#include "import/strip_tags.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "import/tag_tree.h"

namespace requite {
namespace {

class TagStripper {
 public:
  /// Adds a piece of the text whose only ">" is at its end.
  void AddPiece(std::string_view piece) {
    joined_.push_back({waiting_.size(), 0});
    waiting_ += piece;
    if (const std::optional<Removal> removal = FirstRemoval()) {
      RemoveEnd(*removal);
      return;
    }
    // All pieces before it have been removed, so it comes first now, unless one was found to stay.
    const std::size_t open = stopped_ ? std::string::npos : waiting_.find('<');
    stopped_ = stopped_ || open == std::string::npos;
    if (!stopped_) {
      tags_.Add(std::string_view(waiting_).substr(open), ++passes_);
      waiting_.resize(open);
    }
    Flush();
  }

  [[nodiscard]] std::string Finish(std::string_view tail) {
    Flush();
    return std::move(result_.append(tail));
  }

 private:
  using Pass = TagTree::Pass;

  struct Removal {
    Pass By;
    std::size_t Length;
  };
  /// A stretch of the waiting text, and the pass after which it belongs to the last piece.
  struct Joined {
    std::size_t Begin;
    Pass Since;
  };

  /// The earliest pass whose tag the piece ended with at that time.
  [[nodiscard]] std::optional<Removal> FirstRemoval() const {
    std::optional<Removal> first;
    auto stretch = joined_.rbegin();
    tags_.ForEachEnding(waiting_, [&](std::size_t length, const std::vector<Pass>& passes) {
      while (waiting_.size() - length < stretch->Begin) ++stretch;
      const auto pass = std::upper_bound(passes.begin(), passes.end(), stretch->Since);
      if (pass != passes.end() && (!first || *pass < first->By)) first = {*pass, length};
    });
    return first;
  }

  void RemoveEnd(const Removal& removal) {
    waiting_.resize(waiting_.size() - removal.Length);
    std::size_t begin = waiting_.size();
    while (!joined_.empty() &&
           (joined_.back().Since < removal.By || joined_.back().Begin >= waiting_.size())) {
      begin = std::min(begin, joined_.back().Begin);
      joined_.pop_back();
    }
    if (begin < waiting_.size()) joined_.push_back({begin, removal.By});
  }

  void Flush() {
    result_ += waiting_;
    waiting_.clear();
    joined_.clear();
  }

  TagTree tags_;
  Pass passes_ = 0;
  bool stopped_ = false;
  std::string result_;
  std::string waiting_;
  std::vector<Joined> joined_;  // from left to right; those further left joined later
};

}  // namespace

std::string StripTags(std::string_view text) {
  TagStripper stripper;
  std::size_t begin = 0;
  for (std::size_t end = text.find('>'); end != std::string_view::npos; end = text.find('>', begin)) {
    stripper.AddPiece(text.substr(begin, end + 1 - begin));
    begin = end + 1;
  }
  return stripper.Finish(text.substr(begin));
}

}  // namespace requite
