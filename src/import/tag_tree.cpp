// SPDX-License-Identifier: MIT
// Adding tags to the tree.
#include "import/tag_tree.h"

#include <algorithm>

namespace requite {
namespace {

std::size_t CommonEnd(std::string_view a, std::string_view b) {
  const auto differ = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
  return static_cast<std::size_t>(differ.first - a.rbegin());
}

}  // namespace

TagTree::NodeNumber TagTree::AddChild(NodeNumber node, std::string_view label) {
  const auto child = static_cast<NodeNumber>(nodes_.size());
  nodes_.push_back({label, {}});
  children_[Edge(node, label.back())] = child;
  return child;
}

/// Inserts a node with the last `length` characters of a node's label between it and its parent.
TagTree::NodeNumber TagTree::SplitAt(NodeNumber parent, NodeNumber node, std::size_t length) {
  const std::string_view label = nodes_[node].Label;
  const NodeNumber upper = AddChild(parent, label.substr(label.size() - length));
  nodes_[node].Label.remove_suffix(length);
  children_[Edge(upper, nodes_[node].Label.back())] = node;
  return upper;
}

void TagTree::Add(std::string_view tag, Pass pass) {
  NodeNumber node = 0;
  std::string_view rest = tag;
  while (!rest.empty()) {
    const NodeNumber child = ChildFor(node, rest.back());
    if (child == kNone) {
      node = AddChild(node, tags_.emplace_back(rest));
      break;
    }
    const std::size_t common = CommonEnd(nodes_[child].Label, rest);
    node = common < nodes_[child].Label.size() ? SplitAt(node, child, common) : child;
    rest.remove_suffix(common);
  }
  nodes_[node].Passes.push_back(pass);
}

}  // namespace requite
