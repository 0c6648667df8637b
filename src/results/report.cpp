// SPDX-License-Identifier: MIT
// Writes the page of the Reciprocal Link Report and its files.
#include "results/report.h"

#include <fstream>

#include "platform/spooled_text.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "results/report_figures.h"
#include "results/report_for_view.h"
#include "results/report_sections.h"

namespace requite {
namespace {

void Line(SpooledText& page, std::string_view text) { page.Append(text).Append(kLineEnd); }

void Line(SpooledText& page, std::string_view before, std::string_view value, std::string_view after) {
  page.Append(before).Append(value).Append(after).Append(kLineEnd);
}

/// Writes no closing head tag; the page has no closing body or html tag either.
void WriteHead(SpooledText& page, Clock& clock) {
  Line(page, "<html>");
  Line(page, "<head>");
  Line(page, "<title>Reciprocal Link Report</title>");
  Line(page, "<body>");
  Line(page, "<H1>Reciprocal Link Report</H1>");
  Line(page, "Date: ", clock.ShortDate(), "<BR>");
  Line(page, "Time: ", clock.ShortTime(), "<BR><BR>");
  Line(page, "<hr>");
  Line(page, "<table cellpadding=5 border=0>");
}

void WriteOverview(SpooledText& page, const ReportFigures& figures, std::int32_t pagesScanned) {
  const auto row = [&page](std::string_view literal, std::int32_t value) {
    Line(page, literal, std::to_string(value), "</td></tr>");
  };
  page.Append("<tr><td colspan=2><b>Overview</b></td></tr>");
  row("<tr><td>Total Main Sites:</td><td> ", figures.TotalMain);
  row("<tr><td>Total Linking Sites:</td><td> ", figures.TotalLinking);
  row("<tr><td>Total Pages Scanned:</td><td> ", pagesScanned);
  row("<tr><td>Total Reciprocal Links:</td><td> ", figures.TotalReciprocal);
  row("<tr><td><li>Direct Links</li></td><td> ", figures.TotalDirect);
  row("<tr><td><li>Indirect Links</li></td><td> ", figures.TotalIndirect);
  row("<tr><td><li>Redirect Links</li></td><td> ", figures.TotalRedirect);
  row("<tr><td>Total Non-Linking Sites:</td><td> ", figures.TotalNonLinking);
  row("<tr><td>Total Errors:</td><td> ", figures.TotalErrors);
}

void WriteAverages(SpooledText& page, const ReportFigures& figures, std::int32_t pagesScanned, Clock& clock) {
  page.Append("<tr><td colspan=2>&nbsp</td></tr>");
  page.Append("<tr><td colspan=2><b>Percentages/Averages</b></td></tr>");
  const std::int32_t base = figures.TotalReciprocal + figures.TotalNonLinking;
  if (base <= 0) {
    Line(page, "<tr><td>Sites with Reciprocal Links:</td><td>0%</td></tr>");
    Line(page, "<tr><td>Sites with No Links:</td><td>100%</td></tr>");
    Line(page, "<tr><td>Average Pages Scanned Per Site:</td><td>0</td></tr></table><BR><BR>");
    return;
  }
  // The base is the number of counted result rows, not of sites: a site with many links counts as often.
  const double rows = base;
  Line(page, "<tr><td>Sites with Reciprocal Links:</td><td>",
       clock.TwoDecimals(figures.TotalReciprocal / rows * 100), "%</td></tr>");
  Line(page, "<tr><td>Sites with No Links:</td><td>", clock.TwoDecimals(figures.TotalNonLinking / rows * 100),
       "%</td></tr>");
  Line(page, "<tr><td>Average Pages Scanned Per Site:</td><td>", clock.TwoDecimals(pagesScanned / rows),
       "</td></tr></table><BR><BR>");
}

/// Deletes the old file first, so that a failure leaves none.
void WriteReport(const std::string& path, const SpooledText& page) {
  if (xfileExists(path)) DeleteFile(path);
  page.AppendTo(path);
}

bool IsReportFile(const std::string& path) {
  std::string begin(kReportBegin.size(), '\0');
  std::ifstream(path, std::ios::binary).read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return IsReport(begin);
}

/// A project saved without ".prj" has the same name as the copy of its report. Only a project is kept in
/// "Backup": the copy of the last report must not push one out.
void KeepProjectOf(const ProgramFolder& folder, const std::string& copy) {
  if (FileExists(copy) && !IsReportFile(copy)) MoveToBackup(folder, copy);
}

}  // namespace

void LinkReport::GenerateLinkReport() {
  const ReportFigures figures = CountFigures(parts_.Project, parts_.lstErr);
  const std::int32_t pagesScanned = parts_.Statistics.PagesScanned;
  SpooledText page(parts_.Folder.Path);  // it can get huge: sites of one host show each other's results
  WriteHead(page, parts_.Clock);
  WriteOverview(page, figures, pagesScanned);
  WriteAverages(page, figures, pagesScanned, parts_.Clock);
  Line(page, "<h1>Main Site Specific Overviews</h1>");
  ReportSections(parts_.Project, parts_.EventLoop).WriteTo(page);
  page.Append(kLineEnd);
  if (OnGenerated) OnGenerated(page);

  const std::string path = parts_.Work.File(kReportFile);
  WriteReport(path, page);
  parts_.WebBrowser2.Navigate(path);

  const std::string project = parts_.Settings.GetSetting(setting::LastProject);
  if (project.empty()) return;
  const std::string report = Replace(project, ".prj", ".html", Compare::Text);
  // The copy is written to the program's folder, wherever the project itself is.
  const std::string copy = parts_.Folder.File("Project Files/" + FileNameOfPath(report));
  if (report == project) KeepProjectOf(parts_.Folder, copy);
  WriteReport(copy, page);
}

}  // namespace requite
