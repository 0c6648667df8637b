// SPDX-License-Identifier: MIT
// The Reciprocal Link Report: an HTML page on how many Linking Sites link back, and from where.
#pragma once

#include <functional>
#include <string>

#include "model/project.h"
#include "model/settings.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/spooled_text.h"
#include "platform/work_folder.h"
#include "results/statistics.h"

namespace requite {

/// What the report reads, and the view that shows it.
struct ReportParts {
  requite::Project& Project;
  const RecordList<ErrorEntry>& lstErr;
  const requite::Statistics& Statistics;  ///< only PagesScanned is used
  requite::Settings Settings;
  requite::Clock& Clock;
  requite::EventLoop& EventLoop;
  const ProgramFolder& Folder;
  const WorkFolder& Work;
  BrowserView& WebBrowser2;
};

/// The name of the report among the work files. Save Report As copies this file.
inline constexpr std::string_view kReportFile = "tempreport.html";

class LinkReport {
 public:
  explicit LinkReport(ReportParts parts) : parts_(parts) {}

  /// Builds the page from the lists as they are, writes it to the report's file and shows it. A second
  /// copy is written to "Project Files" under the name of the last project; a project file with exactly that
  /// name, one without ".prj", is moved to "Backup" first. Lets events run while it builds the page.
  /// Throws file failures; a missing "Project Files" folder is one.
  void GenerateLinkReport();

  /// Called with the whole text of each report before its files are written.
  std::function<void(const SpooledText& page)> OnGenerated;

 private:
  ReportParts parts_;
};

}  // namespace requite
