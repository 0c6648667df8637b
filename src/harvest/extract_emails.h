// SPDX-License-Identifier: MIT
// Collects e-mail addresses from a saved page. No command on screen leads here: scripts call it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "harvest/email_line.h"
#include "harvest/email_pattern.h"
#include "harvest/mod_database.h"
#include "scan/scan_context.h"

namespace requite {

class EmailHarvester : private EmailLineReader {
 public:
  /// Both must outlive this object. `scanNextPage` is the step that follows.
  EmailHarvester(ScanContext& scan, modDatabase& database, std::function<void()> scanNextPage)
      : scan_(scan), database_(database), scanNextPage_(std::move(scanNextPage)) {}

  /// Reads the flat page file of a connection, stores and counts each new address, then calls
  /// ScanNextPage. Lets events run often; stopping the scan ends it in the middle of a line. Failures are
  /// passed over.
  void ExtractEmails(std::int16_t connection);
  [[nodiscard]] bool IsValidEmail(std::string_view text) const { return pattern_.IsValidEmail(text); }

 private:
  void ReadLines(std::int16_t connection);
  [[nodiscard]] bool GoesOn(std::size_t characters) override;
  [[nodiscard]] bool TakeLongAddress(std::size_t staying) override;
  void TakeHalves(const std::string& left, std::string_view right) override;
  /// Counts and announces a new address. `addWebsite` returns whether its website is new.
  template <class AddWebsite>
  void CountAddress(AddWebsite&& addWebsite);
  [[nodiscard]] bool AddWebsiteOf(const std::string& right);

  ScanContext& scan_;
  modDatabase& database_;
  std::function<void()> scanNextPage_;
  EmailPattern pattern_;
};

}  // namespace requite
