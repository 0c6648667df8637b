// SPDX-License-Identifier: MIT
// What the steps of a lane work on in place of the program: nothing that they do shows anywhere.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/project.h"
#include "platform/controls.h"
#include "platform/services.h"
#include "runahead/site_plan.h"
#include "scan/scan_context.h"

namespace requite {

/// The settings as they are, without what would be written or heard.
class LaneSettings : public SettingsStore {
 public:
  explicit LaneSettings(SettingsStore& store) : store_(store) {}
  [[nodiscard]] std::optional<std::string> Read(std::string_view key) override;
  void Write(std::string_view, std::string_view) override {}

 private:
  SettingsStore& store_;
};

/// Steps of a lane run in one go: the scan, the user and other lanes wait until they return.
class NoYield : public EventLoop {
 public:
  void LetPendingEventsRun() override {}
  [[nodiscard]] std::uint64_t Deliveries() const override { return 0; }
};

class NoTimer : public Timer {
 public:
  void Start(int) override {}
  void Stop() override {}
};

class NoDialogs : public Dialogs {
 public:
  Answer Show(const MessageBox&) override { return Answer::Cancel; }
  std::string AskOpenName(const FileDialog&) override { return {}; }
  std::string AskSaveName(const FileDialog&) override { return {}; }
};

class NoSounds : public SoundPlayer {
 public:
  void PlaySoundFile(const std::string&) override {}
};

class NoScanHost : public ScanHost {
 public:
  void SelectMainSite(int) override {}
  void UpdateStats(Counted) override {}
  void ResetPageCounters() override {}
  void ResetSiteCounters() override {}
  void GenerateLinkReport() override {}
  void TellWorkFilesUnwritten() override {}
  void SiteBegins(const ScannedSite&) override {}
  void SiteFinished(const SiteVerdict&) override {}
};

/// The controls that steps show themselves in, which nobody sees.
struct LaneControls {
  Button Any{"", ""};
  Frame Frame1{""};
  Menu Choices{"", "", {}};
  StatusBar StatusBar1{""};
  ProgressBar pb1{""};
  TextBox Text{""};

  [[nodiscard]] ScanWindow Window() {
    return {Any, Any, Any, Any,    Any,     Any,     Any,        Any, Any,  Any,
            Any, Any, Any, Frame1, Choices, Choices, StatusBar1, pb1, Text, Text};
  }
};

/// Shared by all lanes. The project is a copy, because a scan rewrites rows as it goes; it is only ever as
/// true as a forecast has to be.
class LaneSurroundings {
 public:
  /// The scan whose pages are foretold.
  explicit LaneSurroundings(ScanContext& scan);

  /// Makes the rows that a site is judged by like those of the scan.
  void Prepare(const PlannedSite& site);
  /// To be called before each step of a lane.
  void Enter(const PlannedSite& site);

  [[nodiscard]] ScanContext& Scan() { return scan_; }
  [[nodiscard]] Services ServicesFor(Connection& connection);
  [[nodiscard]] requite::Project& Project() { return project_; }
  [[nodiscard]] ScanWindow Window() { return controls_.Window(); }
  [[nodiscard]] ScanHost& Host() { return host_; }
  [[nodiscard]] WorkFolder& Work() { return work_; }
  [[nodiscard]] requite::Settings Settings() { return requite::Settings(settings_); }

 private:
  void CopyMainSites();
  void CopyRules();
  void CopyList(int k);

  ScanContext& scan_;
  requite::Project project_;
  std::uint64_t rulesVersion_ = 0;
  std::vector<bool> copied_;  ///< by the number of the list
  LaneControls controls_;
  LaneSettings settings_;
  WorkFolder work_;
  NoYield loop_;
  NoTimer timer_;
  NoDialogs dialogs_;
  NoSounds sounds_;
  NoScanHost host_;
};

}  // namespace requite
