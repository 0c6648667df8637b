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

/// The file `spider.mdb` of the program's folder. It is never made here: without it each operation fails in
/// its own way. Each call opens the file, does its one job and closes it; another program that holds the file
/// is waited for a fraction of a second only. Texts lie in the file as UTF-8, dates as ISO text in local
/// time. All references must outlive this object.
class modDatabase {
 public:
  /// Characters that a field holds; a longer value is the engine's failure.
  static constexpr std::size_t kFieldLength = 255;

  modDatabase(const ProgramFolder& folder, Clock& clock, Statistics& figures, PageQueue& list2)
      : folder_(folder), clock_(clock), figures_(figures), List2_(list2) {}

  /// Adds a row, whether or not there is one like it. Takes what is left of a scheme and outer blanks off
  /// `url`, in place. Always true: failures are passed over.
  bool AddWebsite(std::string& url);
  /// Adds a row without changing the address. False when it failed.
  bool AddEmail(const std::string& email);
  /// Whether the address is stored, in any case of letters. Takes one full stop at the end and outer blanks
  /// off `email`, in place. A failure counts as false. The text goes into the statement as it stands, so a
  /// caller that does not type it in by hand tests its form first.
  [[nodiscard]] bool EmailExists(std::string& email);
  /// Always true; failures are passed over. Sets LinksFound to 0, which once counted e-mails.
  bool DeleteAllEmails();
  /// Empties List2 and sets PagesFound and PagesScanned to 0 as well; true.
  /// Throws RuntimeFailure when the rows cannot be deleted; then nothing else has been changed either.
  bool DeleteAllWebsites();

  /// Each stored address in the table's order. Throws RuntimeFailure, also behind some of the rows.
  void ForEachEmail(const std::function<void(std::string_view email)>& take) const;

 private:
  [[nodiscard]] std::string Path() const { return folder_.File("spider.mdb"); }

  const ProgramFolder& folder_;
  Clock& clock_;
  Statistics& figures_;
  PageQueue& List2_;
};

}  // namespace requite
