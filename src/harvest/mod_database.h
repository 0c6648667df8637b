// SPDX-License-Identifier: MIT
// The store of the harvesters: websites to visit and e-mail addresses found, in one SQLite file.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/project.h"
#include "platform/files.h"
#include "platform/services.h"
#include "results/statistics.h"

namespace requite {

/// The file `spider.mdb` in the program's folder, which is never created here: without it each operation
/// fails in its own way. Each call opens the file, does one thing and closes it, and waits a fraction of
/// a second for another program that holds it. Texts are stored as UTF-8, dates as ISO text in local
/// time. All references must outlive this object.
class modDatabase {
 public:
  /// Characters that a field can hold. A longer value fails.
  static constexpr std::size_t kFieldLength = 255;

  modDatabase(const ProgramFolder& folder, Clock& clock, Statistics& figures, PageQueue& list2)
      : folder_(folder), clock_(clock), figures_(figures), List2_(list2) {}

  /// Adds a row even if there is one like it. Removes what is left of a scheme and blanks at both ends
  /// from `url`, in place. Always returns true: failures are passed over.
  bool AddWebsite(std::string& url);
  /// Adds a row and leaves the address as it is. Returns false when that failed.
  bool AddEmail(const std::string& email);
  /// Whether the address is stored, in any letter case. Removes one full stop at the end and blanks at
  /// both ends from `email`, in place. Returns false on a failure. The text is pasted into the SQL
  /// statement: unless the user typed it, call IsValidEmail first.
  [[nodiscard]] bool EmailExists(std::string& email);
  /// Always returns true; failures are passed over. Sets LinksFound to 0, which once counted e-mails.
  bool DeleteAllEmails();
  /// Empties List2 and sets PagesFound and PagesScanned to 0 as well. Returns true. Throws RuntimeFailure
  /// when the rows cannot be deleted; nothing else has changed then.
  bool DeleteAllWebsites();

  /// Calls `take` for each stored address in the table's order. Throws RuntimeFailure, possibly after
  /// some of the rows.
  void ForEachEmail(const std::function<void(std::string_view email)>& take) const;

 private:
  [[nodiscard]] std::string Path() const { return folder_.File("spider.mdb"); }

  const ProgramFolder& folder_;
  Clock& clock_;
  Statistics& figures_;
  PageQueue& List2_;
};

}  // namespace requite
