// SPDX-License-Identifier: MIT
// Reads the changes out of the history, and what the buttons do with them.
#include "shell/changes/frm_changes.h"

#include <algorithm>
#include <set>

#include "history/acknowledge.h"
#include "history/scan_recorder.h"
#include "platform/database_text.h"
#include "platform/failure_box.h"
#include "platform/quoting.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "shell/windows.h"

namespace requite {
namespace {

// The rows of the filter: all, then the kinds, then the sites that are marked as known.
constexpr int kFilterAll = 0;
constexpr int kFilterKnown = static_cast<int>(ChangeKind::Same) + 1;

constexpr int kIconMoved = 3;
constexpr int kIconAdded = 4;

struct KindLook {
  int Icon;
  std::uint32_t Colour;
};

/// Red is for links that are gone, and not for sites that were like this before or may be back tomorrow.
KindLook LookOf(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::Lost:
    case ChangeKind::Fewer: return {kIconBad, kRed};
    case ChangeKind::Unreachable:
    case ChangeKind::StillMissing: return {kIconBad, kDefaultColour};
    case ChangeKind::FoundAgain:
    case ChangeKind::New: return {kIconGood, kBlue};
    case ChangeKind::Moved: return {kIconMoved, kDefaultColour};
    case ChangeKind::Added: return {kIconAdded, kDefaultColour};
    case ChangeKind::Removed:
    case ChangeKind::Same: break;
  }
  return {0, kDefaultColour};
}

std::string WithCapital(std::string words) {
  if (!words.empty() && words.front() >= 'a' && words.front() <= 'z') words.front() -= 'a' - 'A';
  return words;
}

/// "2026-01-02 15:04 UTC" of a date of the history.
std::string DateWords(const std::string& date) {
  constexpr std::size_t kToMinute = 16;
  std::string words = date.substr(0, kToMinute);
  std::replace(words.begin(), words.end(), 'T', ' ');
  return words + " UTC";
}

std::string WordsOf(const ChangeList& list, bool keepsHistory) {
  constexpr std::string_view kOff =
      "Switch on \"Keep a history of scans\" in the options. The first two scans after that show what "
      "changed.";
  if (!list.Scan) {
    return keepsHistory ? "No scan of this project is recorded yet. The first two scans show what changed."
                        : std::string(kOff);
  }
  const std::string off = keepsHistory ? "" : " Scans are not recorded now: the history is switched off.";
  const std::string date = DateWords(list.Scan->Finished);
  if (!list.ComparedWith) return "One scan is recorded, of " + date + ". The next shows what changed." + off;
  return WithCapital(list.Counts.Words()) + ". Last scan: " + date +
         (list.Scan->Complete ? "." : ", stopped early.") + " Each site is compared with its scan before." +
         off;
}

std::vector<std::string_view> FieldsOf(const ChangeLine& line) {
  std::vector<std::string_view> fields;
  for (const auto& column : ChangeLine::Columns()) fields.emplace_back(line.*column.Field);
  return fields;
}

/// A cell of a table that is pasted: what is in it must not begin another cell or row.
std::string OneCell(std::string_view text) {
  std::string cell(text);
  std::replace_if(
      cell.begin(), cell.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
  return cell;
}

template <class Form>
void AppendRow(std::string& text, const std::vector<std::string_view>& fields, char between, Form&& form) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) text += between;
    text += form(fields[i]);
  }
  text += kLineEnd;
}

std::vector<std::string_view> Captions() {
  std::vector<std::string_view> captions;
  for (const auto& column : ChangeLine::Columns()) captions.push_back(column.Caption);
  return captions;
}

MessageBox BoxOf(const RuntimeFailure& failure) {
  return {WithCapital(failure.Description) + ".", "", Buttons::Ok, BoxIcon::Critical};
}

}  // namespace

frmChanges::frmChanges(Windows& windows, ChangesNeeds needs)
    : ProgramWindow(windows, "frmChanges", "Changes Since Last Scan"), needs_(std::move(needs)) {
  BuildControls();
  Wire();
}

void frmChanges::BuildControls() {
  cmdRefresh.ToolTip = "Read the history again";
  cmdOpenPage.ToolTip = "Open the page of the link in your browser";
  cmdCopy.ToolTip = "Copy the selected rows, or all rows on show";
  cmdSaveCsv.ToolTip = "Save the rows on show as a table for spreadsheets";
  txtWhy.ToolTip = "Your own word on it, such as \"moves house until May\"";
  cmdKnown.ToolTip = "Do not tell the selected sites again until they change";
  cmdTakeBack.ToolTip = "Tell the selected sites again";
  for (Label* each : {&lblState, &lblFilter, &lblWhy}) Controls.AddLabel(*each);
  Controls.AddDropDownList(cmbFilter);
  for (Control* each :
       std::initializer_list<Control*>{&cmdOptions, &cmdRefresh, &lstChanges, &picPast, &cmdOpenPage,
                                       &cmdCopy, &cmdSaveCsv, &txtWhy, &cmdKnown, &cmdTakeBack}) {
    Controls.Add(*each);
  }
}

