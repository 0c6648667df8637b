// SPDX-License-Identifier: MIT
// Reads any bytes as a project file. What was read must be consistent, and unless a text of it would be
// misread in a file, what is written from it must read back the same.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

#include "model/project_reader.h"
#include "model/project_text.h"

namespace {

using namespace requite;

void Require(bool holds) {
  if (!holds) std::abort();
}

bool HoldsMarker(std::string_view text) {
  const std::array markers{marker::kNextSite, marker::kHtml1, marker::kHtml2,      marker::kHtml3,
                           marker::kResult,   marker::kRule,  marker::kPostSingle, marker::kPostMulti};
  return std::any_of(markers.begin(), markers.end(),
                     [&](std::string_view each) { return text.find(each) != std::string_view::npos; });
}

bool AnyFieldHoldsMarker(const ListView& list) {
  for (std::size_t row = 0; row < list.RowCount(); ++row) {
    for (std::size_t column = 0; column < list.ColumnCount(); ++column) {
      if (HoldsMarker(list.FieldAt(row, column))) return true;
    }
  }
  return false;
}

/// Whether every text of the project keeps its place in a file.
bool SurvivesAFile(const Project& project) {
  if (project.List4.Empty()) return false;
  for (std::size_t row = 1; row < project.List4.RowCount(); ++row) {
    const std::string& text = project.List4.At(row).Text;
    if (text.empty() || HoldsMarker(text)) return false;
  }
  for (int k = 1; k <= project.ListCount(); ++k) {
    if (AnyFieldHoldsMarker(project.List1(k))) return false;
  }
  for (const TextBox* box : {&project.txtHTML1, &project.txtHTML2, &project.txtHTML3}) {
    if (box->Text().empty() || HoldsMarker(box->Text())) return false;
  }
  return !AnyFieldHoldsMarker(project.List3) && !AnyFieldHoldsMarker(project.lstRules) &&
         !AnyFieldHoldsMarker(project.lstMulti) && !HoldsMarker(project.txtPost.Text());
}

bool Load(std::string_view text, Project& project) {
  project.CurrentMainSite = 1;
  const bool reachedEnd = ReadProjectText(text, project);
  Require(project.ListCount() == static_cast<int>(project.List4.RowCount()));
  Require(project.List4.Empty() || project.CurrentMainSite == project.ListCount());
  return reachedEnd;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Project first;
  Load({reinterpret_cast<const char*>(data), size}, first);
  const std::string written = ProjectText(first);
  Project second;
  const bool reachedEnd = Load(written, second);
  if (!SurvivesAFile(first)) return 0;
  // Only the Description is lost, and only once: a second file is the same as the first.
  Require(reachedEnd);
  const std::string again = ProjectText(second);
  Project third;
  Require(Load(again, third));
  Require(ProjectText(third) == again);
  Require(second.List4.RowCount() == first.List4.RowCount() &&
          second.List3.RowCount() == first.List3.RowCount());
  Require(second.txtHTML1.Text() == first.txtHTML1.Text() && second.txtPost.Text() == first.txtPost.Text());
  return 0;
}
