// SPDX-License-Identifier: MIT
// What came of the links of a site, as long as it would come of them again.
#pragma once

#include <cstdint>

#include "platform/text_index.h"
#include "scan/link_circumstances.h"
#include "scan/link_memory.h"
#include "scan/scan_context.h"

namespace requite {

/// Whatever an event may change is looked at again only after events have run: a look takes longer than the
/// verdict of a link.
class LinkVerdicts {
 public:
  /// The context must outlive this object.
  explicit LinkVerdicts(const ScanContext& scan) : scan_(scan) {}

  /// To be called at the start of each page, and after a change of the project or the scan state by the
  /// analyser.
  void LookAgain();
  /// To be called a few links before Recall.
  void Expect(HashedText value) const { memory_.Expect(PlaceOf(value), value); }
  /// What came of a value on the current page, or on another one with the same directory.
  [[nodiscard]] LinkVerdict Recall(HashedText value);
  /// No events may have run since Recall.
  void Remember(HashedText value, LinkVerdict verdict);

 private:
  /// A value with a slash in front leads to the same page from every directory of the host.
  [[nodiscard]] std::uint32_t PlaceOf(HashedText value) const {
    return value.Text.starts_with('/') ? host_ : directory_;
  }
  void NumberPlaces();

  const ScanContext& scan_;
  LinkCircumstances circumstances_;
  LinkMemory memory_;
  TextIndex places_;
  std::uint32_t host_ = TextIndex::kNone;
  std::uint32_t directory_ = TextIndex::kNone;
  std::uint64_t deliveries_ = 0;
};

}  // namespace requite
