// SPDX-License-Identifier: MIT
// Reads a project file line by line.
#include "model/project_reader.h"

#include <array>
#include <limits>
#include <span>
#include <string>

#include "model/project_text.h"
#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

/// The first fields of a line. A line may have millions of fields; only those that a record uses are cut out.
class Fields {
 public:
  static constexpr std::size_t kMost = 6;

  explicit Fields(std::string_view line) {
    // An empty line has no fields, not one empty field.
    while (!line.empty() && count_ < kMost) {
      const std::size_t bar = line.find('|');
      fields_[count_++] = line.substr(0, bar);
      if (bar == std::string_view::npos) return;
      line.remove_prefix(bar + 1);
      if (line.empty() && count_ < kMost) fields_[count_++] = {};
    }
  }

  /// At most kMost, even if the line has more.
  [[nodiscard]] std::size_t Count() const { return count_; }
  [[nodiscard]] std::string At(std::size_t position) const {
    if (position >= count_) throw RuntimeFailure(Failure::Subscript);
    return std::string(fields_[position]);
  }

 private:
  std::array<std::string_view, kMost> fields_;
  std::size_t count_ = 0;
};

/// Which fields of a record a line fills, in the order of the line.
template <class Record>
struct Layout {
  std::span<std::string Record::*const> Targets;
  std::size_t Required;   ///< with fewer, the row is added and the reading ends
  std::size_t First = 0;  ///< the position of the first target in the line
};

template <class Record>
void AddRow(RecordList<Record>& list, Record record, const Fields& fields, const Layout<Record>& layout,
            int icon = 0) {
  std::size_t set = 0;
  while (set < layout.Targets.size() && layout.First + set < fields.Count()) {
    record.*layout.Targets[set] = fields.At(layout.First + set);
    ++set;
  }
  list.Add(std::move(record), icon);
  if (set < layout.Required) throw RuntimeFailure(Failure::Subscript);
}

constexpr std::array kSiteFields = {&LinkingSite::WebsiteUrl, &LinkingSite::LinksExpected,
                                    &LinkingSite::LinkPageUrl, &LinkingSite::LinkPageText,
                                    &LinkingSite::Description};
constexpr std::array kResultFields = {&LinkResult::Main, &LinkResult::Linking, &LinkResult::Status,
                                      &LinkResult::No, &LinkResult::LinkUrl};
constexpr std::array kRuleFields = {&Rule::MainSite, &Rule::RemoteSite, &Rule::RuleType, &Rule::RuleValue};
constexpr std::array kScriptUrlFields = {&ScriptUrlEntry::MainSite, &ScriptUrlEntry::ScriptUrl};

/// A line without its marker, which is removed everywhere in the line.
std::string WithoutMarker(std::string_view line, std::string_view marker) {
  return Replace(line, marker, "", Compare::Binary);
}

class LineTaker {
 public:
  explicit LineTaker(Project& project) : project_(project) {}

  /// Reads a line after the first. Throws when the reading ends here.
  void Take(std::string_view line) {
    if (IsEmptyOrBlank(line)) return;
    // A line this short is a Linking Site whatever its marker. An empty Page Builder text gives such a line,
    // which has no field for Links expected and so ends the reading: the rest of the file is lost.
    if (line.size() <= 7) return AddLinkingSite(line);
    if (line.starts_with(marker::kHtml1)) return SetHtml(project_.txtHTML1, line, marker::kHtml1);
    if (line.starts_with(marker::kHtml2)) return SetHtml(project_.txtHTML2, line, marker::kHtml2);
    if (line.starts_with(marker::kHtml3)) return SetHtml(project_.txtHTML3, line, marker::kHtml3);
    if (line.starts_with(marker::kResult)) return AddResult(line);
    if (IsMarked(line, marker::kNextSite)) return AddMainSite(line);
    if (line.starts_with(marker::kRule)) return AddRule(line);
    if (IsMarked(line, marker::kPostSingle)) {
      return project_.txtPost.SetText(WithoutMarker(line, marker::kPostSingle));
    }
    if (IsMarked(line, marker::kPostMulti)) return AddScriptUrl(line);
    AddLinkingSite(line);
  }

 private:
  /// Whether the line has the marker and something after it.
  static bool IsMarked(std::string_view line, std::string_view marker) {
    return line.size() > marker.size() && line.starts_with(marker);
  }

  void AddLinkingSite(std::string_view line) {
    AddRow<LinkingSite>(project_.List1(project_.CurrentMainSite), {"", "", "", "", ""}, Fields(line),
                        {kSiteFields, 2});
  }

  static void SetHtml(TextBox& box, std::string_view line, std::string_view marker) {
    box.SetText(Replace(WithoutMarker(line, marker), kLineEndMark, kLineEnd, Compare::Binary));
  }

  void AddResult(std::string_view line) {
    const std::string rest = WithoutMarker(line, marker::kResult);
    const Fields fields(rest);
    const int icon = ReadInt16(fields.At(0));
    // Older files have no field for the Main Site.
    if (fields.Count() < 6) {
      AddRow<LinkResult>(project_.List3, {}, fields, {std::span(kResultFields).subspan(1), 4, 1}, icon);
    } else {
      AddRow<LinkResult>(project_.List3, {}, fields, {kResultFields, 5, 1}, icon);
    }
  }

  void AddMainSite(std::string_view line) {
    if (project_.CurrentMainSite == std::numeric_limits<std::int16_t>::max()) {
      throw RuntimeFailure(Failure::Overflow);
    }
    ++project_.CurrentMainSite;
    project_.AddMainSite(WithoutMarker(line, marker::kNextSite));
  }

  void AddRule(std::string_view line) {
    const std::string rest = WithoutMarker(line, marker::kRule);
    AddRow<Rule>(project_.lstRules, {}, Fields(rest), {kRuleFields, 4});
  }

  void AddScriptUrl(std::string_view line) {
    const std::string rest = WithoutMarker(line, marker::kPostMulti);
    AddRow<ScriptUrlEntry>(project_.lstMulti, {}, Fields(rest), {kScriptUrlFields, 2});
  }

  Project& project_;
};

/// While this lives, rows are added at the end, and a sorted list is sorted once afterwards. The order is the
/// same as when each row is placed, but the rows are not moved each time.
class SortOnceAtEnd {
 public:
  explicit SortOnceAtEnd(ListView& list) : list_(list), sort_(list.Sort()) {
    if (sort_.Sorted) list_.SetSort({false, sort_.SortKey, sort_.SortOrder});
  }
  ~SortOnceAtEnd() {
    if (sort_.Sorted) list_.SetSort(sort_);
  }
  SortOnceAtEnd(const SortOnceAtEnd&) = delete;
  SortOnceAtEnd& operator=(const SortOnceAtEnd&) = delete;

 private:
  ListView& list_;
  SortState sort_;
};

}  // namespace

bool ReadProjectText(std::string_view text, Project& project, std::size_t* lastLine) {
  std::size_t ignored = 0;
  std::size_t& line = lastLine == nullptr ? ignored : *lastLine;
  line = 0;
  LineReader lines(text, LineEnds::CarriageReturn);
  const auto first = lines.Next();
  if (!first) return false;
  line = 1;
  const SortOnceAtEnd resultsInOrder(project.List3);
  return EndSilently([&] {
    project.AddMainSite(std::string(*first));
    LineTaker taker(project);
    while (const auto next = lines.Next()) {
      ++line;
      taker.Take(*next);
    }
  });
}

}  // namespace requite
