// SPDX-License-Identifier: MIT
// The numbered Linking Site lists of a project.
#include "model/project.h"

#include <limits>

namespace requite {

std::string WebsiteKey::Of(std::string_view url) { return Lower(Replace(url, "www.", "", Compare::Binary)); }

Project::Project() {
  lists_.push_back(std::make_unique<LinkingSiteList>("List1(0)"));
  lists_.front()->SetVisible(false);
  lists_.front()->SetEnabled(false);
}

LinkingSiteList& Project::List1(int k) {
  if (k < 0 || k >= static_cast<int>(lists_.size())) throw RuntimeFailure(Failure::Subscript);
  return *lists_[static_cast<std::size_t>(k)];
}

const LinkingSiteList& Project::List1(int k) const {
  if (k < 0 || k >= static_cast<int>(lists_.size())) throw RuntimeFailure(Failure::Subscript);
  return *lists_[static_cast<std::size_t>(k)];
}

LinkingSiteList& Project::CreateLinkingSiteList() {
  const int k = static_cast<int>(lists_.size());
  if (k > std::numeric_limits<std::int16_t>::max()) throw RuntimeFailure(Failure::Overflow);
  lists_.push_back(std::make_unique<LinkingSiteList>("List1(" + std::to_string(k) + ")"));
  LinkingSiteList& list = *lists_.back();
  list.SetVisible(false);
  list.SetEnabled(false);
  if (OnListCreated) OnListCreated(list, k);
  return list;
}

void Project::DropLinkingSiteLists() {
  while (lists_.size() > 1) {
    if (OnListDropped) OnListDropped(*lists_.back(), ListCount());
    lists_.pop_back();
  }
}

void Project::AddMainSite(std::string text) {
  CreateLinkingSiteList();
  List4.Add({std::move(text)});
}

}  // namespace requite
