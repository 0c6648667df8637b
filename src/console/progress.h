// SPDX-License-Identifier: MIT
// What a scan shows of itself while it runs, and whether its sites link back as they should.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "console/program.h"

namespace requite {

/// Watches the main window's figures. On a terminal one line is redrawn in place, elsewhere there is
/// one line a finished site. At the end comes one line that counts.
class ScanProgress {
 public:
  enum class Output { Terminal, Lines, None };

  /// Watches from here on until the end of its life.
  ScanProgress(ConsoleProgram& program, Output output);
  ~ScanProgress();
  ScanProgress(const ScanProgress&) = delete;
  ScanProgress& operator=(const ScanProgress&) = delete;

  /// Takes the redrawn line away, so that another line can be written. It comes back with the next change.
  void Clear();
  /// The scan has come to its end: tells how the sites did.
  void Summarise();
  /// Whether every site finished so far links back as often as expected.
  [[nodiscard]] bool AllLinkBack() const { return linkBack_ == finished_; }
  [[nodiscard]] std::int32_t SitesFinished() const { return finished_; }
  /// Runs at the end of each site, before its state is cleared.
  std::function<void()> OnSiteFinished;

 private:
  /// Tells the progress that something on a control has changed.
  class Watch : public ControlView {
   public:
    Watch(Control& control, std::function<void()> onChange);
    ~Watch() override { control_.SetView(nullptr); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    void Refresh(const Control&) override { onChange_(); }

   private:
    Control& control_;
    std::function<void()> onChange_;
  };

  void SiteFinished();
  void Redraw();
  void Draw(const std::string& text);
  [[nodiscard]] bool SiteLinksBack() const;
  [[nodiscard]] bool SiteNotReached() const;
  [[nodiscard]] std::int32_t SitesToScan() const;
  [[nodiscard]] std::string Position(std::int32_t number) const;

  ConsoleProgram& program_;
  Output output_;
  std::chrono::steady_clock::time_point start_;
  std::chrono::steady_clock::time_point drawn_;
  std::int32_t finished_ = 0;
  std::int32_t linkBack_ = 0;
  std::int32_t notReached_ = 0;
  bool lineOnShow_ = false;
  Watch sites_;
  Watch panels_;
};

}  // namespace requite
