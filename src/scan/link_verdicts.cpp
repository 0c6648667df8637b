// SPDX-License-Identifier: MIT
// Hosts and directories have numbers, which are part of what is remembered.
#include "scan/link_verdicts.h"

#include <string>

namespace requite {

void LinkVerdicts::LookAgain() {
  deliveries_ = scan_.Platform.EventLoop.Deliveries();
  if (circumstances_.HaveChanged(scan_)) {
    memory_.Clear();
    places_.Clear();
  }
  NumberPlaces();
}

LinkVerdict LinkVerdicts::Recall(HashedText value) {
  if (deliveries_ != scan_.Platform.EventLoop.Deliveries()) LookAgain();
  return memory_.Recall(PlaceOf(value), value);
}

void LinkVerdicts::Remember(HashedText value, LinkVerdict verdict) {
  if (PlaceOf(value) != TextIndex::kNone) memory_.Remember(PlaceOf(value), value, verdict);
}

void LinkVerdicts::NumberPlaces() {
  constexpr std::size_t kLongest = 1000;
  constexpr std::uint32_t kMost = 1000;
  const std::string& host = scan_.State.Page.PageHost;
  host_ = directory_ = TextIndex::kNone;
  if (host.size() + scan_.State.PageDir.size() > kLongest) return;
  std::string place = std::to_string(host.size()) + ':' + host;
  host_ = places_.Add(HashedText(place));
  place += scan_.State.PageDir;
  directory_ = places_.Add(HashedText(place));
  if (directory_ < kMost) return;
  memory_.Clear();
  places_.Clear();
  NumberPlaces();
}

}  // namespace requite