void frmChanges::Wire() {
  cmdOptions.OnClick = [this] { Others.Show("frmOptions"); };
  cmdRefresh.OnClick = [this] { Read(); };
  cmbFilter.OnClick = [this] { FillList(); };
  lstChanges.OnItemClick = [this](int) { ShowSelected(); };
  lstChanges.OnColumnClick = [this](int column) { SortBy(column); };
  lstChanges.OnDoubleClick = [this](int) { OpenPage(); };
  cmdOpenPage.OnClick = [this] { OpenPage(); };
  cmdCopy.OnClick = [this] { Copy(); };
  cmdSaveCsv.OnClick = [this] { SaveCsv(); };
  txtWhy.OnEnter = [this] {
    if (cmdKnown.Enabled()) cmdKnown.Click();
  };
  cmdKnown.OnClick = [this] { Mark(true); };
  cmdTakeBack.OnClick = [this] { Mark(false); };
}

void frmChanges::Load() {
  Read();
  SelectAbout(0);
}

/// Selects a row where nothing is selected, if there is any.
void frmChanges::SelectAbout(int row) {
  if (lstChanges.Empty() || lstChanges.SelectedRow() >= 0) return;
  lstChanges.SelectOnly(std::min(row, static_cast<int>(lstChanges.RowCount()) - 1));
  ShowSelected();
}

void frmChanges::Read() {
  project_ = NameInHistory(needs_.OpenPath());
  list_ = {};
  try {
    lblState.SetText(ReadList());
  } catch (const RuntimeFailure& failure) {
    lblState.SetText(WithCapital(failure.Description) + ".");
  }
  cmdOptions.SetVisible(!KeepsHistory(needs_.Settings));
  FillFilter();
}

/// Returns what is to be said about the list.
std::string frmChanges::ReadList() {
  const bool keeps = KeepsHistory(needs_.Settings);
  if (project_.empty() && keeps) {
    return "This project has not been saved yet. Scans are recorded under the name of its file.";
  }
  if (!project_.empty() && FileExists(needs_.Folder.File(kHistoryFile))) {
    HistoryFile history(needs_.Folder, SqliteStore::Open::ToRead);
    ChangesWanted wanted;
    wanted.All = true;
    list_ = ReadChanges(history, project_, SitesOf(needs_.Sites), wanted);
  }
  return WordsOf(list_, keeps);
}

bool frmChanges::Passes(const SiteChange& change) const {
  const int filter = cmbFilter.ListIndex();
  if (filter == kFilterKnown) return change.Acknowledged;
  return change.News && (filter <= kFilterAll || static_cast<int>(change.Kind) + 1 == filter);
}

void frmChanges::FillFilter() {
  const int chosen = std::max(cmbFilter.ListIndex(), kFilterAll);
  const auto counted = [&](const std::string& words, bool SiteChange::*which) {
    const auto count = std::count_if(list_.Changes.begin(), list_.Changes.end(),
                                     [&](const SiteChange& change) { return change.*which; });
    return words + " (" + std::to_string(count) + ")";
  };
  cmbFilter.Clear();
  cmbFilter.AddItem(counted("All changes", &SiteChange::News));
  for (int kind = 0; kind < static_cast<int>(ChangeKind::Same); ++kind) {
    const auto each = static_cast<ChangeKind>(kind);
    cmbFilter.AddItem(WithCapital(std::string(requite::WordsOf(each))) + " (" +
                      std::to_string(list_.Counts.Of(each)) + ")");
  }
  cmbFilter.AddItem(counted("Marked as known", &SiteChange::Acknowledged));
  cmbFilter.SetListIndex(chosen);  // which fills the list
}

void frmChanges::FillList() {
  std::set<std::int64_t> selected;
  for (std::size_t row = 0; row < lstChanges.RowCount(); ++row) {
    if (lstChanges.IsSelected(row)) selected.insert(lstChanges.At(row).Row);
  }
  lstChanges.Clear();
  for (const SiteChange& change : list_.Changes) {
    if (!Passes(change)) continue;
    const KindLook look = LookOf(change.Kind);
    const std::size_t row = lstChanges.Add(LineOf(change), look.Icon, look.Colour);
    if (selected.contains(change.Site.Row)) lstChanges.AlsoSelect(row);
  }
  ShowSelected();
}

