// SPDX-License-Identifier: MIT
// Notes the sites of a running scan and stores them when it has ended.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "history/change.h"
#include "history/site_record.h"
#include "model/project.h"
#include "model/settings.h"
#include "platform/files.h"
#include "scan/site_verdict.h"

namespace requite {

/// Whether scans are to be recorded. Compared as a text: anything but "1" is off, and nothing fails.
[[nodiscard]] bool KeepsHistory(const Settings& settings);

/// The name of a project in the history: the absolute path of its file. Empty for a project without a file.
[[nodiscard]] std::string NameInHistory(const std::string& path);

/// For one scan. While it runs nothing is read from the disk or written. The project must outlive it.
class ScanRecorder : public SiteEvents {
 public:
  /// `path` is the file of the project, or empty for one that was never saved; `started` a UTC date.
  ScanRecorder(const Project& project, const std::string& path, std::string started);

  void SiteBegins(const ScannedSite&) override {}
  void SiteFinished(const SiteVerdict& verdict) override;
  /// The user skips the current site, which is not recorded then.
  void SiteIsSkipped() { skipping_ = true; }
  /// The user stops the scan.
  void ScanIsStopped() { stopped_ = true; }

  /// Stores the scan and returns what it changed; nothing when there is no older scan, or when no site was
  /// finished, which is not stored. Of `figures`, its end, type and counters are used. Throws RuntimeFailure:
  /// the scan is not in the history then, and the description is one line that says why. A project that was
  /// never saved is such a failure: there is no name to find it under again.
  std::optional<ChangeCounts> Store(const ProgramFolder& folder, ScanRecord figures);

 private:
  [[nodiscard]] std::string UrlInList(const ScannedSite& site) const;
  [[nodiscard]] std::vector<LinkRecord> TakeLinks(const ScannedSite& site, std::size_t count);

  const Project& project_;
  std::string path_;
  std::string started_;
  std::vector<SiteRecord> sites_;
  std::unordered_map<std::string, std::multiset<std::string>> given_;  ///< result rows, by their sites' names
  bool skipping_ = false;
  bool stopped_ = false;
};

}  // namespace requite
