// SPDX-License-Identifier: MIT
// Finds the removed tags that a text ends with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace requite {

/// The removed tags, each with the numbers of the passes that removed it, as a tree over their characters
/// from last to first. A path without a fork is one node.
class TagTree {
 public:
  using Pass = std::uint32_t;

  /// Passes must be added in rising order.
  void Add(std::string_view tag, Pass pass);

  /// Calls `visit(length, passes)` for every tag that `text` ends with, shorter ones first.
  template <class Visit>
  void ForEachEnding(std::string_view text, Visit&& visit) const {
    std::size_t matched = 0;
    for (NodeNumber node = 0;;) {
      if (!nodes_[node].Passes.empty()) visit(matched, nodes_[node].Passes);
      if (matched == text.size()) return;
      node = ChildFor(node, text[text.size() - 1 - matched]);
      if (node == kNone) return;
      const std::string_view label = nodes_[node].Label;
      if (!text.substr(0, text.size() - matched).ends_with(label)) return;
      matched += label.size();
    }
  }

 private:
  using NodeNumber = std::uint32_t;
  static constexpr NodeNumber kNone = 0;  // the root, which is never a child

  struct Node {
    std::string_view Label;  // in reading order; matched from its end
    std::vector<Pass> Passes;
  };

  [[nodiscard]] static std::uint64_t Edge(NodeNumber node, char last) {
    return std::uint64_t{node} << 8 | static_cast<unsigned char>(last);
  }
  [[nodiscard]] NodeNumber ChildFor(NodeNumber node, char last) const {
    const auto found = children_.find(Edge(node, last));
    return found == children_.end() ? kNone : found->second;
  }
  NodeNumber AddChild(NodeNumber node, std::string_view label);
  NodeNumber SplitAt(NodeNumber parent, NodeNumber node, std::size_t length);

  std::deque<std::string> tags_;  // the labels look into these
  std::vector<Node> nodes_{Node{}};
  std::unordered_map<std::uint64_t, NodeNumber> children_;  // by Edge
};

}  // namespace requite