void frmChanges::ShowSelected() {
  const std::vector<const SiteChange*> selected = SelectedChanges();
  const auto any = [&](auto&& test) { return std::any_of(selected.begin(), selected.end(), test); };
  const bool known = any([](const SiteChange* change) { return change->Acknowledged; });
  const bool markable = any([](const SiteChange* change) {
    return change->Kind != ChangeKind::Removed && FallsShort(change->Site);
  });
  cmdOpenPage.SetEnabled(!selected.empty());
  for (Button* each : {&cmdCopy, &cmdSaveCsv}) each->SetEnabled(!lstChanges.Empty());
  for (Control* each : std::initializer_list<Control*>{&txtWhy, &cmdKnown}) each->SetEnabled(markable);
  cmdTakeBack.SetEnabled(known);
  std::vector<PastResult> past;
  const SiteChange* const last = ChangeAt(lstChanges.SelectedRow());
  PassOver([&] {
    if (last == nullptr) return;
    HistoryFile history(needs_.Folder, SqliteStore::Open::ToRead);
    past = LastResults(history, last->Site);
  });
  picPast.Set(last == nullptr ? "" : last->Site.Host, std::move(past));
}

void frmChanges::SortBy(int column) {
  const SortState& now = lstChanges.Sort();
  const bool again = now.Sorted && now.SortKey == column;
  lstChanges.SetSort({true, column, again && now.SortOrder == 0 ? 1 : 0});
}

const SiteChange* frmChanges::ChangeAt(int row) const {
  if (row < 0) return nullptr;
  const std::int64_t site = lstChanges.At(static_cast<std::size_t>(row)).Row;
  const auto at = std::find_if(list_.Changes.begin(), list_.Changes.end(),
                               [&](const SiteChange& change) { return change.Site.Row == site; });
  return at == list_.Changes.end() ? nullptr : &*at;
}

std::vector<const SiteChange*> frmChanges::SelectedChanges() const {
  std::set<std::int64_t> sites;
  for (std::size_t row = 0; row < lstChanges.RowCount(); ++row) {
    if (lstChanges.IsSelected(row)) sites.insert(lstChanges.At(row).Row);
  }
  std::vector<const SiteChange*> selected;
  for (const SiteChange& change : list_.Changes) {
    if (sites.contains(change.Site.Row)) selected.push_back(&change);
  }
  return selected;
}

/// The page where the link is or was.
void frmChanges::OpenPage() {
  const SiteChange* const change = ChangeAt(lstChanges.SelectedRow());
  if (change == nullptr) return;
  std::string url = change->Site.UrlAfter;
  if (!change->Site.Links.empty()) {
    url = change->Site.Links.front().Page;
  } else if (change->Before && !change->Before->Links.empty()) {
    url = change->Before->Links.front().Page;
  }
  needs_.Platform.Shell.OpenUrlOutside(url);
}

void frmChanges::Copy() {
  std::string text;
  AppendRow(text, Captions(), '\t', OneCell);
  for (std::size_t row = 0; row < lstChanges.RowCount(); ++row) {
    if (lstChanges.SelectedRow() < 0 || lstChanges.IsSelected(row))
      AppendRow(text, FieldsOf(lstChanges.At(row)), '\t', OneCell);
  }
  needs_.Platform.Clipboard.Clear();
  needs_.Platform.Clipboard.SetText(text);
}

void frmChanges::SaveCsv() {
  const Running running(*this);  // the dialog lets events run
  const std::string name = needs_.Platform.Dialogs.AskSaveName(
      {"", "CSV Files (*.csv)|*.csv", "changes.csv", {.DefaultSuffix = "csv", .AsksToReplace = true}});
  if (name.empty() || Closed()) return;
  const auto cell = [](std::string_view text) { return CsvCell(ToDatabaseText(text)); };
  std::string csv;
  AppendRow(csv, Captions(), ',', cell);
  for (std::size_t row = 0; row < lstChanges.RowCount(); ++row)
    AppendRow(csv, FieldsOf(lstChanges.At(row)), ',', cell);
  const bool saved = EndInBox(
      needs_.Platform.Dialogs, [&] { WriteWhole(name, csv, Flush::Yes); }, BoxOf);
  if (saved && OnSaved) OnSaved(name);
}

void frmChanges::Mark(bool known) {
  const Running running(*this);  // a message box lets events run
  const auto mark = [&] {
    HistoryFile history(needs_.Folder, SqliteStore::Open::ToWrite);
    for (const SiteChange* change : SelectedChanges()) {
      if (!known) {
        TakeBackAcknowledged(history, change->Site.Row);
      } else if (change->Kind != ChangeKind::Removed) {
        Acknowledge(history, project_, change->Site, txtWhy.Text(), needs_.Platform.Clock.UtcDateTime());
      }
    }
  };
  const int row = lstChanges.SelectedRow();
  const bool done = EndInBox(needs_.Platform.Dialogs, mark, BoxOf);
  if (Closed()) return;
  if (done && known) txtWhy.SetText({});
  Read();
  SelectAbout(row);  // the marked rows have gone
  lstChanges.SetFocus();
}

}  // namespace requite
